package com.quorvi.Quorvi;

import android.annotation.TargetApi;
import android.bluetooth.BluetoothAdapter;
import android.content.ContentResolver;
import android.content.Context;
import android.content.Intent;
import android.location.LocationManager;
import android.net.wifi.WifiManager;
import android.os.Build;
import android.provider.Settings;
import android.util.Log;

/**
 * What of the phone is on or off. A switch that the phone lets nobody turn stays as it is. Is made on
 * the window's thread, where Android 4.1 wants its Bluetooth asked for; any thread after that.
 */
final class PhoneSwitches {
    /** In the order of the wire's keys. */
    enum Switch {
        WIFI,
        BLUETOOTH,
        AIRPLANE,
        GPS,
        GRAVITY,
        VIBRATION
    }

    /** The same word in Settings.System, until Android 4.1, and in Settings.Global. */
    private static final String AIRPLANE_MODE_ON = "airplane_mode_on";

    /** Public from Android 6 on, and the same word before. */
    private static final String VIBRATE_WHEN_RINGING = "vibrate_when_ringing";

    private static final String TAG = "Quorvi";

    private final Context context;
    private final ContentResolver resolver;
    private final WifiManager wifi;
    private final BluetoothAdapter bluetooth;
    private final LocationManager location;

    @SuppressWarnings("deprecation") // the one that is not came with Android 4.3
    PhoneSwitches(Context context) {
        this.context = context;
        resolver = context.getContentResolver();
        wifi = (WifiManager) context.getApplicationContext().getSystemService(Context.WIFI_SERVICE);
        bluetooth = BluetoothAdapter.getDefaultAdapter();
        location = (LocationManager) context.getSystemService(Context.LOCATION_SERVICE);
    }

    /** What the phone has not, or does not tell, is off. */
    boolean isOn(Switch one) {
        try {
            switch (one) {
                case WIFI:
                    return wifi != null && wifi.isWifiEnabled();
                case BLUETOOTH:
                    return bluetooth != null && bluetooth.isEnabled();
                case AIRPLANE:
                    return isInAirplaneMode();
                case GPS:
                    return isGpsOn();
                case GRAVITY:
                    return isSet(Settings.System.ACCELEROMETER_ROTATION);
                default:
                    return isSet(VIBRATE_WHEN_RINGING);
            }
        } catch (RuntimeException e) {
            Log.w(TAG, one + " is not to be read", e);
            return false;
        }
    }

    /**
     * Radios keep their rules: Android's own switch of WiFi and Bluetooth takes the agent's word,
     * since it was made for Android 9; those of aeroplane mode, from Android 4.2 on, and of GPS take
     * only their owner's.
     *
     * @return whether the phone took it
     */
    @SuppressWarnings("deprecation") // they still work for what was made for Android 9
    boolean turn(Switch one, boolean on) {
        try {
            switch (one) {
                case WIFI:
                    return wifi != null && wifi.setWifiEnabled(on);
                case BLUETOOTH:
                    return bluetooth != null && (on ? bluetooth.enable() : bluetooth.disable());
                case AIRPLANE:
                    return turnAirplaneMode(on);
                case GPS:
                    return false;
                case GRAVITY:
                    return set(Settings.System.ACCELEROMETER_ROTATION, on);
                default:
                    return set(VIBRATE_WHEN_RINGING, on);
            }
        } catch (RuntimeException e) {
            Log.w(TAG, one + " is not to be turned", e);
            return false;
        }
    }

    private boolean isSet(String name) {
        return Settings.System.getInt(resolver, name, 0) == 1;
    }

    private boolean set(String name, boolean on) {
        return Settings.System.putInt(resolver, name, on ? 1 : 0);
    }

    private boolean isInAirplaneMode() {
        return Build.VERSION.SDK_INT >= Build.VERSION_CODES.JELLY_BEAN_MR1
                ? globalAirplaneMode()
                : isSet(AIRPLANE_MODE_ON);
    }

    @TargetApi(Build.VERSION_CODES.JELLY_BEAN_MR1)
    private boolean globalAirplaneMode() {
        return Settings.Global.getInt(resolver, AIRPLANE_MODE_ON, 0) == 1;
    }

    private boolean turnAirplaneMode(boolean on) {
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.JELLY_BEAN_MR1
                || !set(AIRPLANE_MODE_ON, on)) {
            return false;
        }
        context.sendBroadcast(
                new Intent(Intent.ACTION_AIRPLANE_MODE_CHANGED).putExtra("state", on));
        return true;
    }

    /** Until Android 4.4 the location service tells only who may know the place. */
    @SuppressWarnings("deprecation") // not before Android 4.4
    private boolean isGpsOn() {
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.LOLLIPOP) {
            return location != null && location.isProviderEnabled(LocationManager.GPS_PROVIDER);
        }
        String allowed =
                Settings.Secure.getString(resolver, Settings.Secure.LOCATION_PROVIDERS_ALLOWED);
        return allowed != null
                && ("," + allowed + ",").contains("," + LocationManager.GPS_PROVIDER + ",");
    }
}
