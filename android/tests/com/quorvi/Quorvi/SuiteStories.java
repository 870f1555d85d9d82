package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.app.ActivityManager;
import android.content.ComponentName;
import android.content.Intent;
import android.content.IntentFilter;
import android.content.pm.PackageInfo;
import android.os.Build;
import android.provider.Settings;
import android.telephony.SmsManager;

import org.json.JSONArray;
import org.json.JSONObject;
import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.annotation.Config;

import java.io.File;
import java.nio.file.Files;

/**
 * A user's stories with every command, from the command line to the agent and back: the same that are
 * told with the simulated phone.
 */
@SuppressWarnings("deprecation")
public class SuiteStories extends SuitePhone {
    @Test
    public void theStateOfThePhoneHasNineteenRows() throws Exception {
        JSONArray rows = list("info");
        assertEquals(19, rows.length());
        assertEquals("Aurora S2", rows.getJSONObject(0).getString("text"));
        assertEquals(
                "Android " + Build.VERSION.RELEASE, rows.getJSONObject(2).getString("text"));
    }

    @Test
    public void aContactIsAddedChangedReadBackAndDeleted() throws Exception {
        ask(
                "{\"name\": \"新朋友\", \"favourite\": true, \"nickname\": \"小新\", \"note\": \"同城\","
                        + " \"phones\": [{\"type\": 2, \"text\": \"13861234500\"}],"
                        + " \"email\": {\"type\": 1, \"text\": \"new@example.com\"}}",
                "contacts", "add");
        JSONObject added = the(list("contacts", "list"), "name", "新朋友");
        assertEquals("13861234500", added.getString("number"));
        String id = added.getString("id");

        ask(
                "{\"name\": \"老朋友\", \"nickname\": \"\","
                        + " \"phones\": [{\"type\": 3, \"text\": \"13861234501\"},"
                        + " {\"type\": 1, \"text\": \"051988880000\"}]}",
                "contacts", "update", id);
        JSONObject shown = show("contacts", "show", id);
        assertEquals("老朋友", shown.getString("name"));
        assertEquals(2, shown.getJSONArray("phones").length());
        assertEquals(
                "13861234501",
                shown.getJSONArray("phones").getJSONObject(0).getString("text"));

        ask("", "contacts", "delete", id);
        assertNull(pick(list("contacts", "list"), "name", "老朋友"));
    }

    @Test
    public void anUpdateKeepsWhatTheEditorDoesNotShow() throws Exception {
        for (int i = 0; i < 4; ++i) {
            book.addData(50 + i, 1, "phone_v2", "data1, data2", "'05718812345" + i + "', 1");
        }
        book.addData(55, 1, "contact_event", "data1", "'1990-01-01'"); // not told to the PC at all
        JSONObject before = show("contacts", "show", "101");
        assertEquals(5, before.getJSONArray("phones").length());
        ask(
                "{\"name\": \"沈一鸣\", \"phones\": [{\"type\": 2, \"text\": \"13758880002\"}]}",
                "contacts", "update", "101");
        JSONObject after = show("contacts", "show", "101");
        assertEquals("沈一鸣", after.getString("name"));
        assertEquals(
                2, the(after.getJSONArray("phones"), "text", "13758880002").getInt("type"));
        the(after.getJSONArray("phones"), "text", "057188123453");
        assertEquals(before.get("groups").toString(), after.get("groups").toString());
        assertEquals(
                "1", book.value("SELECT COUNT(*) FROM data_rows WHERE data1 = '1990-01-01'"));
    }

    @Test
    public void everyContactIsListedWithItsPhoto() throws Exception {
        JSONArray contacts = list("contacts", "list");
        assertEquals(3, contacts.length());
        assertEquals(3, contacts.getJSONObject(0).getInt("photo_bytes"));
        assertEquals("N/A", contacts.getJSONObject(0).getString("last_contact"));
    }

    @Test
    public void aGroupIsAddedRenamedAndDeleted() throws Exception {
        ask("", "groups", "add", "新组");
        JSONObject added = the(list("groups", "list"), "title", "新组");
        assertEquals("手机", added.getString("account"));
        ask("", "groups", "rename", added.getString("id"), "旧组");
        the(list("groups", "list"), "title", "旧组");
        ask("", "groups", "delete", added.getString("id"), "4");
        JSONArray groups = list("groups", "list");
        assertNull(pick(groups, "title", "旧组"));
        assertNull(pick(groups, "title", "徒步小队"));
        // Its members stay as contacts.
        assertEquals(3, list("contacts", "list").length());
    }

