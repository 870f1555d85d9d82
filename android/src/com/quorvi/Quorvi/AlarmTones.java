package com.quorvi.Quorvi;

import android.content.ContentResolver;
import android.content.Context;
import android.database.Cursor;
import android.net.Uri;
import android.provider.Settings;

/** What the tones of alarms are called. */
final class AlarmTones {
    private static final String MEDIA = "media";
    private static final String SETTINGS = "settings";
    private static final String TITLE = "title";

    private final ContentResolver resolver;
    private final Provider provider;

    AlarmTones(Context context, Provider provider) {
        resolver = context.getContentResolver();
        this.provider = provider;
    }

    /**
     * @param alert the address of a piece of music, or of the setting that holds one
     * @return null for a tone that is not on the phone any more, or for none at all
     */
    String titleOf(String alert) {
        Uri uri = Uri.parse(alert);
        if (!SETTINGS.equals(uri.getAuthority())) {
            return titleOf(uri);
        }
        String actual = Settings.System.getString(resolver, uri.getLastPathSegment());
        String title = actual == null ? null : titleOf(Uri.parse(actual));
        return title == null ? null : "默认铃声 (" + title + ")";
    }

    private String titleOf(Uri music) {
        if (!MEDIA.equals(music.getAuthority())) {
            return null;
        }
        Cursor row = provider.rows(music, new String[] {TITLE}, null, null, null);
        try {
            return row.moveToFirst() ? row.getString(0) : null;
        } finally {
            row.close();
        }
    }
}
