package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import android.content.pm.ApplicationInfo;
import android.content.pm.PackageInfo;
import android.os.Build;
import android.os.Looper;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Test;
import org.robolectric.Shadows;

import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.concurrent.FutureTask;

@SuppressWarnings("deprecation")
public class CleanCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);

    /** A phone whose caches are open, or shut, with caches of these sizes. */
    private static final class TheCaches extends Caches {
        final Map<String, Long> sizes = new LinkedHashMap<>();
        boolean areOpen = true;
        int emptied;

        TheCaches() {
            super(phone().getPackageManager());
        }

        @Override
        boolean areOpen() {
            return areOpen;
        }

        @Override
        Map<String, Long> sizes() {
            return sizes;
        }

        @Override
        void empty() {
            ++emptied;
        }
    }

    private final TheCaches caches = new TheCaches();

    private static PackageInfo application(String name, String label) {
        PackageInfo application = new PackageInfo();
        application.packageName = name;
        application.applicationInfo = new ApplicationInfo();
        application.applicationInfo.packageName = name;
        application.applicationInfo.nonLocalizedLabel = label;
        application.applicationInfo.flags = ApplicationInfo.FLAG_INSTALLED;
        return application;
    }

    private static void install(String name, String label) {
        Shadows.shadowOf(phone().getPackageManager()).installPackage(application(name, label));
    }

    private byte[] scan() throws Exception {
        return ask(Bytes.u32(AgentCommand.SCAN_FOR_CLEANING.code));
    }

    @Test
    public void listsTheLargestFirst() throws Exception {
        install("com.example.bus", "公交");
        install("com.example.chat", "聊天");
        caches.sizes.put("com.example.bus", 24L);
        caches.sizes.put("com.example.chat", 5L << 32);
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(5L << 32), // bytes
                        Bytes.text("聊天"), // name
                        Bytes.text("com.example.chat"), // package
                        Bytes.u64(0), // no icon
                        Bytes.u64(24),
                        Bytes.text("公交"),
                        Bytes.text("com.example.bus"),
                        Bytes.u64(0)),
                scan());
    }

    @Test
    public void aCacheWhoseApplicationIsGoneIsNotListed() throws Exception {
        caches.sizes.put("com.example.gone", 24L);
        assertArrayEquals(NO_DATA, scan());
    }

    @Test
    public void aPhoneThatShutsItsCachesHasNoData() throws Exception {
        install("com.example.bus", "公交");
        caches.sizes.put("com.example.bus", 24L);
        caches.areOpen = false;
        assertArrayEquals(NO_DATA, scan());
    }

    /** Browser searches, browser history, market searches; then packages. */
    private byte[] clean(int searches, int history, int market, String... packages)
            throws Exception {
        byte[] names = {};
        for (String name : packages) {
            names = Bytes.of(names, Bytes.text(name));
        }
        return ask(Bytes.frame(
                AgentCommand.CLEAN, packages.length, searches, history, market, names));
    }

    @Test
    public void emptiesTheCachesWhenEachIsNamed() throws Exception {
        caches.sizes.put("com.example.bus", 24L);
        caches.sizes.put("com.example.chat", 25L);
        assertArrayEquals(
                DONE, clean(0, 0, 0, "com.example.chat", "com.example.bus", "com.example.gone"));
        assertEquals(1, caches.emptied);
    }

    @Test
    public void leavesTheCachesWhenOneIsToStay() throws Exception {
        caches.sizes.put("com.example.bus", 24L);
        caches.sizes.put("com.example.chat", 25L);
        assertArrayEquals(DONE, clean(0, 0, 0, "com.example.chat"));
        assertEquals(0, caches.emptied);
    }

    @Test
    public void aPhoneThatShutsItsCachesEmptiesNone() throws Exception {
        caches.areOpen = false;
        assertArrayEquals(DONE, clean(0, 0, 0, "com.example.chat"));
        assertEquals(0, caches.emptied);
    }

    @Test
    public void aRequestThatNamesNothingIsDone() throws Exception {
        TableProvider browser = filledBrowser();
        assertArrayEquals(
                DONE,
                ask(Bytes.of(
                        0x00, 0x0D, 0x4C, 0xB2, // 871602
                        0x00, 0x00, 0x00, 0x0F, // total
                        0x00, 0x00, 0x00, 0x00, // count of names
                        0x00, 0x00, 0x00))); // searches, history, market
        assertEquals(0, caches.emptied);
        assertEquals(2, browser.count());
    }

    /** A bookmark that was visited, and an address that was. */
    private static TableProvider filledBrowser() {
        TableProvider browser = BookmarkCommandsTest.browser();
        browser.add("url, visits, date, bookmark", "'http://a.example/', 7, 1308524700000, 1");
        browser.add("url, visits, date, bookmark", "'http://b.example/', 7, 1308524700000, 0");
        return browser;
    }

    @Test
    public void forgetsTheHistoryAndKeepsTheBookmarks() throws Exception {
        TableProvider browser = filledBrowser();
        assertArrayEquals(DONE, clean(0, 1, 0));
        assertEquals(
                "http://a.example/ 0 0",
                browser.value("SELECT group_concat(url || ' ' || visits || ' ' || date) FROM rows"));
    }

    @Test
    public void forgetsWhatWasSearchedInTheMarket() throws Exception {
        TableProvider market = new TableProvider("query TEXT");
        install("com.android.vending.SuggestionsProvider", market);
        market.add("query", "'五子棋'");
        TableProvider browser = filledBrowser();
        assertArrayEquals(DONE, clean(0, 0, 1));
        assertEquals(0, market.count());
        assertEquals(2, browser.count());
    }

    @Test
    public void forgetsWhatWasSearchedInTheBrowser() throws Exception {
        // The browser's one provider has its searches in a table of their own.
        TableProvider searches = new TableProvider("search TEXT, bookmark INTEGER");
        install("browser", searches);
        searches.add("search", "'无锡 天气'");
        assertArrayEquals(DONE, clean(1, 0, 0));
        assertEquals(0, searches.count());
    }

    @Test
    public void aPhoneWithoutBrowserAndMarketIsDone() throws Exception {
        assertArrayEquals(DONE, clean(1, 1, 1));
    }

    @Test
    public void aBrokenRequestCleansNothing() throws Exception {
        TableProvider browser = filledBrowser();
        caches.sizes.put("com.example.bus", 24L);
        assertThrows(MalformedRequest.class, () -> clean(1, 2, 1, "com.example.bus"));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(
                        AgentCommand.CLEAN, 2, 1, 1, 1, Bytes.text("com.example.bus"))));
        assertEquals(0, caches.emptied);
        assertEquals(2, browser.count());
    }

    @Test
    public void measuresWhatThePhoneTells() throws Exception {
        Caches real = new Caches(phone().getPackageManager());
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.M) {
            assertEquals(false, real.areOpen());
            return;
        }
        measured("com.example.bus", 20, 4);
        measured("com.example.chat", 0, 0);
        FutureTask<Map<String, Long>> sizes = new FutureTask<>(real::sizes);
        new Thread(sizes).start();
        while (!sizes.isDone()) {
            Shadows.shadowOf(Looper.getMainLooper()).idle();
            Thread.yield();
        }
        assertEquals(Collections.singletonMap("com.example.bus", 24L), sizes.get());
    }

    private static void measured(String name, long bytes, long onTheCard) {
        android.content.pm.PackageStats stats = new android.content.pm.PackageStats(name);
        stats.cacheSize = bytes;
        stats.externalCacheSize = onTheCard;
        Shadows.shadowOf(phone().getPackageManager())
                .addPackage(application(name, name), stats);
    }

    private byte[] ask(byte[] request) throws Exception {
        return ask(new CleanCommands(phone(), caches), request);
    }
}
