package com.quorvi.Quorvi;

import android.content.Context;
import android.content.pm.PackageManager;
import android.net.Uri;
import android.os.Build;

import java.util.ArrayList;
import java.util.List;

/**
 * What phones do not allow the agent, from which Android on; before that those do not which lack the
 * clock or the browser that lets others at its table. android/README.md has the whole table.
 */
enum Limit {
    GPS(Build.VERSION_CODES.JELLY_BEAN, R.string.limit_gps),
    AIRPLANE(Build.VERSION_CODES.JELLY_BEAN_MR1, R.string.limit_airplane),
    DATE_FORMAT(Build.VERSION_CODES.JELLY_BEAN_MR1, R.string.limit_date_format),
    MESSAGES(Build.VERSION_CODES.KITKAT, R.string.limit_messages),
    ALARMS(Build.VERSION_CODES.KITKAT, R.string.limit_alarms, AlarmCommands.TABLES),
    PROCESSES(Build.VERSION_CODES.LOLLIPOP_MR1, R.string.limit_processes),
    BOOKMARKS(Build.VERSION_CODES.M, R.string.limit_bookmarks, BrowserTable.ADDRESSES),
    CACHES(Build.VERSION_CODES.M, R.string.limit_caches),
    IDENTITY(Build.VERSION_CODES.Q, R.string.limit_identity),
    BACKGROUND(Build.VERSION_CODES.Q, R.string.limit_background),
    ENDING(Build.VERSION_CODES.UPSIDE_DOWN_CAKE, R.string.limit_ending);

    private final int firstLevel;
    private final int text;

    /** Of which the phone needs one for it; empty: none. */
    private final Uri[] tables;

    Limit(int firstLevel, int text, Uri... tables) {
        this.firstLevel = firstLevel;
        this.text = text;
        this.tables = tables;
    }

    /** @param level an API level */
    static List<Limit> of(int level) {
        List<Limit> all = new ArrayList<>();
        for (Limit one : values()) {
            if (level >= one.firstLevel) {
                all.add(one);
            }
        }
        return all;
    }

    static List<Limit> ofThisPhone(Context context) {
        List<Limit> byLevel = of(Build.VERSION.SDK_INT);
        List<Limit> all = new ArrayList<>();
        for (Limit one : values()) {
            if (byLevel.contains(one) || one.lacksItsTable(context.getPackageManager())) {
                all.add(one);
            }
        }
        return all;
    }

    private boolean lacksItsTable(PackageManager packages) {
        for (Uri table : tables) {
            if (packages.resolveContentProvider(table.getAuthority(), 0) != null) {
                return false;
            }
        }
        return tables.length > 0;
    }

    /** All that this phone does not allow, a line each. */
    static String textFor(Context context) {
        StringBuilder text = new StringBuilder(context.getString(R.string.limits));
        for (Limit one : ofThisPhone(context)) {
            text.append("\n• ").append(context.getString(one.text));
        }
        return text.toString();
    }
}
