package com.quorvi.Quorvi;

import android.content.Context;
import android.content.Intent;
import android.content.pm.PackageManager;
import android.content.pm.ResolveInfo;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;

import java.io.IOException;
import java.util.Map;
import java.util.TreeMap;
import java.util.TreeSet;

/** What starts on which event: the list, application by application. */
final class AutoStartCommands implements CommandGroup {
    private static final int RESERVED = 0;

    private final PackageManager packages;

    AutoStartCommands(Context context) {
        packages = context.getPackageManager();
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.LIST_AUTO_START};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange) throws IOException {
        Map<String, TreeSet<Integer>> eventsOf = new TreeMap<>();
        Map<String, String> names = new TreeMap<>();
        for (int event = 0; event < StartEvents.COUNT; ++event) {
            for (Intent broadcast : StartEvents.broadcastsOf(event)) {
                for (ResolveInfo receiver : packages.queryBroadcastReceivers(broadcast, 0)) {
                    String name = receiver.activityInfo.packageName;
                    if (!eventsOf.containsKey(name)) {
                        eventsOf.put(name, new TreeSet<Integer>());
                        names.put(
                                name,
                                packages.getApplicationLabel(receiver.activityInfo.applicationInfo)
                                        .toString());
                    }
                    eventsOf.get(name).add(event);
                }
            }
        }
        for (Map.Entry<String, TreeSet<Integer>> application : eventsOf.entrySet()) {
            for (int event : application.getValue()) {
                exchange.reply
                        .uint32(event)
                        .text(names.get(application.getKey()))
                        .text(application.getKey())
                        .uint32(RESERVED);
            }
        }
    }
}
