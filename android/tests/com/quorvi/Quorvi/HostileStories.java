package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.app.ActivityManager;
import android.content.ContentProvider;
import android.content.ContentValues;
import android.content.pm.PackageInfo;
import android.database.Cursor;
import android.net.Uri;

import org.json.JSONArray;
import org.json.JSONObject;
import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.annotation.Config;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

/** A phone that holds what nobody would enter, that refuses, and that has nothing at all. */
public class HostileStories extends SuitePhone {
    private static final int MEGABYTE = 1000 * 1000;

    /** As the simulated phone's, and what that cannot hold: a character of two halves. */
    private static final String[] TEXTS = {
        "<script>document.title='owned'</script><b>bold",
        "</li></ul><img src=x onerror=alert(1)><a href='qvh:did=12'>qvh</a>",
        "%s%n%d %1$s",
        "zero \0 inside",
        "\u0001\u0002\u001b[31m\t\r\n\u007f",
        "../../../../etc/passwd\\..\\x",
        "\u202e右到左\u202c \u200b\ufeff",
        "😀 𠮷野家",
        "half \ud83d of one",
    };

    /** What a command line would take for more than an application's name. */
    private static final String[] NO_NAMES = {
        "-k",
        "com.example.chat; reboot",
        "com.example.chat com.android.mms",
        "$(reboot)",
        "com.example.chat\nreboot",
        "com.example.chat|reboot",
    };

    private static String megabyte() {
        char[] all = new char[MEGABYTE];
        Arrays.fill(all, 'x');
        return new String(all);
    }

    private void add(TableProvider provider, String... columnsAndTexts) {
        ContentValues row = new ContentValues();
        for (int i = 0; i < columnsAndTexts.length; i += 2) {
            row.put(columnsAndTexts[i], columnsAndTexts[i + 1]);
        }
        provider.database().insertOrThrow(TableProvider.TABLE, null, row);
    }

    private void addContact(int part, String text) {
        book.addContact(part);
        ContentValues name = new ContentValues();
        name.put("raw_contact_id", part);
        name.put("mimetype", "vnd.android.cursor.item/name");
        name.put("data1", text);
        book.database().insertOrThrow("data_rows", null, name);
    }

    private void addHostileContacts() {
        for (int i = 0; i < TEXTS.length; ++i) {
            addContact(10 + i, TEXTS[i]);
            // A picture that is none.
            book.addData(1000 + 10 * i, 10 + i, "photo", "data15", "x'00'");
        }
        book.addContact(30); // without a name, with a photo of no byte
        book.addData(2000, 30, "photo", "data15", "x''");
    }

    @Test
    public void hostileContactsAreListedShownAndBackedUp() throws Exception {
        addHostileContacts();
        JSONArray contacts = list("contacts", "list");
        assertEquals(3 + TEXTS.length + 1, contacts.length());
        for (int i = 0; i < contacts.length(); ++i) {
            show("contacts", "show", contacts.getJSONObject(i).getString("id"));
        }
        assertEquals("😀 𠮷野家", show("contacts", "show", "117").getString("name"));
        JSONObject made = show("backup", home.getRoot() + "/one.zip", "--only", "contacts");
        assertTrue(made.toString(), made.getBoolean("whole"));
    }

    @Test
    public void aNameOfAMegabyteIsListed() throws Exception {
        addContact(10, megabyte());
        JSONArray contacts = list("contacts", "list");
        assertEquals(4, contacts.length());
        the(contacts, "name", megabyte());
    }

    @Test
    public void aNameBeyondTheBasicPlaneIsSentFoundAndTakenAway() throws Exception {
        ask(
                "{\"name\": \"😀 𠮷野\", \"phones\": [{\"type\": 2, \"text\": \"110\"}]}",
                "contacts", "add");
        JSONObject added = the(list("contacts", "list"), "name", "😀 𠮷野");
        ask("", "contacts", "delete", added.getString("id"));
        assertEquals(3, list("contacts", "list").length());
    }

