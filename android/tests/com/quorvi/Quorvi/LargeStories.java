package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import android.app.ActivityManager;
import android.graphics.Bitmap;
import android.graphics.drawable.BitmapDrawable;

import org.json.JSONArray;
import org.junit.Test;
import org.robolectric.annotation.Config;

/** A phone that holds more than anyone's: the same amounts that the simulated phone is given. */
public class LargeStories extends SuitePhone {
    @Config(sdk = {19, 29})
    @Test
    public void tenThousandContactsWithPhotosAreListed() throws Exception {
        install("com.android.contacts", new LargeBook());
        JSONArray contacts = list("contacts", "list");
        assertEquals(LargeBook.CONTACTS, contacts.length());
        assertEquals(
                LargeBook.PHOTO_BYTES,
                contacts.getJSONObject(LargeBook.CONTACTS - 1).getInt("photo_bytes"));
    }

    @Config(sdk = {19, 29})
    @Test
    public void aThousandBookmarksWithThumbnailsAreListed() throws Exception {
        for (int i = 1; i < 1000; ++i) {
            browser.add(
                    "title, url, bookmark, thumbnail",
                    "'网页', 'http://a.example/" + i + "', 1, zeroblob(20000)");
        }
        JSONArray bookmarks = list("bookmarks", "list");
        assertEquals(1000, bookmarks.length());
        assertEquals(20000, bookmarks.getJSONObject(999).getInt("thumbnail_bytes"));
    }

    @Config(sdk = {19, 29})
    @Test
    public void aThousandApplicationsAreListedWithTheirIcons() throws Exception {
        int delivered = list("apps", "list").length();
        for (int i = 1; i <= 1000; ++i) {
            installWithIcon("com.example.made.up.n" + i);
        }
        JSONArray applications = list("apps", "list");
        assertEquals(delivered + 1000, applications.length());
        for (int i = 1; i <= 1000; i += 111) {
            String name = "com.example.made.up.n" + i;
            assertTrue(the(applications, "package", name).getInt("icon_bytes") > 0);
        }
    }

    /** Later phones show an application none but its own. */
    @Config(sdk = 19)
    @Test
    public void fiveThousandProcessesAreListedWithTheirIcons() throws Exception {
        ActivityManager.RunningAppProcessInfo[] all =
                new ActivityManager.RunningAppProcessInfo[5000];
        for (int i = 0; i < all.length; ++i) {
            String name = "com.example.made.up.n" + (i + 1);
            installWithIcon(name);
            all[i] = process(name, 4000 + i, name);
        }
        run(all);
        JSONArray processes = list("processes", "list");
        assertEquals(5000, processes.length());
        assertEquals("应用", the(processes, "package", "com.example.made.up.n5000").getString("name"));
    }

    /** Later phones show their caches to nobody. */
    @Config(sdk = 19)
    @Test
    public void fiveThousandCachesAreListed() throws Exception {
        for (int i = 1; i <= 5000; ++i) {
            installWithCache("com.example.made.up.n" + i, "应用", i * 53L % 30000 + 4, i);
        }
        assertEquals(5003, list("cleaner", "scan").length());
    }

    private static void installWithIcon(String name) {
        installApplication(name, "应用");
        Bitmap bitmap = Bitmap.createBitmap(4, 4, Bitmap.Config.ARGB_8888);
        packages().setApplicationIcon(name, new BitmapDrawable(phone().getResources(), bitmap));
    }
}
