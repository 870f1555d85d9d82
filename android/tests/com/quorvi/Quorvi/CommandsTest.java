package com.quorvi.Quorvi;

import static org.junit.Assert.assertTrue;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandTable;

import org.junit.Test;

public class CommandsTest extends OnPhones {
    @Test
    public void everyCommandIsAnswered() {
        CommandTable table = Commands.of(phone());
        for (AgentCommand command : AgentCommand.values()) {
            assertTrue(command.toString(), table.answers(command));
        }
    }
}
