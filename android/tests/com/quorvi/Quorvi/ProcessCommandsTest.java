package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import android.app.ActivityManager;
import android.content.Context;
import android.os.Build;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;

import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowActivityManager;

import java.io.File;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

public class ProcessCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] REFUSED = Bytes.u32(0);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);

    private static ShadowActivityManager activities() {
        return Shadows.shadowOf(
                (ActivityManager) phone().getSystemService(Context.ACTIVITY_SERVICE));
    }

    private static void run(ActivityManager.RunningAppProcessInfo... processes) {
        activities().setProcesses(Arrays.asList(processes));
    }

    private static ActivityManager.RunningAppProcessInfo process(
            String name, int pid, int importance, String... packages) {
        ActivityManager.RunningAppProcessInfo process =
                new ActivityManager.RunningAppProcessInfo(name, pid, packages);
        process.importance = importance;
        return process;
    }

    @Test
    public void listsAProcessWhoseApplicationIsGoneByItsOwnName() throws Exception {
        run(process("com.example.gone:push", 4711, 300, "com.example.gone"));
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(0), // memory
                        Bytes.u32(300), // importance: a service
                        Bytes.u32(0), // share of the processor
                        Bytes.u32(4711), // process
                        Bytes.u32(0), // no part of the system
                        Bytes.text("com.example.gone:push"), // name
                        Bytes.text("com.example.gone"), // package
                        Bytes.u64(0)), // no picture
                ask(Bytes.u32(AgentCommand.LIST_PROCESSES.code)));
    }

    @Test
    public void aProcessWithoutAPackageGoesByItsName() throws Exception {
        run(process("system_helper", 12, 100));
        byte[] tail = Bytes.of(Bytes.text("system_helper"), Bytes.text("system_helper"), Bytes.u64(0));
        byte[] reply = ask(Bytes.u32(AgentCommand.LIST_PROCESSES.code));
        assertArrayEquals(
                tail, Arrays.copyOfRange(reply, reply.length - tail.length, reply.length));
    }

    @Test
    public void theAgentLeavesItselfOut() throws Exception {
        run(process("agent", 1, 100, phone().getPackageName()));
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_PROCESSES.code)));
    }

    @Test
    public void aPhoneThatShowsNoProcessesHasNoData() throws Exception {
        run();
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_PROCESSES.code)));
    }

    @Test
    public void endsWhatIsNamedAndNotItself() throws Exception {
        List<ActivityManager.RunningAppProcessInfo> all = new ArrayList<>();
        all.add(process("com.example.a", 1, 400, "com.example.a"));
        all.add(process("com.example.b", 2, 400, "com.example.b"));
        activities().setProcesses(all);
        byte[] reply =
                ask(Bytes.frame(
                        AgentCommand.END_PROCESSES,
                        2,
                        Bytes.text("com.example.a"),
                        Bytes.text(phone().getPackageName())));
        // From Android 14 on a phone ends no processes for others.
        boolean isAllowed = Build.VERSION.SDK_INT < Build.VERSION_CODES.UPSIDE_DOWN_CAKE;
        assertArrayEquals(isAllowed ? DONE : REFUSED, reply);
        assertEquals(isAllowed ? "com.example.a" : null, activities().getBackgroundPackage());
    }

    @Test
    public void endingNothingIsDone() throws Exception {
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.END_PROCESSES, 0)));
    }

    @Test
    public void theFreeMemoryIsTheWord() throws Exception {
        memory(0x12345678L);
        assertArrayEquals(
                Bytes.of(0x12, 0x34, 0x56, 0x78),
                ask(Bytes.u32(AgentCommand.FREE_MEMORY.code)));
    }

    @Test
    public void moreFreeMemoryThanAWordHoldsIsTheLargestWord() throws Exception {
        memory(5L * 1024 * 1024 * 1024);
        assertArrayEquals(
                Bytes.of(0xFF, 0xFF, 0xFF, 0xFF),
                ask(Bytes.u32(AgentCommand.FREE_MEMORY.code)));
    }

    private static void memory(long free) {
        ActivityManager.MemoryInfo memory = new ActivityManager.MemoryInfo();
        memory.availMem = free;
        activities().setMemoryInfo(memory);
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new ProcessCommands(phone(), new CpuShares(new File("/none"))), request);
    }
}