    @Test
    public void aMessageToTwoIsSentToBoth() throws Exception {
        ask("", "sms", "send", "--to", "13861234567,13900000000", "--text", "七点见");
        assertEquals(
                "13900000000",
                Shadows.shadowOf(SmsManager.getDefault())
                        .getLastSentMultipartTextMessageParams()
                        .getDestinationAddress());
        if (Build.VERSION.SDK_INT < Build.VERSION_CODES.KITKAT) {
            the(list("sms", "list"), "number", "13900000000");
        }
    }

    @Test
    public void aConversationIsReadAndDeleted() throws Exception {
        JSONObject bank = the(list("sms", "list"), "number", "95588");
        assertEquals("余额", bank.getString("text"));
        JSONArray read = list("sms", "show", bank.getString("id"));
        assertTrue(read.getJSONObject(0).getBoolean("incoming"));
        ask("", "sms", "delete", bank.getString("id"));
        assertNull(pick(list("sms", "list"), "number", "95588"));
        assertEquals(1, list("sms", "list").length());
    }

    @Test
    public void aConversationWhoseIdHasMoreThan31BitsIsReadAndDeleted() throws Exception {
        messages.add("thread_id, address, date, body, type", "4294967293, '106', 9, '通知', 1");
        String id = the(list("sms", "list"), "number", "106").getString("id");
        assertEquals("通知", list("sms", "show", id).getJSONObject(0).getString("text"));
        ask("", "sms", "delete", id);
        assertNull(pick(list("sms", "list"), "number", "106"));
        assertEquals(2, list("sms", "list").length());
    }

    @Test
    public void callsAreDeletedOneByOneAndAll() throws Exception {
        JSONArray all = list("calls", "list");
        assertEquals(5, all.length());
        ask(
                "",
                "calls",
                "delete",
                all.getJSONObject(0).getString("id"),
                all.getJSONObject(2).getString("id"));
        assertEquals(3, list("calls", "list").length());
        ask("", "calls", "clear");
        assertEquals(0, list("calls", "list").length());
    }

    @Test
    public void anAlarmIsAddedChangedReadBackAndDeleted() throws Exception {
        ask(
                "{\"label\": \"赶飞机\", \"hour\": 4, \"minute\": 20, \"enabled\": true}",
                "alarms", "add");
        JSONObject added = the(list("alarms", "list"), "label", "赶飞机");
        assertEquals("04:20", added.getString("time"));
        assertEquals("无重复", added.getString("repeat"));
        assertEquals("默认铃声 (晨光)", added.getString("tone"));
        assertTrue(added.getBoolean("enabled"));
        String id = added.getString("id");

        ask(
                "{\"label\": \"晨跑\", \"hour\": 5, \"days\": 127, \"vibrate\": true}",
                "alarms", "update", id);
        JSONObject changed = the(list("alarms", "list"), "label", "晨跑");
        assertEquals(id, changed.getString("id"));
        assertEquals("05:00", changed.getString("time"));
        assertEquals("每天", changed.getString("repeat"));
        assertTrue(changed.getBoolean("vibrate"));

        ask("", "alarms", "delete", id, "99");
        assertEquals(0, list("alarms", "list").length());
    }

    @Test
    public void aBookmarkIsAddedChangedReadBackAndDeleted() throws Exception {
        ask(
                "{\"title\": \"菜谱\", \"url\": \"http://cook.example/\", \"visits\": 2}",
                "bookmarks", "add");
        JSONObject added = the(list("bookmarks", "list"), "title", "菜谱");
        assertEquals("http://cook.example/", added.getString("url"));
        assertEquals(2, added.getInt("visits"));
        assertEquals("从未", added.getString("last_visit"));
        assertEquals(0, added.getInt("thumbnail_bytes"));
        String id = added.getString("id");

        ask(
                "{\"title\": \"家常菜\", \"url\": \"http://home.example/\"}",
                "bookmarks", "update", id);
        JSONObject changed = the(list("bookmarks", "list"), "title", "家常菜");
        assertEquals(id, changed.getString("id"));
        assertEquals("http://home.example/", changed.getString("url"));
        assertEquals(0, changed.getInt("visits"));

        ask("", "bookmarks", "delete", id, "1");
        assertEquals(0, list("bookmarks", "list").length());
    }

    @Test
    public void aFolderIsListed() throws Exception {
        File folder = home.newFolder("照片");
        Files.write(new File(folder, "a.jpg").toPath(), new byte[1234]);
        JSONObject listed = show("files", "list", folder.getPath());
        assertEquals(home.getRoot().getPath(), listed.getString("parent"));
        JSONObject file = listed.getJSONArray("entries").getJSONObject(0);
        assertEquals(folder.getPath() + "/a.jpg", file.getString("path"));
        assertEquals(1234, file.getInt("size"));
        assertFalse(file.getBoolean("folder"));
    }

    @Test
    public void theRootIsListed() throws Exception {
        JSONObject root = show("files", "list");
        assertEquals("/", root.getString("parent"));
        the(root.getJSONArray("entries"), "path", "/tmp");
    }