    @Test
    public void hostileMessagesCallsAndGroupsAreListed() throws Exception {
        for (int i = 0; i < TEXTS.length; ++i) {
            String id = Integer.toString(100 + i);
            add(messages, "thread_id", id, "address", TEXTS[i], "date", "-1", "body", TEXTS[i],
                    "type", "9");
            add(calls, "number", TEXTS[i], "date", "-1", "duration", "-1", "type", "77", "name",
                    TEXTS[i]);
            ContentValues group = new ContentValues();
            group.put("title", TEXTS[i]);
            group.put("account_name", TEXTS[i]);
            book.database().insertOrThrow("groups", null, group);
        }
        add(messages, "thread_id", "99", "address", "1", "date", "5", "body", megabyte(), "type", "1");
        assertEquals(2 + TEXTS.length + 1, list("sms", "list").length());
        assertEquals(megabyte(), list("sms", "show", "99").getJSONObject(0).getString("text"));
        assertEquals(5 + TEXTS.length, list("calls", "list").length());
        assertEquals(1 + TEXTS.length, list("groups", "list").length());
    }

    private void addHostileAlarmsAndBookmarks() {
        for (String text : TEXTS) {
            add(clock, "hour", "99", "minutes", "-5", "daysofweek", "-1", "enabled", "7", "vibrate",
                    "7", "message", text, "alarmtime", "-1", "alert", text);
            add(browser, "title", text, "url", text, "visits", "-1", "bookmark", "1");
        }
        browser.add("title, bookmark, favicon, thumbnail", "'pictures', 1, x'', x'89504E47'");
    }

    @Test
    public void hostileAlarmsAndBookmarksAreListed() throws Exception {
        addHostileAlarmsAndBookmarks();
        assertEquals(TEXTS.length, list("alarms", "list").length());
        JSONArray bookmarks = list("bookmarks", "list");
        assertEquals(1 + TEXTS.length + 1, bookmarks.length());
        assertEquals(4, the(bookmarks, "title", "pictures").getInt("thumbnail_bytes"));
    }

    @Test
    public void hostileRecordsAreBackedUpAndFoundAgain() throws Exception {
        addHostileContacts();
        addHostileAlarmsAndBookmarks();
        String backup = home.getRoot() + "/one.zip";
        assertTrue(show("backup", backup).getBoolean("whole"));
        assertTrue(show("verify", backup).getBoolean("whole"));
        JSONObject plan = show("restore", backup, "--dry-run");
        JSONObject counts = plan.getJSONObject("counts");
        // All but the one that has nothing to be found again by.
        assertEquals(
                plan.toString(),
                3 + TEXTS.length,
                counts.getJSONObject("contacts").getInt("there"));
        assertFalse(plan.toString(), counts.getJSONObject("contacts").has("added"));
        assertFalse(plan.toString(), counts.getJSONObject("alarms").has("added"));
        assertFalse(plan.toString(), counts.getJSONObject("bookmarks").has("added"));
    }

    @Test
    public void hostileProcessesAreListed() throws Exception {
        List<ActivityManager.RunningAppProcessInfo> all = new ArrayList<>();
        for (String text : TEXTS) {
            all.add(process(text, 1, "com.example.harm"));
            all.add(process("harm", 2, text));
        }
        ActivityManager.RunningAppProcessInfo numbers = process("numbers", -1);
        numbers.importance = -1;
        all.add(numbers);
        all.add(process(megabyte(), Integer.MAX_VALUE, megabyte()));
        run(all.toArray(new ActivityManager.RunningAppProcessInfo[0]));
        JSONArray processes = list("processes", "list");
        assertEquals(2 * TEXTS.length + 2, processes.length());
        the(processes, "name", megabyte());
        the(processes, "package", "😀 𠮷野家");
        assertEquals(0xFFFFFFFFL, the(processes, "name", "numbers").getLong("pid"));
        assertEquals(0, statusOf("", "processes", "list"));
    }

