package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import org.json.JSONArray;
import org.json.JSONObject;
import org.junit.Test;

import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;

/**
 * Files and backups of what the agent tells, and their way back to it: the same that are told with the
 * simulated phone.
 */
public class TransferStories extends SuitePhone {
    private String file(String name) {
        return new File(home.getRoot(), name).getPath();
    }

    private String text(String name) throws Exception {
        return new String(Files.readAllBytes(new File(file(name)).toPath()), StandardCharsets.UTF_8);
    }

    private void deleteAll(String kind) throws Exception {
        List<String> arguments = new ArrayList<>(Arrays.asList(kind, "delete"));
        JSONArray all = list(kind, "list");
        for (int i = 0; i < all.length(); ++i) {
            arguments.add(all.getJSONObject(i).getString("id"));
        }
        ask("", arguments.toArray(new String[0]));
        assertEquals(0, list(kind, "list").length());
    }

    private void emptyThePhone() throws Exception {
        book.database().execSQL("UPDATE raw_contacts SET deleted = 1");
        book.database().execSQL("UPDATE groups SET deleted = 1");
        for (TableProvider table : new TableProvider[] {messages, calls, clock, browser}) {
            table.database().execSQL("DELETE FROM " + TableProvider.TABLE);
        }
        assertEquals(0, list("contacts", "list").length());
    }

    private void addAnAlarm() throws Exception {
        ask("{\"label\": \"起床\", \"hour\": 6, \"minute\": 40, \"enabled\": true}", "alarms", "add");
    }

    @Test
    public void contactsComeBackToAnEmptiedPhone() throws Exception {
        assertEquals(3, show("export", "contacts", file("a.vcf")).getInt("exported"));
        deleteAll("contacts");
        JSONObject planned = show("import", "contacts", file("a.vcf"), "--dry-run");
        assertEquals(3, planned.getInt("added"));
        assertEquals(0, list("contacts", "list").length());

        assertEquals(3, show("import", "contacts", file("a.vcf")).getInt("added"));
        JSONArray back = list("contacts", "list");
        assertEquals(3, back.length());
        assertEquals("13861234502", the(back, "name", "联系人 2").getString("number"));
    }

    @Test
    public void importingToThePhoneThatContactsCameFromChangesNothing() throws Exception {
        String before = list("contacts", "list").toString();
        for (String name : new String[] {"a.vcf", "a.csv"}) {
            show("export", "contacts", file(name));
            JSONObject imported = show("import", "contacts", file(name));
            assertEquals(name, 0, imported.getInt("added"));
            assertEquals(name, 3, imported.getInt("there"));
        }
        assertEquals(before, list("contacts", "list").toString());
    }

    @Test
    public void bookmarksComeBackToAnEmptiedPhone() throws Exception {
        assertEquals(1, show("export", "bookmarks", file("a.html")).getInt("exported"));
        deleteAll("bookmarks");
        assertEquals(1, show("import", "bookmarks", file("a.html")).getInt("added"));
        assertEquals(0, show("import", "bookmarks", file("a.html")).getInt("added"));
        assertEquals(
                "http://weather.example/",
                the(list("bookmarks", "list"), "title", "天气").getString("url"));
    }

    @Test
    public void messagesAndCallsGoIntoEachFormat() throws Exception {
        for (String name : new String[] {"m.txt", "m.csv", "m.html", "m.json"}) {
            assertEquals(name, 2, show("export", "messages", file(name)).getInt("exported"));
            assertTrue(name, text(name).contains("余额"));
        }
        JSONObject one = show("export", "messages", file("one.json"), "--conversation", "13");
        assertEquals(1, one.getInt("exported"));
        assertFalse(text("one.json").contains("余额"));
        assertEquals(5, show("export", "calls", file("c.csv")).getInt("exported"));
        assertEquals(5, show("export", "calls", file("c.json")).getInt("exported"));
    }

    @Test
    public void aBackupHoldsAllThatThePhoneHas() throws Exception {
        addAnAlarm();
        JSONObject made = show("backup", file("one"));
        assertTrue(made.toString(), made.getBoolean("whole"));
        assertEquals(0, made.getInt("skipped_count"));
        JSONObject counts = made.getJSONObject("counts");
        assertEquals(3, counts.getInt("contacts"));
        assertEquals(1, counts.getInt("groups"));
        assertEquals(1, counts.getInt("alarms"));
        assertEquals(1, counts.getInt("bookmarks"));
        assertEquals(5, counts.getInt("calls"));
        assertEquals(2, counts.getInt("messages"));
        assertTrue(show("verify", file("one")).getBoolean("whole"));
    }

