package com.quorvi.Quorvi.wire;

import java.io.IOException;

/** Answers the commands of one group. May be asked on several threads at once. */
public interface CommandGroup {
    AgentCommand[] commands();

    /**
     * @param command one of commands()
     * @throws IOException when the reply can't be kept; the connection ends without one
     */
    void answer(AgentCommand command, Exchange exchange) throws IOException, MalformedRequest;
}
