package com.quorvi.Quorvi;

import android.app.ActivityManager;
import android.content.Context;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageInfo;
import android.os.Build;
import android.provider.Settings;

import org.junit.Before;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowActivityManager;
import org.robolectric.shadows.ShadowPackageManager;
import org.robolectric.util.ReflectionHelpers;

import java.util.Arrays;

/** The phone of the stories: three contacts, two conversations, five calls, a bookmark, no alarm. */
@SuppressWarnings("deprecation")
public abstract class SuitePhone extends SuiteOnAgent {
    final ContactsProvider book = new ContactsProvider();
    final MessageCommandsTest.Messages messages = new MessageCommandsTest.Messages();
    final TableProvider calls =
            new TableProvider("number TEXT, date INTEGER, duration INTEGER, type INTEGER, name TEXT");
    final TableProvider clock =
            new TableProvider(
                    "hour INTEGER, minutes INTEGER, daysofweek INTEGER, alarmtime INTEGER,"
                            + " enabled INTEGER, vibrate INTEGER, message TEXT, alert TEXT");
    final TableProvider media = new TableProvider("title TEXT");
    TableProvider browser;

    @Before
    public void fill() {
        ReflectionHelpers.setStaticField(Build.class, "MANUFACTURER", "Aurora");
        ReflectionHelpers.setStaticField(Build.class, "MODEL", "S2");
        install("com.android.contacts", book);
        for (int i = 1; i <= 3; ++i) {
            book.addContact(i);
            book.addData(10 * i, i, "name", "data1", "'联系人 " + i + "'");
            book.addData(10 * i + 1, i, "phone_v2", "data1, data2", "'1386123450" + i + "', 2");
            book.addData(10 * i + 2, i, "photo", "data15", "x'FFD8FF'");
        }
        book.database().execSQL("INSERT INTO groups(_id, title) VALUES (4, '徒步小队')");
        book.addData(41, 1, "group_membership", "data1", "4");
        install("sms", messages);
        messages.add("thread_id, address, date, body, type", "12, '95588', 1000, '余额', 1");
        messages.add("thread_id, address, date, body, type", "13, '10086', 2000, '话费', 1");
        install("call_log", calls);
        for (int i = 1; i <= 5; ++i) {
            calls.add("number, date, duration, type", "'1386123450" + i + "', " + i + ", 60, 1");
        }
        install("com.android.deskclock", clock);
        install("media", media);
        media.add("title", "'晨光'");
        Settings.System.putString(
                phone().getContentResolver(),
                "alarm_alert",
                "content://media/internal/audio/media/1");
        browser = BookmarkCommandsTest.browser();
        browser.add("title, url, visits, bookmark", "'天气', 'http://weather.example/', 7, 1");
    }

    static ShadowPackageManager packages() {
        return Shadows.shadowOf(phone().getPackageManager());
    }

    static PackageInfo application(String name, String label) {
        PackageInfo info = new PackageInfo();
        info.packageName = name;
        info.versionName = "1.0";
        info.applicationInfo = new ApplicationInfo();
        info.applicationInfo.packageName = name;
        info.applicationInfo.nonLocalizedLabel = label;
        info.applicationInfo.flags = ApplicationInfo.FLAG_INSTALLED;
        return info;
    }

    static void installApplication(String name, String label) {
        packages().installPackage(application(name, label));
    }

    /** An application whose cache is that large in the phone's memory, and on its card. */
    static void installWithCache(String name, String label, long bytes, long onTheCard) {
        android.content.pm.PackageStats stats = new android.content.pm.PackageStats(name);
        stats.cacheSize = bytes;
        stats.externalCacheSize = onTheCard;
        packages().addPackage(application(name, label), stats);
    }

    static ShadowActivityManager activities() {
        return Shadows.shadowOf(
                (ActivityManager) phone().getSystemService(Context.ACTIVITY_SERVICE));
    }

    static void run(ActivityManager.RunningAppProcessInfo... processes) {
        activities().setProcesses(Arrays.asList(processes));
    }

    /** A service in the background. */
    static ActivityManager.RunningAppProcessInfo process(String name, int pid, String... packages) {
        ActivityManager.RunningAppProcessInfo process =
                new ActivityManager.RunningAppProcessInfo(name, pid, packages);
        process.importance = ActivityManager.RunningAppProcessInfo.IMPORTANCE_SERVICE;
        return process;
    }
}
