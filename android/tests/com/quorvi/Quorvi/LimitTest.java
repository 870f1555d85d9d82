package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;

import org.junit.Test;

import java.util.Arrays;
import java.util.Collections;

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
    public void fromAndroid10OnEveryLimitHolds() {
        assertEquals(Arrays.asList(Limit.values()), Limit.of(29));
    }
}
