package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import android.appwidget.AppWidgetManager;
import android.bluetooth.BluetoothAdapter;
import android.bluetooth.BluetoothDevice;
import android.content.Intent;
import android.media.AudioManager;
import android.net.ConnectivityManager;
import android.net.wifi.WifiManager;

import org.junit.Test;

import java.util.Set;
import java.util.TreeSet;

public class StartEventsTest extends OnPhones {
    @Test
    public void thereAreAsManyAsThePcKnows() {
        assertEquals(145, StartEvents.COUNT);
    }

    @Test
    public void everyEventHasABroadcast() {
        for (int event = 0; event < StartEvents.COUNT; ++event) {
            assertTrue("event " + event, StartEvents.actionOf(event).matches("[a-z][A-Za-z0-9_.]+[A-Z]"));
            assertTrue("event " + event, !StartEvents.broadcastsOf(event).isEmpty());
        }
    }

    @Test
    public void oneActionIsTwoEvents() {
        Set<String> actions = new TreeSet<>();
        for (int event = 0; event < StartEvents.COUNT; ++event) {
            boolean isNew = actions.add(StartEvents.actionOf(event));
            assertEquals("event " + event, event != 77, isNew);
        }
        assertEquals(StartEvents.actionOf(74), StartEvents.actionOf(77));
    }

    @Test
    @SuppressWarnings("deprecation") // phones send them all the same
    public void numbersAreThoseOfTheCaptions() {
        expect(1, Intent.ACTION_BOOT_COMPLETED);
        expect(2, ConnectivityManager.CONNECTIVITY_ACTION);
        expect(3, Intent.ACTION_AIRPLANE_MODE_CHANGED);
        expect(4, Intent.ACTION_BATTERY_CHANGED);
        expect(5, Intent.ACTION_BATTERY_LOW);
        expect(6, Intent.ACTION_BATTERY_OKAY);
        expect(7, Intent.ACTION_CLOSE_SYSTEM_DIALOGS);
        expect(8, Intent.ACTION_CONFIGURATION_CHANGED);
        expect(9, Intent.ACTION_LOCALE_CHANGED);
        expect(10, Intent.ACTION_DATE_CHANGED);
        expect(11, Intent.ACTION_DEVICE_STORAGE_LOW);
        expect(12, Intent.ACTION_DEVICE_STORAGE_OK);
        expect(15, Intent.ACTION_HEADSET_PLUG);
        expect(16, Intent.ACTION_INPUT_METHOD_CHANGED);
        expect(17, Intent.ACTION_MANAGE_PACKAGE_STORAGE);
        expect(18, Intent.ACTION_CAMERA_BUTTON);
        expect(19, Intent.ACTION_MEDIA_BUTTON);
        expect(20, Intent.ACTION_MEDIA_BAD_REMOVAL);
        expect(23, Intent.ACTION_MEDIA_MOUNTED);
        expect(31, Intent.ACTION_MEDIA_UNMOUNTED);
        expect(32, Intent.ACTION_NEW_OUTGOING_CALL);
        expect(33, Intent.ACTION_PACKAGE_ADDED);
        expect(37, Intent.ACTION_PACKAGE_REMOVED);
        expect(39, Intent.ACTION_PACKAGE_RESTARTED);
        expect(40, Intent.ACTION_PROVIDER_CHANGED);
        expect(42, Intent.ACTION_SCREEN_OFF);
        expect(43, Intent.ACTION_SCREEN_ON);
        expect(44, Intent.ACTION_TIMEZONE_CHANGED);
        expect(45, Intent.ACTION_TIME_CHANGED);
        expect(46, Intent.ACTION_TIME_TICK);
        expect(50, Intent.ACTION_USER_PRESENT);
        expect(51, Intent.ACTION_WALLPAPER_CHANGED);
        expect(52, Intent.ACTION_POWER_CONNECTED);
        expect(53, Intent.ACTION_POWER_DISCONNECTED);
        expect(54, Intent.ACTION_SHUTDOWN);
        expect(55, Intent.ACTION_DOCK_EVENT);
        expect(59, Intent.ACTION_EXTERNAL_APPLICATIONS_AVAILABLE);
        expect(86, WifiManager.WIFI_STATE_CHANGED_ACTION);
        expect(88, WifiManager.RSSI_CHANGED_ACTION);
        expect(90, WifiManager.NETWORK_STATE_CHANGED_ACTION);
        expect(92, WifiManager.SUPPLICANT_STATE_CHANGED_ACTION);
        expect(93, AudioManager.RINGER_MODE_CHANGED_ACTION);
        expect(95, AudioManager.ACTION_AUDIO_BECOMING_NOISY);
        expect(99, BluetoothAdapter.ACTION_DISCOVERY_FINISHED);
        expect(103, BluetoothAdapter.ACTION_STATE_CHANGED);
        expect(105, BluetoothDevice.ACTION_ACL_CONNECTED);
        expect(108, BluetoothDevice.ACTION_BOND_STATE_CHANGED);
        expect(111, BluetoothDevice.ACTION_NAME_CHANGED);
        expect(141, AppWidgetManager.ACTION_APPWIDGET_UPDATE);
        expect(144, AppWidgetManager.ACTION_APPWIDGET_DELETED);
    }

    private static void expect(int event, String action) {
        assertEquals("event " + event, action, StartEvents.actionOf(event));
    }
}
