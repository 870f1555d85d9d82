package com.quorvi.Quorvi;

import android.content.ContentResolver;
import android.content.Context;
import android.media.AudioManager;
import android.provider.Settings;
import android.text.format.DateFormat;
import android.util.Log;

import com.quorvi.Quorvi.PhoneSwitches.Switch;
import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.IOException;

/** The phone's settings: reading them all, writing one. */
final class SettingCommands implements CommandGroup {
    private static final int BACKLIGHT = 6;
    private static final int RING_VOLUME = 7;
    private static final int MUSIC_VOLUME = 8;
    private static final int TIME_24 = 9;
    private static final int DATE_FORMAT = 10;

    /** Milliseconds: what the PC's list has. */
    private static final int[] BACKLIGHT_TIMES = {15000, 30000, 60000, 120000, 600000, 1800000};

    private static final int BACKLIGHT_WHEN_UNSET = 60000;
    private static final int RING_STEPS = 7;
    private static final int MUSIC_STEPS = 15;

    /** In the order of the PC's list. */
    private static final String[] DATE_FORMATS = {"yyyy-MM-dd", "MM-dd-yyyy", "dd-MM-yyyy"};

    /** Phones after Android 4.1 keep what is written, and show dates by their language. */
    private static final String DATE_FORMAT_NAME = "date_format";

    private static final String TAG = "Quorvi";

    private final Context context;
    private final ContentResolver resolver;
    private final PhoneSwitches switches;
    private final PhoneVolume ring;
    private final PhoneVolume music;

    SettingCommands(Context context, PhoneSwitches switches) {
        this.context = context;
        resolver = context.getContentResolver();
        this.switches = switches;
        ring = new PhoneVolume(context, AudioManager.STREAM_RING, RING_STEPS);
        music = new PhoneVolume(context, AudioManager.STREAM_MUSIC, MUSIC_STEPS);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.READ_SETTINGS, AgentCommand.WRITE_SETTING};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        if (command == AgentCommand.READ_SETTINGS) {
            read(exchange.reply);
            return;
        }
        exchange.expectOneItem();
        int key = exchange.request.uint32();
        int value = exchange.request.uint32();
        exchange.request.end();
        exchange.doneOrRefused(write(key, value));
    }

    /**
     * In the order of the keys, but for the last two, which stand the other way round: kept on
     * purpose, as the PC reads them (SettingCommandsTest.theDateFormatStandsInFrontOfTheTimeFormat).
     */
    private void read(ReplyWriter reply) throws IOException {
        for (Switch one : Switch.values()) {
            reply.flag(switches.isOn(one));
        }
        reply.uint32(
                        Settings.System.getInt(
                                resolver,
                                Settings.System.SCREEN_OFF_TIMEOUT,
                                BACKLIGHT_WHEN_UNSET))
                .uint32(ring.read())
                .uint32(music.read())
                .uint32(dateFormat())
                .flag(DateFormat.is24HourFormat(context));
    }

    /** By what stands first: the year, the month or the day. */
    private int dateFormat() {
        char first = DateFormat.getDateFormatOrder(context)[0];
        return first == 'y' ? 0 : first == 'M' ? 1 : 2;
    }

    /** A key or a value that the PC's lists do not have changes nothing. */
    private boolean write(int key, int value) {
        switch (key) {
            case BACKLIGHT:
                return isBacklightTime(value)
                        && put(Settings.System.SCREEN_OFF_TIMEOUT, value);
            case RING_VOLUME:
                return ring.write(value);
            case MUSIC_VOLUME:
                return music.write(value);
            case TIME_24:
                return isFlag(value) && put(Settings.System.TIME_12_24, value == 1 ? "24" : "12");
            case DATE_FORMAT:
                return value >= 0
                        && value < DATE_FORMATS.length
                        && put(DATE_FORMAT_NAME, DATE_FORMATS[value]);
            default:
                return key >= 0
                        && key < Switch.values().length
                        && isFlag(value)
                        && switches.turn(Switch.values()[key], value == 1);
        }
    }

    private static boolean isFlag(int value) {
        return value == 0 || value == 1;
    }

    private static boolean isBacklightTime(int value) {
        for (int time : BACKLIGHT_TIMES) {
            if (time == value) {
                return true;
            }
        }
        return false;
    }

    private boolean put(String name, int value) {
        try {
            return Settings.System.putInt(resolver, name, value);
        } catch (RuntimeException e) {
            Log.w(TAG, name + " is not to be written", e);
            return false;
        }
    }

    /** Refused where the owner has not allowed it, from Android 6 on. */
    private boolean put(String name, String value) {
        try {
            return Settings.System.putString(resolver, name, value);
        } catch (RuntimeException e) {
            Log.w(TAG, name + " is not to be written", e);
            return false;
        }
    }
}
