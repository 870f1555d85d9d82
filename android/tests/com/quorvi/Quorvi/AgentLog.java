package com.quorvi.Quorvi;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.AgentServer;

import java.util.ArrayList;
import java.util.Collections;
import java.util.EnumSet;
import java.util.List;
import java.util.Set;

/** What an agent has answered, and what it could not. */
final class AgentLog implements AgentServer.Listener {
    final Set<AgentCommand> answered =
            Collections.synchronizedSet(EnumSet.noneOf(AgentCommand.class));
    final List<Exception> failures = Collections.synchronizedList(new ArrayList<Exception>());

    @Override
    public void answered(AgentCommand command) {
        answered.add(command);
    }

    @Override
    public void failed(Exception why) {
        failures.add(why);
    }
}
