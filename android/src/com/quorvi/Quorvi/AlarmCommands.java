package com.quorvi.Quorvi;

import android.content.ContentValues;
import android.content.Context;
import android.database.Cursor;
import android.net.Uri;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;
import com.quorvi.Quorvi.wire.RequestReader;

import java.io.IOException;
import java.util.HashMap;
import java.util.Map;

/**
 * The alarms of the phone's clock: listing, adding, changing, deleting. Only Android's own clock of
 * old lets others at its table; any other is asked to add an alarm by the intent that each clock
 * takes, and does nothing else.
 */
final class AlarmCommands implements CommandGroup {
    /** Under which name the clock stands depends on the version. */
    static final Uri[] TABLES = {
        Uri.parse("content://com.android.deskclock/alarm"),
        Uri.parse("content://com.android.alarmclock/alarm"),
    };

    private static final String ID = "_id";
    private static final String HOUR = "hour";
    private static final String MINUTE = "minutes";
    /** A mask as on the wire: bit 0 is Monday. */
    private static final String DAYS = "daysofweek";

    private static final String ENABLED = "enabled";
    private static final String VIBRATE = "vibrate";
    private static final String LABEL = "message";
    /** Milliseconds since 1970; 0 has the clock work it out. */
    private static final String TIME = "alarmtime";

    private static final String ALERT = "alert";
    private static final String[] COLUMNS = {
        ID, HOUR, MINUTE, DAYS, ENABLED, VIBRATE, LABEL, TIME, ALERT,
    };

    private final Provider provider;
    private final AlarmTones tones;
    private final AlarmIntent intent;

    AlarmCommands(Context context) {
        provider = new Provider(context);
        tones = new AlarmTones(context, provider);
        intent = new AlarmIntent(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_ALARMS,
            AgentCommand.ADD_ALARM,
            AgentCommand.UPDATE_ALARM,
            AgentCommand.DELETE_ALARMS,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_ALARMS:
                list(exchange.reply);
                break;
            case ADD_ALARM:
                exchange.expectOneItem();
                exchange.doneOrRefused(add(Alarm.read(exchange.request)));
                break;
            case UPDATE_ALARM:
                exchange.expectOneItem();
                long id = exchange.request.id();
                exchange.doneOrRefused(update(id, Alarm.read(exchange.request)));
                break;
            default:
                long[] ids = exchange.ids();
                for (Uri table : TABLES) {
                    provider.delete(table, ID, ids);
                }
                exchange.done();
        }
    }

    private void list(ReplyWriter reply) throws IOException {
        Map<String, String> titles = new HashMap<>();
        for (Uri table : TABLES) {
            Cursor alarms = provider.rows(table, COLUMNS, null, null, HOUR + ", " + MINUTE + ", " + ID);
            try {
                while (alarms.moveToNext()) {
                    write(reply, alarms, titles);
                }
            } finally {
                alarms.close();
            }
            if (!reply.isEmpty()) {
                return;
            }
        }
    }

    /** @param titles of the tones that were looked up so far */
    private void write(ReplyWriter reply, Cursor alarm, Map<String, String> titles)
            throws IOException {
        String alert = alarm.isNull(8) ? "" : alarm.getString(8);
        if (!titles.containsKey(alert)) {
            titles.put(alert, tones.titleOf(alert));
        }
        reply.uint64(alarm.getLong(0))
                .uint32(alarm.getInt(1))
                .uint32(alarm.getInt(2))
                .uint32(alarm.getInt(3))
                .flag(alarm.getInt(4) == 1)
                .flag(alarm.getInt(5) == 1)
                .text(alarm.getString(6));
        if (titles.get(alert) == null) {
            reply.absentText();
        } else {
            reply.text(titles.get(alert));
        }
        reply.uint64(alarm.getLong(7)).text(alert);
    }

    private boolean add(Alarm alarm) {
        if (!alarm.isPossible()) {
            return false;
        }
        for (Uri table : TABLES) {
            if (provider.insert(table, alarm.row()) != null) {
                return true;
            }
        }
        return intent.add(alarm);
    }

    /** An alarm that is gone stays so. */
    private boolean update(long id, Alarm alarm) {
        boolean isDone = false;
        for (Uri table : TABLES) {
            isDone |=
                    alarm.isPossible()
                            && provider.update(table, alarm.row(), ID + "=?", Long.toString(id))
                                    > 0;
        }
        return isDone;
    }

    /** What a request says of an alarm. */
    static final class Alarm {
        /** What the PC sends for twelve hours and the half day that it calls 下午. */
        private static final int MIDNIGHT = 24;

        private static final int EVERY_DAY = 0x7F;

        final int hour;
        final int minute;
        final int days;
        final long time;
        final boolean isEnabled;
        final boolean vibrates;
        final String label;
        final String alert;

        private Alarm(RequestReader request) throws MalformedRequest {
            int hours = request.uint32();
            hour = hours == MIDNIGHT ? 0 : hours;
            minute = request.uint32();
            days = request.uint32();
            time = request.uint64();
            isEnabled = request.flag();
            vibrates = request.flag();
            label = request.text();
            alert = request.text();
            request.end();
        }

        static Alarm read(RequestReader request) throws MalformedRequest {
            return new Alarm(request);
        }

        /** Whether a clock can be set to it. */
        boolean isPossible() {
            return hour >= 0
                    && hour < MIDNIGHT
                    && minute >= 0
                    && minute < 60
                    && (days & ~EVERY_DAY) == 0;
        }

        ContentValues row() {
            ContentValues row = new ContentValues();
            row.put(HOUR, hour);
            row.put(MINUTE, minute);
            row.put(DAYS, days);
            row.put(TIME, time);
            row.put(ENABLED, isEnabled ? 1 : 0);
            row.put(VIBRATE, vibrates ? 1 : 0);
            row.put(LABEL, label);
            row.put(ALERT, alert);
            return row;
        }
    }
}
