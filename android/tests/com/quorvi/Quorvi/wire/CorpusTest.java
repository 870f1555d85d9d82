package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertFalse;

import org.junit.Test;

/** What the suite's own fuzzer found worth keeping, taken as requests, whole and broken. */
public class CorpusTest {
    private static final int REQUESTS = 100 * 1000;

    private final CommandTable table = new CommandTable(new EchoGroup());

    @Test
    public void aHundredThousandBrokenRequestsLeaveItServing() throws Exception {
        assertFalse("nothing was broken", BrokenRequests.send(table, REQUESTS) < REQUESTS / 10);
        assertArrayEquals(
                Bytes.u32(20), Asked.reply(table, Bytes.u32(AgentCommand.AGENT_VERSION.code)));
    }
}
