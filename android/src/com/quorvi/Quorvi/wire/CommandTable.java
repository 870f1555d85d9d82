package com.quorvi.Quorvi.wire;

import java.util.EnumMap;
import java.util.Map;

/** Which group answers which command. */
public final class CommandTable {
    private final Map<AgentCommand, CommandGroup> groups = new EnumMap<>(AgentCommand.class);

    public CommandTable(CommandGroup... all) {
        for (CommandGroup group : all) {
            for (AgentCommand command : group.commands()) {
                if (groups.put(command, group) != null) {
                    throw new IllegalArgumentException(command + " is answered twice");
                }
            }
        }
    }

    public boolean answers(AgentCommand command) {
        return groups.containsKey(command);
    }

    /** Null for a command that nobody answers. */
    CommandGroup groupOf(AgentCommand command) {
        return groups.get(command);
    }
}
