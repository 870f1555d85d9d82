package com.quorvi.Quorvi;

import android.content.Context;
import android.content.Intent;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageInfo;
import android.content.pm.PackageManager;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.File;
import java.io.IOException;

/** The applications: the list, starting one. */
final class AppCommands implements CommandGroup {
    private static final int RESERVED = 0;

    private final Context context;
    private final PackageManager packages;

    AppCommands(Context context) {
        this.context = context;
        packages = context.getPackageManager();
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.LIST_APPLICATIONS, AgentCommand.RUN_APPLICATION};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        if (command == AgentCommand.LIST_APPLICATIONS) {
            list(exchange.reply);
        } else {
            run(exchange);
        }
    }

    /**
     * The agent leaves itself out: who removed it in this list would lose the list. Where nothing is
     * left, it says so by a record whose name is absent.
     */
    private void list(ReplyWriter reply) throws IOException {
        for (PackageInfo one : packages.getInstalledPackages(0)) {
            if (one.applicationInfo != null && !one.packageName.equals(context.getPackageName())) {
                write(reply, one, one.applicationInfo);
            }
        }
        if (reply.isEmpty()) {
            reply.uint32(RESERVED).absentText();
        }
    }

    private void write(ReplyWriter reply, PackageInfo one, ApplicationInfo application)
            throws IOException {
        String file = application.sourceDir == null ? "" : application.sourceDir;
        reply.uint32(RESERVED)
                .text(packages.getApplicationLabel(application).toString())
                .text(one.packageName)
                .text(one.versionName)
                .flag(AppIcon.isSystem(application))
                .uint64(new File(file).length())
                .picture(AppIcon.of(packages, application))
                .text(file)
                .uint32(RESERVED)
                .uint64(one.firstInstallTime);
    }

    /** Refused is what is not installed, or has nothing to be started by. */
    private void run(Exchange exchange) throws MalformedRequest {
        exchange.expectOneItem();
        Intent start = packages.getLaunchIntentForPackage(exchange.request.text());
        exchange.request.end();
        boolean isStarted = false;
        if (start != null) {
            try {
                context.startActivity(start.addFlags(Intent.FLAG_ACTIVITY_NEW_TASK));
                isStarted = true;
            } catch (RuntimeException e) {
                // It has gone since, or lets nobody start it.
                isStarted = false;
            }
        }
        exchange.doneOrRefused(isStarted);
    }
}
