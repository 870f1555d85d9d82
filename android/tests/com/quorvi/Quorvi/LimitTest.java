package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;

import org.junit.Test;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

public class LimitTest {
    @Test
    public void theFirstPhonesAllowEverything() {
        assertEquals(Collections.emptyList(), Limit.of(16));
    }

    @Test
    public void android44KeepsItsMessagesItsAlarmsAndItsSwitches() {
        assertEquals(Arrays.asList(Limit.SWITCHES, Limit.MESSAGES, Limit.ALARMS), Limit.of(19));
    }

    @Test
    public void android6KeepsItsBookmarksAndItsCachesToo() {
        assertEquals(
                Arrays.asList(
                        Limit.SWITCHES,
                        Limit.MESSAGES,
                        Limit.ALARMS,
                        Limit.PROCESSES,
                        Limit.BOOKMARKS,
                        Limit.CACHES),
                Limit.of(23));
    }

    @Test
    public void android10KeepsAllButTheEndOfWhatRuns() {
        List<Limit> all = new ArrayList<>(Arrays.asList(Limit.values()));
        all.remove(Limit.ENDING);
        assertEquals(all, Limit.of(29));
        assertEquals(all, Limit.of(33));
    }

    @Test
    public void fromAndroid14OnEveryLimitHolds() {
        assertEquals(Arrays.asList(Limit.values()), Limit.of(34));
    }
}
