package com.quorvi.Quorvi;

import android.content.Context;

import com.quorvi.Quorvi.wire.CommandTable;

/** The commands that the agent answers, one table; each group gives its own. */
final class Commands {
    private Commands() {}

    static CommandTable of(Context context) {
        return new CommandTable(
                new PhoneCommands(context),
                new ContactCommands(context),
                new GroupCommands(context),
                new MessageCommands(context),
                new CallCommands(context),
                new AlarmCommands(context),
                new BookmarkCommands(context),
                new FileCommands(),
                new AppCommands(context),
                new AutoStartCommands(context),
                new ProcessCommands(context));
    }
}
