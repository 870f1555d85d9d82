package com.quorvi.Quorvi;

import android.os.Build;
import android.provider.Settings;

import org.junit.Before;
import org.robolectric.util.ReflectionHelpers;

/** The phone of the stories: three contacts, two conversations, five calls, a bookmark, no alarm. */
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
}
