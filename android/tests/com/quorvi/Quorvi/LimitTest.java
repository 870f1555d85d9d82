package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;

import android.content.pm.ProviderInfo;

import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.annotation.Config;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

public class LimitTest extends OnPhones {
    @Test
    public void theFirstPhonesKeepTheirGpsAlone() {
        assertEquals(Arrays.asList(Limit.GPS), Limit.of(16));
    }

    @Test
    public void android42KeepsItsAeroplaneModeAndItsDatesToo() {
        assertEquals(Arrays.asList(Limit.GPS, Limit.AIRPLANE, Limit.DATE_FORMAT), Limit.of(17));
    }

    @Test
    public void android44KeepsItsMessagesAndItsAlarmsToo() {
        assertEquals(
                Arrays.asList(
                        Limit.GPS,
                        Limit.AIRPLANE,
                        Limit.DATE_FORMAT,
                        Limit.MESSAGES,
                        Limit.ALARMS),
                Limit.of(19));
    }

    @Test
    @Config(sdk = 19)
    public void anOldPhoneWithoutItsOwnBrowserKeepsBookmarksToo() {
        List<Limit> all = new ArrayList<>(Limit.of(19));
        all.add(Limit.BOOKMARKS);
        assertEquals(all, Limit.ofThisPhone(phone()));
        ProviderInfo browser = new ProviderInfo();
        browser.packageName = "com.android.browser";
        browser.name = "BrowserProvider2";
        browser.authority = "browser";
        Shadows.shadowOf(phone().getPackageManager()).addOrUpdateProvider(browser);
        assertEquals(Limit.of(19), Limit.ofThisPhone(phone()));
    }

    @Test
    public void android6KeepsItsBookmarksAndItsCachesToo() {
        assertEquals(
                Arrays.asList(
                        Limit.GPS,
                        Limit.AIRPLANE,
                        Limit.DATE_FORMAT,
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
