package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;

import android.bluetooth.BluetoothAdapter;
import android.content.Context;
import android.location.LocationManager;
import android.media.AudioManager;
import android.net.wifi.WifiManager;
import android.os.Build;
import android.provider.Settings;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Before;
import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowAudioManager;

import java.util.Arrays;
import java.util.Locale;

@SuppressWarnings("deprecation")
public class SettingCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] REFUSED = Bytes.u32(0);
    private static final byte[] ON = Bytes.u32(1);
    private static final byte[] OFF = Bytes.u32(0);

    private ShadowAudioManager audio;

    @Before
    public void fill() {
        AudioManager manager = (AudioManager) phone().getSystemService(Context.AUDIO_SERVICE);
        audio = Shadows.shadowOf(manager);
        audio.setStreamMaxVolume(7);
        manager.setStreamVolume(AudioManager.STREAM_RING, 5, 0);
        audio.setStreamMaxVolume(15);
        manager.setStreamVolume(AudioManager.STREAM_MUSIC, 9, 0);
        wifi().setWifiEnabled(true);
        put("accelerometer_rotation", 1);
        put("vibrate_when_ringing", 0);
        put("screen_off_timeout", 30000);
        Settings.System.putString(phone().getContentResolver(), "time_12_24", "24");
        turnGps(false);
    }

    static void turnGps(boolean on) {
        if (Build.VERSION.SDK_INT < Build.VERSION_CODES.LOLLIPOP) {
            Settings.Secure.putString(
                    phone().getContentResolver(),
                    "location_providers_allowed",
                    on ? "network,gps" : "network");
        } else {
            LocationManager location =
                    (LocationManager) phone().getSystemService(Context.LOCATION_SERVICE);
            Shadows.shadowOf(location).setProviderEnabled(LocationManager.GPS_PROVIDER, on);
        }
    }

    private static WifiManager wifi() {
        return (WifiManager) phone().getSystemService(Context.WIFI_SERVICE);
    }

    private static void put(String name, int value) {
        Settings.System.putInt(phone().getContentResolver(), name, value);
    }

    private static int number(String name) {
        return Settings.System.getInt(phone().getContentResolver(), name, -1);
    }

    private static String text(String name) {
        return Settings.System.getString(phone().getContentResolver(), name);
    }

    private static byte[] read() throws Exception {
        return ask(Bytes.u32(AgentCommand.READ_SETTINGS.code));
    }

    /** The field of the reply at this place, counted from 0. */
    private static byte[] field(int place) throws Exception {
        return Arrays.copyOfRange(read(), 8 + 4 * place, 12 + 4 * place);
    }

    @Test
    public void readsAllInTheOrderOfTheWire() throws Exception {
        BluetoothAdapter.getDefaultAdapter().disable();
        audio.setStreamMaxVolume(15);
        assertArrayEquals(
                Bytes.payload(
                        ON, // WiFi
                        OFF, // Bluetooth
                        OFF, // aeroplane mode
                        OFF, // GPS
                        ON, // gravity sensor
                        OFF, // vibration
                        Bytes.u32(30000), // backlight, milliseconds
                        Bytes.u32(2), // ring volume: 5 of the 15 steps are 2 of 7
                        Bytes.u32(9), // music volume
                        Bytes.u32(dateFormatOfTheLocale()), // date format
                        ON), // 24 hours
                read());
    }

    /** The tests run in American English, whose month stands first. */
    private static int dateFormatOfTheLocale() {
        assertEquals(Locale.US, Locale.getDefault());
        return 1;
    }

    @Test
    public void theDateFormatStandsInFrontOfTheTimeFormat() throws Exception {
        Settings.System.putString(phone().getContentResolver(), "time_12_24", "12");
        assertArrayEquals(Bytes.u32(1), field(9));
        assertArrayEquals(OFF, field(10));
    }

    @Test
    public void aBacklightOfTheOwnersChoiceIsTold() throws Exception {
        put("screen_off_timeout", 45000);
        assertArrayEquals(Bytes.u32(45000), field(6));
    }

    @Test
    public void tellsWhetherGpsIsOn() throws Exception {
        turnGps(true);
        assertArrayEquals(ON, field(3));
    }

    @Test
    public void tellsOfAeroplaneMode() throws Exception {
        Settings.Global.putInt(phone().getContentResolver(), "airplane_mode_on", 1);
        assertArrayEquals(ON, field(2));
    }

    private static byte[] write(int key, long value) throws Exception {
        return ask(Bytes.frame(
                AgentCommand.WRITE_SETTING,
                1,
                Bytes.u32(key),
                Bytes.u32(value)));
    }

    @Test
    public void turnsWiFi() throws Exception {
        assertArrayEquals(DONE, write(0, 0));
        assertEquals(false, wifi().isWifiEnabled());
        assertArrayEquals(DONE, write(0, 1));
        assertEquals(true, wifi().isWifiEnabled());
    }

    @Test
    public void turnsBluetooth() throws Exception {
        assertArrayEquals(DONE, write(1, 1));
        assertEquals(true, BluetoothAdapter.getDefaultAdapter().isEnabled());
        assertArrayEquals(ON, field(1));
        assertArrayEquals(DONE, write(1, 0));
        assertEquals(false, BluetoothAdapter.getDefaultAdapter().isEnabled());
    }

    @Test
    public void aeroplaneModeAndGpsAreTheOwnersAlone() throws Exception {
        assertArrayEquals(REFUSED, write(2, 1));
        assertArrayEquals(REFUSED, write(3, 1));
        assertArrayEquals(OFF, field(2));
        assertArrayEquals(OFF, field(3));
    }

    @Test
    public void turnsTheGravitySensor() throws Exception {
        assertArrayEquals(DONE, write(4, 0));
        assertEquals(0, number("accelerometer_rotation"));
    }

    @Test
    public void turnsTheVibration() throws Exception {
        assertArrayEquals(DONE, write(5, 1));
        assertEquals(1, number("vibrate_when_ringing"));
    }

    @Test
    public void writesTheBacklight() throws Exception {
        assertArrayEquals(DONE, write(6, 1800000));
        assertEquals(1800000, number("screen_off_timeout"));
    }

    @Test
    public void writesVolumesInThePhonesSteps() throws Exception {
        AudioManager manager = (AudioManager) phone().getSystemService(Context.AUDIO_SERVICE);
        audio.setStreamMaxVolume(30);
        assertArrayEquals(DONE, write(7, 7));
        assertEquals(30, manager.getStreamVolume(AudioManager.STREAM_RING));
        assertArrayEquals(DONE, write(8, 1));
        assertEquals(2, manager.getStreamVolume(AudioManager.STREAM_MUSIC));
        assertArrayEquals(DONE, write(8, 0));
        assertEquals(0, manager.getStreamVolume(AudioManager.STREAM_MUSIC));
    }

    @Test
    public void aVolumeThatIsHeardIsNotSilent() {
        assertEquals(1, PhoneVolume.scaled(1, 30, 7));
        assertEquals(0, PhoneVolume.scaled(0, 30, 7));
        assertEquals(7, PhoneVolume.scaled(30, 30, 7));
        assertEquals(5, PhoneVolume.scaled(5, 7, 7));
        assertEquals(0, PhoneVolume.scaled(3, 0, 7)); // a phone without that volume
    }

    @Test
    public void writesTheTimeFormat() throws Exception {
        assertArrayEquals(DONE, write(9, 0));
        assertEquals("12", text("time_12_24"));
        assertArrayEquals(DONE, write(9, 1));
        assertEquals("24", text("time_12_24"));
    }

    @Test
    public void writesTheDateFormat() throws Exception {
        assertArrayEquals(DONE, write(10, 2));
        assertEquals("dd-MM-yyyy", text("date_format"));
    }

    @Test
    public void whatThePcsListsDoNotHaveIsRefused() throws Exception {
        assertArrayEquals(REFUSED, write(0, 2));
        assertArrayEquals(REFUSED, write(6, 45000));
        assertArrayEquals(REFUSED, write(7, 8));
        assertArrayEquals(REFUSED, write(8, 16));
        assertArrayEquals(REFUSED, write(8, -1));
        assertArrayEquals(REFUSED, write(9, 2));
        assertArrayEquals(REFUSED, write(10, 3));
        assertArrayEquals(REFUSED, write(11, 1));
        assertArrayEquals(REFUSED, write(-1, 1));
        assertEquals(30000, number("screen_off_timeout"));
        assertNull(text("date_format"));
    }

    @Test
    public void aBrokenRequestWritesNothing() throws Exception {
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(
                        AgentCommand.WRITE_SETTING, 1, Bytes.u32(6), Bytes.u32(15000), 0)));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.WRITE_SETTING, 1, Bytes.u32(6))));
        assertEquals(30000, number("screen_off_timeout"));
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new SettingCommands(phone(), new PhoneSwitches(phone())), request);
    }
}
