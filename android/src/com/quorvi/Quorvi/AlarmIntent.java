package com.quorvi.Quorvi;

import android.content.Context;
import android.content.Intent;
import android.util.Log;

import java.util.ArrayList;
import java.util.Calendar;

/**
 * Asks whichever clock the phone has to add an alarm. From Android 10 on the phone starts the clock
 * only while the agent's own window is in front, where the PC puts it when it links.
 */
final class AlarmIntent {
    private static final String ACTION = "android.intent.action.SET_ALARM";
    private static final String EXTRA = "android.intent.extra.alarm.";
    private static final String TAG = "Quorvi";

    /** Bit n of the wire's days. */
    private static final int[] DAYS = {
        Calendar.MONDAY,
        Calendar.TUESDAY,
        Calendar.WEDNESDAY,
        Calendar.THURSDAY,
        Calendar.FRIDAY,
        Calendar.SATURDAY,
        Calendar.SUNDAY,
    };

    private final Context context;

    AlarmIntent(Context context) {
        this.context = context;
    }

    /**
     * Refused is an alarm that is switched off, since a clock switches on what it adds this way. A
     * clock before Android 4.4 passes over the days, the tone and the vibration.
     */
    boolean add(AlarmCommands.Alarm alarm) {
        if (!alarm.isEnabled) {
            return false;
        }
        Intent ask = new Intent(ACTION).addFlags(Intent.FLAG_ACTIVITY_NEW_TASK);
        ask.putExtra(EXTRA + "HOUR", alarm.hour);
        ask.putExtra(EXTRA + "MINUTES", alarm.minute);
        ask.putExtra(EXTRA + "MESSAGE", alarm.label);
        ask.putExtra(EXTRA + "SKIP_UI", true);
        ask.putExtra(EXTRA + "VIBRATE", alarm.vibrates);
        ask.putExtra(EXTRA + "RINGTONE", alarm.alert);
        if (alarm.days != 0) {
            ask.putIntegerArrayListExtra(EXTRA + "DAYS", daysOf(alarm.days));
        }
        try {
            context.startActivity(ask);
            return true;
        } catch (RuntimeException e) {
            // Without a clock, or with one that takes no alarms of others.
            Log.w(TAG, "no clock takes an alarm", e);
            return false;
        }
    }

    private static ArrayList<Integer> daysOf(int mask) {
        ArrayList<Integer> days = new ArrayList<>();
        for (int bit = 0; bit < DAYS.length; ++bit) {
            if ((mask >> bit & 1) == 1) {
                days.add(DAYS[bit]);
            }
        }
        return days;
    }
}
