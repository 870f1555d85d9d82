package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import org.junit.Test;

import java.io.File;

public class CpuSharesTest {
    @Test
    public void countsAllThatTheProcessorsDid() {
        // user, nice, system, idle, iowait, irq, softirq
        assertEquals(28, CpuShares.totalTimeOf("cpu  1 2 3 4 5 6 7"));
    }

    @Test
    public void aCounterThatIsNotShownIsZero() {
        assertEquals(0, CpuShares.totalTimeOf(""));
        assertEquals(0, CpuShares.totalTimeOf("cpu0 1 2 3"));
        assertEquals(0, CpuShares.timeOf(""));
        assertEquals(0, CpuShares.timeOf("12 (short) S 1"));
    }

    @Test
    public void readsAProcessWhoseNameHasBlanksAndBrackets() {
        assertEquals(
                30,
                CpuShares.timeOf(
                        "4711 (a ) b (c) S 1 2 3 4 5 6 7 8 9 10 " // state to major faults of children
                                + "10 20 " // user, system
                                + "0 0 20 0"));
    }

    @Test
    public void aShareIsWhatWasHadOfWhatPassed() {
        assertEquals(25, CpuShares.share(100, 150, 200));
        assertEquals(0, CpuShares.share(150, 100, 200));
        assertEquals(0, CpuShares.share(100, 150, 0));
        assertEquals(100, CpuShares.share(100, 500, 200));
    }

    @Test
    public void ofAPhoneThatShowsNothingEverythingIsZero() {
        assertArrayEquals(new int[] {0, 0}, new CpuShares(new File("/none")).of(new int[] {1, 2}));
    }
}
