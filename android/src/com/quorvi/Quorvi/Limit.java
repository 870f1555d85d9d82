package com.quorvi.Quorvi;

import android.content.Context;
import android.os.Build;

import java.util.ArrayList;
import java.util.List;

/** What phones do not allow the agent, from which Android on. android/README.md has the whole table. */
enum Limit {
    SWITCHES(Build.VERSION_CODES.JELLY_BEAN_MR1, R.string.limit_switches),
    MESSAGES(Build.VERSION_CODES.KITKAT, R.string.limit_messages),
    ALARMS(Build.VERSION_CODES.KITKAT, R.string.limit_alarms),
    PROCESSES(Build.VERSION_CODES.LOLLIPOP_MR1, R.string.limit_processes),
    BOOKMARKS(Build.VERSION_CODES.M, R.string.limit_bookmarks),
    CACHES(Build.VERSION_CODES.M, R.string.limit_caches),
    IDENTITY(Build.VERSION_CODES.Q, R.string.limit_identity),
    BACKGROUND(Build.VERSION_CODES.Q, R.string.limit_background),
    ENDING(Build.VERSION_CODES.UPSIDE_DOWN_CAKE, R.string.limit_ending);

    private final int firstLevel;
    private final int text;

    Limit(int firstLevel, int text) {
        this.firstLevel = firstLevel;
        this.text = text;
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

    /** All that this phone does not allow, a line each; empty when it allows everything. */
    static String textFor(Context context) {
        StringBuilder text = new StringBuilder();
        for (Limit one : of(Build.VERSION.SDK_INT)) {
            text.append(text.length() == 0 ? context.getString(R.string.limits) : "");
            text.append("\n• ").append(context.getString(one.text));
        }
        return text.toString();
    }
}
