package com.quorvi.Quorvi;

import com.quorvi.Quorvi.wire.AgentCommand;

import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/** What the agent asks the phone for, and for which commands. The manifest names the same. */
enum Permissions {
    /** The socket, without which there is no command at all. */
    INTERNET("android.permission.INTERNET", false, AgentCommand.values()),
    FOREGROUND_SERVICE("android.permission.FOREGROUND_SERVICE", false, AgentCommand.values());

    final String androidName;

    /** Whether the owner is asked for it, from Android 6 on. */
    final boolean isAsked;

    final List<AgentCommand> commands;

    Permissions(String androidName, boolean isAsked, AgentCommand... commands) {
        this.androidName = androidName;
        this.isAsked = isAsked;
        this.commands = Collections.unmodifiableList(Arrays.asList(commands));
    }
}
