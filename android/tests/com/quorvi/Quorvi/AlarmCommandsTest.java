package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNotNull;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import android.content.Intent;
import android.provider.AlarmClock;
import android.provider.Settings;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Test;
import org.robolectric.Shadows;

import java.util.Arrays;

public class AlarmCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] REFUSED = Bytes.u32(0);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] ABSENT = Bytes.u32(0x0DF0ADBA);
    private static final String ALL =
            "hour || ':' || minutes || ' ' || daysofweek || ' ' || alarmtime || ' ' || enabled"
                    + " || ' ' || vibrate || ' ' || message || ' ' || alert";

    private static TableProvider clock(String authority) {
        TableProvider clock =
                new TableProvider(
                        "hour INTEGER, minutes INTEGER, daysofweek INTEGER, alarmtime INTEGER,"
                                + " enabled INTEGER, vibrate INTEGER, message TEXT, alert TEXT");
        install(authority, clock);
        return clock;
    }

    private static TableProvider clock() {
        return clock("com.android.deskclock");
    }

    private static void add(TableProvider clock, String values) {
        clock.add("hour, minutes, daysofweek, alarmtime, enabled, vibrate, message, alert", values);
    }

    private static void installTones() {
        TableProvider media = new TableProvider("title TEXT");
        install("media", media);
        media.add("title", "'晨光'");
        Settings.System.putString(
                phone().getContentResolver(),
                "alarm_alert",
                "content://media/internal/audio/media/1");
    }

    @Test
    public void listsByTimeOfDay() throws Exception {
        TableProvider clock = clock();
        installTones();
        add(clock, "12, 30, 0, 0, 0, 1, NULL, NULL");
        add(clock, "7, 5, 31, 1308524700000, 1, 0, '起床', 'content://media/internal/audio/media/1'");
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(2), // alarm
                        Bytes.u32(7), // hour
                        Bytes.u32(5), // minute
                        Bytes.u32(0x1F), // days: Monday to Friday
                        Bytes.u32(1), // enabled
                        Bytes.u32(0), // does not vibrate
                        Bytes.text("起床"), // label
                        Bytes.text("晨光"), // tone
                        Bytes.u64(1308524700000L), // alert time
                        Bytes.text("content://media/internal/audio/media/1"), // alert
                        Bytes.u64(1),
                        Bytes.u32(12),
                        Bytes.u32(30),
                        Bytes.u32(0), // once
                        Bytes.u32(0),
                        Bytes.u32(1),
                        Bytes.text(""), // a label that is null is empty, not absent
                        ABSENT, // no tone
                        Bytes.u64(0),
                        Bytes.text("")),
                ask(Bytes.u32(AgentCommand.LIST_ALARMS.code)));
    }

    @Test
    public void theDefaultToneBearsTheNameOfTheOneThatIsSet() throws Exception {
        add(clock(), "7, 5, 0, 0, 1, 0, 'a', 'content://settings/system/alarm_alert'");
        installTones();
        assertTone(Bytes.text("默认铃声 (晨光)"), "content://settings/system/alarm_alert");
    }

    @Test
    public void aToneThatIsGoneIsAbsent() throws Exception {
        add(clock(), "7, 5, 0, 0, 1, 0, 'a', 'content://media/internal/audio/media/9'");
        installTones();
        assertTone(ABSENT, "content://media/internal/audio/media/9");
    }

    @Test
    public void aToneOfAnotherApplicationIsAbsent() throws Exception {
        add(clock(), "7, 5, 0, 0, 1, 0, 'a', 'silent'");
        assertTone(ABSENT, "silent");
    }

    /** Holds the list of one alarm to its fields from the tone on. */
    private static void assertTone(byte[] tone, String alert) throws Exception {
        byte[] reply = ask(Bytes.u32(AgentCommand.LIST_ALARMS.code));
        byte[] tail = Bytes.of(Bytes.text("a"), tone, Bytes.u64(0), Bytes.text(alert));
        assertArrayEquals(
                tail, Arrays.copyOfRange(reply, reply.length - tail.length, reply.length));
    }

    @Test
    public void aClockUnderItsOlderNameIsListed() throws Exception {
        add(clock("com.android.alarmclock"), "7, 5, 0, 0, 1, 0, 'a', 'x'");
        assertFalse(Arrays.equals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_ALARMS.code))));
    }

    @Test
    public void aForeignClockHasNoData() throws Exception {
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_ALARMS.code)));
    }

    @Test
    public void aClockThatRefusesHasNoDataAndIsNotChanged() throws Exception {
        install("com.android.deskclock", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_ALARMS.code)));
        assertArrayEquals(REFUSED, ask(update(1, alarm(7, 5, 0, 1))));
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.DELETE_ALARMS, 1, Bytes.u32(1))));
    }

    /** Hour, minute, days, alert time, enabled, vibrates, label, alert. */
    private static byte[] alarm(int hour, int minute, int days, int enabled) {
        return Bytes.of(
                Bytes.u32(hour),
                Bytes.u32(minute),
                Bytes.u32(days),
                Bytes.u64(0),
                Bytes.u32(enabled),
                Bytes.u32(1),
                Bytes.text("起床"),
                Bytes.text("x"));
    }

    private static byte[] added(byte[] alarm) {
        return Bytes.frame(AgentCommand.ADD_ALARM, 1, alarm);
    }

    private static byte[] update(int id, byte[] alarm) {
        return Bytes.frame(AgentCommand.UPDATE_ALARM, 1, Bytes.u32(id), alarm);
    }

    @Test
    public void addsToTheClocksTable() throws Exception {
        TableProvider clock = clock();
        assertArrayEquals(DONE, ask(added(alarm(23, 59, 0x41, 0))));
        assertEquals("23:59 65 0 0 1 起床 x", clock.value("SELECT " + ALL + " FROM rows"));
        assertNull(Shadows.shadowOf(phone()).getNextStartedActivity());
    }

    @Test
    public void anHourOf24IsMidnight() throws Exception {
        TableProvider clock = clock();
        assertArrayEquals(DONE, ask(added(alarm(24, 0, 0, 1))));
        assertEquals("0", clock.value("SELECT hour FROM rows"));
    }

    @Test
    public void whatNoClockCanBeSetToIsRefused() throws Exception {
        TableProvider clock = clock();
        add(clock, "7, 5, 0, 0, 1, 0, 'a', 'x'");
        assertArrayEquals(REFUSED, ask(added(alarm(25, 0, 0, 1))));
        assertArrayEquals(REFUSED, ask(added(alarm(-1, 0, 0, 1))));
        assertArrayEquals(REFUSED, ask(added(alarm(1, 60, 0, 1))));
        assertArrayEquals(REFUSED, ask(added(alarm(1, -1, 0, 1))));
        assertArrayEquals(REFUSED, ask(added(alarm(1, 0, 0x80, 1))));
        assertArrayEquals(REFUSED, ask(update(1, alarm(25, 0, 0, 1))));
        assertEquals(1, clock.count());
        assertEquals("7", clock.value("SELECT hour FROM rows"));
    }

    @Test
    public void changesAnAlarm() throws Exception {
        TableProvider clock = clock();
        add(clock, "7, 5, 31, 1308524700000, 1, 0, 'a', 'y'");
        add(clock, "8, 5, 31, 0, 1, 0, 'b', 'y'");
        assertArrayEquals(DONE, ask(update(1, alarm(9, 6, 1, 0))));
        assertEquals(
                "9:6 1 0 0 1 起床 x", clock.value("SELECT " + ALL + " FROM rows WHERE _id = 1"));
        assertEquals("8", clock.value("SELECT hour FROM rows WHERE _id = 2"));
    }

    @Test
    public void changingAnAlarmThatIsGoneIsRefused() throws Exception {
        TableProvider clock = clock();
        assertArrayEquals(REFUSED, ask(update(9, alarm(9, 6, 1, 0))));
        assertEquals(0, clock.count());
    }

    @Test
    public void deletesWhatIsNamed() throws Exception {
        TableProvider clock = clock();
        add(clock, "7, 5, 0, 0, 1, 0, 'a', 'x'");
        add(clock, "8, 5, 0, 0, 1, 0, 'b', 'x'");
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.DELETE_ALARMS, 2, Bytes.u32(1), Bytes.u32(99))));
        assertEquals("2", clock.value("SELECT group_concat(_id) FROM rows"));
    }

    @Test
    public void aForeignClockIsAskedToAdd() throws Exception {
        assertArrayEquals(DONE, ask(added(alarm(7, 5, 0x41, 1))));
        Intent asked = Shadows.shadowOf(phone()).getNextStartedActivity();
        assertNotNull(asked);
        assertEquals(AlarmClock.ACTION_SET_ALARM, asked.getAction());
        assertEquals(7, asked.getIntExtra(AlarmClock.EXTRA_HOUR, -1));
        assertEquals(5, asked.getIntExtra(AlarmClock.EXTRA_MINUTES, -1));
        assertEquals("起床", asked.getStringExtra(AlarmClock.EXTRA_MESSAGE));
        assertEquals("x", asked.getStringExtra("android.intent.extra.alarm.RINGTONE"));
        assertTrue(asked.getBooleanExtra(AlarmClock.EXTRA_SKIP_UI, false));
        assertTrue(asked.getBooleanExtra("android.intent.extra.alarm.VIBRATE", false));
        assertEquals( // Monday and Sunday, as a calendar counts them
                Arrays.asList(2, 1),
                asked.getIntegerArrayListExtra("android.intent.extra.alarm.DAYS"));
    }

    @Test
    public void anAlarmThatGoesOffOnceNamesNoDays() throws Exception {
        ask(added(alarm(7, 5, 0, 1)));
        assertFalse(
                Shadows.shadowOf(phone())
                        .getNextStartedActivity()
                        .hasExtra("android.intent.extra.alarm.DAYS"));
    }

    @Test
    public void aForeignClockIsNotAskedForAnAlarmThatIsOff() throws Exception {
        assertArrayEquals(REFUSED, ask(added(alarm(7, 5, 0, 0))));
        assertNull(Shadows.shadowOf(phone()).getNextStartedActivity());
    }

    @Test
    public void aPhoneWithoutAClockRefuses() throws Exception {
        Shadows.shadowOf(phone()).checkActivities(true);
        assertArrayEquals(REFUSED, ask(added(alarm(7, 5, 0, 1))));
    }

    @Test
    public void aBrokenRequestChangesNothing() throws Exception {
        TableProvider clock = clock();
        assertThrows(
                MalformedRequest.class, () -> ask(added(Bytes.of(alarm(7, 5, 0, 1), 0))));
        assertThrows(MalformedRequest.class, () -> ask(added(alarm(7, 5, 0, 2))));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.ADD_ALARM, 2, alarm(7, 5, 0, 1))));
        assertEquals(0, clock.count());
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new AlarmCommands(phone()), request);
    }
}
