package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertTrue;

import java.io.File;
import java.util.concurrent.TimeUnit;
import java.util.function.IntSupplier;

/** What connections may leave behind. */
public final class Leftovers {
    /** The last connection's thread may still be ending; on a busy computer that takes a while. */
    private static final long MAX_NANOS = TimeUnit.SECONDS.toNanos(60);

    private Leftovers() {}

    public static int threads() {
        int count = 0;
        for (Thread thread : Thread.getAllStackTraces().keySet()) {
            count += thread.getName().startsWith("agent-") ? 1 : 0;
        }
        return count;
    }

    public static int descriptors() {
        return new File("/proc/self/fd").list().length;
    }

    public static void expectAtMost(int count, IntSupplier counted) {
        long start = System.nanoTime();
        int now = counted.getAsInt();
        while (now > count && System.nanoTime() - start < MAX_NANOS) {
            Thread.yield();
            now = counted.getAsInt();
        }
        assertTrue(now + " where " + count + " were", now <= count);
    }
}
