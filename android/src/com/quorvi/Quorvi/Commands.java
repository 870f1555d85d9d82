package com.quorvi.Quorvi;

import android.content.Context;
import android.os.Environment;

import com.quorvi.Quorvi.wire.CommandTable;

import java.io.File;

/** The commands that the agent answers, one table; each group gives its own. */
final class Commands {
    private Commands() {}

    /** To be called on the window's thread. */
    static CommandTable of(Context context) {
        PhoneSwitches switches = new PhoneSwitches(context);
        PhoneFacts facts = new PhoneFacts(context, Environment.getDataDirectory());
        CpuName cpu =
                new CpuName(
                        new File("/proc/cpuinfo"),
                        new File("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq"));
        return new CommandTable(
                new PhoneCommands(context, switches, facts, cpu),
                new ContactCommands(context),
                new GroupCommands(context),
                new MessageCommands(context),
                new CallCommands(context),
                new AlarmCommands(context),
                new FileCommands(),
                new BookmarkCommands(context),
                new AppCommands(context),
                new SettingCommands(context, switches),
                new CleanCommands(context, new Caches(context.getPackageManager())),
                new AutoStartCommands(context),
                new ProcessCommands(context));
    }
}
