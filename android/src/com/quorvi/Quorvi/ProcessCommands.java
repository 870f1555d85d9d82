package com.quorvi.Quorvi;

import android.app.ActivityManager;
import android.content.Context;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageManager;
import android.os.Build;
import android.os.Debug;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/**
 * The processes: the list, ending some, the free memory. From Android 5.1.1 on a phone shows an
 * application no processes but its own, which the agent leaves out: the list has no data there.
 */
final class ProcessCommands implements CommandGroup {
    private static final long KILOBYTE = 1024;
    private static final long MAX_WORD = 0xFFFFFFFFL;

    private final Context context;
    private final PackageManager packages;
    private final ActivityManager activities;
    private final CpuShares cpu;

    ProcessCommands(Context context) {
        this(context, new CpuShares(new File("/proc")));
    }

    ProcessCommands(Context context, CpuShares cpu) {
        this.context = context;
        this.cpu = cpu;
        packages = context.getPackageManager();
        activities = (ActivityManager) context.getSystemService(Context.ACTIVITY_SERVICE);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_PROCESSES, AgentCommand.END_PROCESSES, AgentCommand.FREE_MEMORY,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_PROCESSES:
                list(exchange.reply);
                break;
            case END_PROCESSES:
                end(exchange);
                break;
            default:
                exchange.reply.word((int) Math.min(freeMemory(), MAX_WORD));
        }
    }

    private long freeMemory() {
        ActivityManager.MemoryInfo memory = new ActivityManager.MemoryInfo();
        activities.getMemoryInfo(memory);
        return memory.availMem;
    }

    private void list(ReplyWriter reply) throws IOException {
        List<ActivityManager.RunningAppProcessInfo> running = othersRunning();
        int[] pids = new int[running.size()];
        for (int i = 0; i < pids.length; ++i) {
            pids[i] = running.get(i).pid;
        }
        Debug.MemoryInfo[] memory =
                pids.length == 0 ? null : activities.getProcessMemoryInfo(pids);
        int[] shares = cpu.of(pids);
        for (int i = 0; i < pids.length; ++i) {
            boolean isMemoryKnown = memory != null && i < memory.length && memory[i] != null;
            write(
                    reply,
                    running.get(i),
                    isMemoryKnown ? memory[i].getTotalPss() * KILOBYTE : 0,
                    shares[i]);
        }
    }

    private List<ActivityManager.RunningAppProcessInfo> othersRunning() {
        List<ActivityManager.RunningAppProcessInfo> others = new ArrayList<>();
        List<ActivityManager.RunningAppProcessInfo> all = activities.getRunningAppProcesses();
        if (all == null) {
            return others;
        }
        for (ActivityManager.RunningAppProcessInfo one : all) {
            if (!packageOf(one).equals(context.getPackageName())) {
                others.add(one);
            }
        }
        return others;
    }

    /** The package that ending it ends; a process without one goes by its own name. */
    private static String packageOf(ActivityManager.RunningAppProcessInfo one) {
        boolean hasPackage = one.pkgList != null && one.pkgList.length > 0;
        return hasPackage ? one.pkgList[0] : one.processName;
    }

    private void write(
            ReplyWriter reply,
            ActivityManager.RunningAppProcessInfo one,
            long memory,
            int cpuShare)
            throws IOException {
        String name = one.processName;
        boolean isSystem = false;
        byte[] icon = null;
        try {
            ApplicationInfo application = packages.getApplicationInfo(packageOf(one), 0);
            name = packages.getApplicationLabel(application).toString();
            isSystem = AppIcon.isSystem(application);
            icon = AppIcon.of(packages, application);
        } catch (PackageManager.NameNotFoundException e) {
            // It was removed while it runs.
            name = one.processName;
        }
        reply.uint64(memory)
                .uint32(one.importance)
                .uint32(cpuShare)
                .uint32(one.pid)
                .flag(isSystem)
                .text(name)
                .text(packageOf(one))
                .picture(icon);
    }

    /**
     * The phone ends what runs in the background and keeps what it needs. From Android 14 on it ends
     * only what is the asking application's own: nothing.
     */
    private void end(Exchange exchange) throws MalformedRequest {
        List<String> names = new ArrayList<>();
        for (long i = 0; i < exchange.items; ++i) {
            names.add(exchange.request.text());
        }
        exchange.request.end();
        boolean isAllowed = Build.VERSION.SDK_INT < Build.VERSION_CODES.UPSIDE_DOWN_CAKE;
        for (String name : names) {
            if (isAllowed && !name.equals(context.getPackageName())) {
                activities.killBackgroundProcesses(name);
            }
        }
        exchange.doneOrRefused(isAllowed || names.isEmpty());
    }
}