    @Test
    public void aBackupThatIsRestoredToAnEmptiedPhoneBringsAllBack() throws Exception {
        addAnAlarm();
        show("backup", file("one.zip"));
        emptyThePhone();
        JSONObject restored = show("restore", file("one.zip"));
        assertTrue(restored.toString(), restored.getBoolean("whole"));
        assertEquals(
                3, restored.getJSONObject("counts").getJSONObject("contacts").getInt("added"));
        assertEquals(
                "13861234503",
                the(list("contacts", "list"), "name", "联系人 3").getString("number"));
        the(list("groups", "list"), "title", "徒步小队");
        assertEquals("06:40", the(list("alarms", "list"), "label", "起床").getString("time"));
        the(list("bookmarks", "list"), "title", "天气");
        assertEquals(0, show("restore", file("one.zip")).getInt("done"));
    }

    @Test
    public void aRestoreOnThePhoneThatItCameFromChangesNothing() throws Exception {
        addAnAlarm();
        show("backup", file("one"));
        JSONObject restored = show("restore", file("one"));
        assertEquals(restored.toString(), 0, restored.getInt("done"));
        assertEquals(
                3, restored.getJSONObject("counts").getJSONObject("contacts").getInt("there"));
    }

    @Test
    public void aContactWithFewerItemsGetsTheMissingOnes() throws Exception {
        book.addData(60, 1, "phone_v2", "data1, data2", "'057188123456', 1");
        show("backup", file("one"));
        book.database().execSQL("DELETE FROM data_rows WHERE _id = 60");
        JSONObject restored = show("restore", file("one"));
        assertEquals(restored.toString(), 1, restored.getInt("done"));
        JSONArray phones = show("contacts", "show", "101").getJSONArray("phones");
        assertEquals(2, phones.length());
        the(phones, "text", "057188123456");
    }

    /** By kind, what a restore can bring back of a backup. */
    private Map<String, String> contentOf(String backup) throws Exception {
        JSONArray kinds = new JSONObject(text(backup + "/manifest.json")).getJSONArray("kinds");
        Map<String, String> content = new TreeMap<>();
        for (int i = 0; i < kinds.length(); ++i) {
            JSONObject kind = kinds.getJSONObject(i);
            if (kind.has("content")) {
                content.put(kind.getString("kind"), kind.getString("content"));
            }
        }
        return content;
    }

    @Test
    public void aPhoneThatWasEmptiedRestoredAndBackedUpAgainHasTheSame() throws Exception {
        addAnAlarm();
        show("backup", file("one"));
        emptyThePhone();
        show("restore", file("one"));
        show("backup", file("two"));
        assertTrue(contentOf("one").toString(), contentOf("one").containsKey("contacts"));
        assertEquals(contentOf("one"), contentOf("two"));
    }

    @Test
    public void whatThePhoneDoesNotTakeIsTold() throws Exception {
        show("backup", file("one"));
        emptyThePhone();
        JSONObject plan = show("restore", file("one"), "--dry-run");
        StringBuilder told = new StringBuilder();
        for (int i = 0; i < plan.getJSONArray("items").length(); ++i) {
            JSONObject item = plan.getJSONArray("items").getJSONObject(i);
            if (item.getString("action").equals("impossible")) {
                told.append(item.getString("kind")).append(' ').append(item.getString("what"));
            }
        }
        for (String text : new String[] {"contacts 3 张头像", "messages 短信", "calls 通话记录"}) {
            assertTrue(text + " in " + told, told.indexOf(text) >= 0);
        }
        assertEquals(0, plan.getInt("done"));
        assertEquals("a dry run sends nothing", 0, list("contacts", "list").length());
    }

    @Test
    public void onlyWhatIsAskedForIsBackedUpAndRestored() throws Exception {
        addAnAlarm();
        JSONObject counts =
                show("backup", file("one"), "--only", "alarms,bookmarks").getJSONObject("counts");
        assertEquals(counts.toString(), 2, counts.length());
        emptyThePhone();
        show("restore", file("one"), "--only", "alarms");
        assertEquals(counts.getInt("alarms"), list("alarms", "list").length());
        assertEquals(0, list("bookmarks", "list").length());
        assertEquals(1, statusOf("", "backup", file("two"), "--only", "photos"));
    }
}