    @Test
    public void aSettingIsWrittenAndReadBack() throws Exception {
        ask("", "settings", "write", "backlight", "60000");
        ask("", "settings", "write", "music_volume", "9");
        ask("", "settings", "write", "gravity", "1");
        String settings = ask("", "settings", "read");
        assertTrue(settings, settings.contains("60000"));
        assertTrue(settings, settings.contains("9"));
        assertEquals(
                1,
                Settings.System.getInt(
                        phone().getContentResolver(), "accelerometer_rotation", -1));
    }

    @Test
    public void anApplicationIsListedAndStarted() throws Exception {
        installApplication("com.example.notes", "便签");
        ComponentName start = new ComponentName("com.example.notes", "com.example.notes.Start");
        IntentFilter launcher = new IntentFilter(Intent.ACTION_MAIN);
        launcher.addCategory(Intent.CATEGORY_LAUNCHER);
        packages().addActivityIfNotPresent(start);
        packages().addIntentFilterForActivity(start, launcher);
        JSONObject notes = the(list("apps", "list"), "package", "com.example.notes");
        assertEquals("便签", notes.getString("name"));
        ask("", "apps", "run", "com.example.notes");
        assertEquals(
                "com.example.notes",
                Shadows.shadowOf(phone())
                        .getNextStartedActivity()
                        .getComponent()
                        .getPackageName());
    }

    @Test
    public void anApplicationThatIsNotThereStartsNothing() throws Exception {
        ask("", "apps", "run", "com.example.gone");
        assertNull(Shadows.shadowOf(phone()).getNextStartedActivity());
    }

    @Test
    public void whatStartsWhenThePhoneStartsIsListed() throws Exception {
        installApplication("com.example.bus", "公交");
        ComponentName receiver = new ComponentName("com.example.bus", "com.example.bus.Start");
        packages().addReceiverIfNotPresent(receiver);
        packages().addIntentFilterForReceiver(
                receiver, new IntentFilter(Intent.ACTION_BOOT_COMPLETED));
        JSONObject started = list("autostart", "list").getJSONObject(0);
        assertEquals("系统启动后", started.getString("caption"));
        assertEquals(
                "公交",
                started.getJSONArray("applications").getJSONObject(0).getString("name"));
    }

    @Test
    public void aProcessIsListedAndEnded() throws Exception {
        run(process("com.example.chat", 4711, "com.example.chat"));
        assertEquals(4711, the(list("processes", "list"), "package", "com.example.chat").getInt("pid"));
        ask("", "processes", "end", "com.example.chat");
        assertEquals(
                Build.VERSION.SDK_INT < Build.VERSION_CODES.UPSIDE_DOWN_CAKE
                        ? "com.example.chat"
                        : null,
                activities().getBackgroundPackage());
    }

    @Test
    public void theFreeMemoryIsTold() throws Exception {
        ActivityManager.MemoryInfo memory = new ActivityManager.MemoryInfo();
        memory.availMem = 123456789;
        activities().setMemoryInfo(memory);
        assertEquals(123456789, show("processes", "memory").getInt("free"));
    }

    @Test
    public void theCleanersFixedItemsStandWithoutAnyCacheAndTheHistoryIsForgotten()
            throws Exception {
        assertEquals(3, list("cleaner", "scan").length());
        ask("", "cleaner", "clean", "--browser-history");
        assertEquals("0", browser.value("SELECT visits FROM rows"));
    }

    /** The phone empties all caches or none; later ones let nobody at them. */
    @Config(sdk = 19, shadows = EmptyingPhone.class)
    @Test
    public void cachesThatAreAllChosenAreEmptied() throws Exception {
        installWithCache("com.example.bus", "公交", 1024, 512);
        installWithCache("com.example.chat", "聊天", 39 * 1024 * 1024, 0);
        installWithCache("com.example.notes", "便签", 0, 0);
        JSONArray items = list("cleaner", "scan");
        assertEquals(5, items.length());
        assertEquals("聊天", items.getJSONObject(3).getString("name"));
        assertEquals("39.0 MB", items.getJSONObject(3).getString("size"));
        assertEquals("1.50 KB", items.getJSONObject(4).getString("size"));
        ask("", "cleaner", "clean", "com.example.chat");
        assertEquals(5, list("cleaner", "scan").length());
        ask("", "cleaner", "clean", "com.example.chat", "com.example.bus");
        assertEquals(3, list("cleaner", "scan").length());
    }

    @Test
    public void aPhoneWithoutApplicationsGivesAnEmptyList() throws Exception {
        for (PackageInfo one : phone().getPackageManager().getInstalledPackages(0)) {
            if (!one.packageName.equals(phone().getPackageName())) {
                packages().removePackage(one.packageName);
            }
        }
        assertEquals(0, list("apps", "list").length());
    }
}