    @Test
    public void hostileApplicationsAreListedAndNotStarted() throws Exception {
        int delivered = list("apps", "list").length();
        for (int i = 0; i < TEXTS.length; ++i) {
            installApplication("com.example.harm.n" + i, TEXTS[i]);
            installApplication(TEXTS[i], "harm");
            PackageInfo version = application("com.example.version.n" + i, "harm");
            version.versionName = TEXTS[i];
            packages().installPackage(version);
        }
        for (String name : NO_NAMES) {
            installApplication(name, "harm");
        }
        installApplication("com.example.megabyte", megabyte());
        JSONArray applications = list("apps", "list");
        assertEquals(
                delivered + 3 * TEXTS.length + NO_NAMES.length + 1, applications.length());
        the(applications, "package", "com.example.chat; reboot");
        the(applications, "version", "😀 𠮷野家");
        // Some Androids cut it themselves.
        String name = the(applications, "package", "com.example.megabyte").getString("name");
        assertTrue(name.length() + " letters", name.matches("x{1000,}"));
        assertEquals(0, statusOf("", "apps", "list"));
        assertEquals(1, statusOf("", "apps", "run", "$(reboot)"));
        assertNull(Shadows.shadowOf(phone()).getNextStartedActivity());
    }

    @Config(sdk = 19)
    @Test
    public void hostileCachesAreListed() throws Exception {
        for (int i = 0; i < TEXTS.length; ++i) {
            installWithCache("com.example.harm.n" + i, TEXTS[i], 1, 0);
            installWithCache(TEXTS[i], "harm", 1, 0);
        }
        installWithCache("com.example.numbers", "numbers", Long.MAX_VALUE, 0);
        installWithCache("com.example.memory", "memory", 1L << 32, 1);
        installWithCache("com.example.less", "less than nothing", -1, 0);
        JSONArray items = list("cleaner", "scan");
        assertEquals(3 + 2 * TEXTS.length + 2, items.length());
        the(items, "name", "<script>document.title='owned'</script><b>bold");
        the(items, "description", "../../../../etc/passwd\\..\\x");
        assertEquals("com.example.numbers", items.getJSONObject(3).getString("description"));
        assertEquals(0, statusOf("", "cleaner", "scan"));
    }

    /** Neither refuses nor answers, as databases of some makers. */
    private static final class Silent extends ReadOnlyProvider {
        @Override
        public Cursor query(
                Uri uri, String[] columns, String where, String[] values, String order) {
            return null;
        }
    }

    private interface Provided {
        ContentProvider make();
    }

    /** Every list is empty, every change is done without anything, nothing is an error. */
    private void nothingIsThere(Provided provided) throws Exception {
        for (String authority :
                new String[] {
                    "com.android.contacts", "sms", "call_log", "com.android.deskclock", "browser",
                    "media"
                }) {
            install(authority, provided.make());
        }
        for (String kind :
                new String[] {"contacts", "groups", "sms", "calls", "alarms", "bookmarks"}) {
            assertEquals(kind, "[]", ask("", kind, "list").replaceAll("\\s", ""));
        }
        ask("{\"name\": \"无\", \"phones\": [{\"type\": 2, \"text\": \"110\"}]}", "contacts", "add");
        ask("", "contacts", "delete", "101", "--force");
        ask("", "groups", "add", "无");
        ask("", "calls", "clear", "--force");
        ask("", "sms", "delete", "12", "--force");
        ask("", "sms", "send", "--to", "110", "--text", "无");
        assertEquals(19, list("info").length());
    }

    @Test
    public void aPhoneThatRefusesItsDatabasesHasNothing() throws Exception {
        nothingIsThere(RefusingProvider::new);
    }

    @Test
    public void aPhoneWhoseDatabasesDoNotAnswerHasNothing() throws Exception {
        nothingIsThere(Silent::new);
    }
}
