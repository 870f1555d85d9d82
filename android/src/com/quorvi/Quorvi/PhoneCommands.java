package com.quorvi.Quorvi;

import android.content.Context;
import android.content.pm.PackageManager;
import android.os.Build;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;

import java.io.IOException;

/** The phone itself: what it is, and which version the agent has. */
final class PhoneCommands implements CommandGroup {
    /** What the agent answers as the kind of client it serves. */
    private static final int CLIENT_CODE = 1;

    private final Context context;

    PhoneCommands(Context context) {
        this.context = context;
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.DEVICE_SUMMARY, AgentCommand.AGENT_VERSION};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange) throws IOException {
        if (command == AgentCommand.AGENT_VERSION) {
            exchange.reply.word(version());
            return;
        }
        exchange.reply.uint32(CLIENT_CODE).uint32(Build.VERSION.SDK_INT).text(model());
    }

    /** The manufacturer's name in front, unless the model bears it already. */
    static String model() {
        boolean isNamed = Build.MODEL.toLowerCase().startsWith(Build.MANUFACTURER.toLowerCase());
        return isNamed ? Build.MODEL : Build.MANUFACTURER + " " + Build.MODEL;
    }

    @SuppressWarnings("deprecation") // the number is small, and the longer one came with Android 9
    private int version() throws IOException {
        try {
            return context.getPackageManager()
                    .getPackageInfo(context.getPackageName(), 0)
                    .versionCode;
        } catch (PackageManager.NameNotFoundException e) {
            throw new IOException(e);
        }
    }
}
