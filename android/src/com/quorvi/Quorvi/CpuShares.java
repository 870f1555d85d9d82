package com.quorvi.Quorvi;

import java.io.BufferedReader;
import java.io.File;
import java.io.FileReader;
import java.io.IOException;

/** How much of the processor processes take, from the kernel's counters. Any thread. */
final class CpuShares {
    /** Between the two looks of which the share is the difference. */
    private static final int PAUSE_MILLIS = 300;

    private static final int PERCENT = 100;

    /** In the words behind the name of a process, which stands in brackets and may hold blanks. */
    private static final int USER_TIME = 11;

    private static final int SYSTEM_TIME = 12;

    private final File proc;

    /** @param proc where the kernel shows its counters */
    CpuShares(File proc) {
        this.proc = proc;
    }

    /** In percent, in the order of the processes; 0 of what the phone does not show. */
    int[] of(int[] pids) {
        int[] shares = new int[pids.length];
        long[] before = timesOf(pids);
        long totalBefore = totalTime();
        if (pids.length == 0 || totalBefore == 0 || !pause()) {
            return shares;
        }
        long[] after = timesOf(pids);
        long passed = totalTime() - totalBefore;
        for (int i = 0; i < pids.length; ++i) {
            shares[i] = share(before[i], after[i], passed);
        }
        return shares;
    }

    static int share(long before, long after, long passed) {
        if (passed <= 0 || after <= before) {
            return 0;
        }
        return (int) Math.min(PERCENT, (after - before) * PERCENT / passed);
    }

    /** All that the processors did and did not do, of the line "cpu  …"; 0: not shown. */
    static long totalTimeOf(String line) {
        long total = 0;
        String[] words = line.split("\\s+");
        if (!words[0].equals("cpu")) {
            return 0;
        }
        for (int i = 1; i < words.length; ++i) {
            total += numberOf(words[i]);
        }
        return total;
    }

    /** What a process has had, of the one line that the kernel shows of it. */
    static long timeOf(String line) {
        String[] words = line.substring(line.lastIndexOf(')') + 1).trim().split("\\s+");
        return words.length > SYSTEM_TIME
                ? numberOf(words[USER_TIME]) + numberOf(words[SYSTEM_TIME])
                : 0;
    }

    private static long numberOf(String word) {
        try {
            return Long.parseLong(word);
        } catch (NumberFormatException e) {
            return 0;
        }
    }

    private long totalTime() {
        return totalTimeOf(firstLine(new File(proc, "stat")));
    }

    private long[] timesOf(int[] pids) {
        long[] times = new long[pids.length];
        for (int i = 0; i < pids.length; ++i) {
            times[i] = timeOf(firstLine(new File(proc, pids[i] + "/stat")));
        }
        return times;
    }

    /** Empty for what is not to be read, as nothing is from Android 7 on. */
    private static String firstLine(File file) {
        try {
            BufferedReader reader = new BufferedReader(new FileReader(file));
            try {
                String line = reader.readLine();
                return line == null ? "" : line;
            } finally {
                reader.close();
            }
        } catch (IOException e) {
            return "";
        }
    }

    private static boolean pause() {
        try {
            Thread.sleep(PAUSE_MILLIS);
            return true;
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            return false;
        }
    }
}
