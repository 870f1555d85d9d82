package com.quorvi.Quorvi;

import android.annotation.TargetApi;
import android.app.ActivityManager;
import android.content.Context;
import android.content.Intent;
import android.content.IntentFilter;
import android.graphics.Point;
import android.net.wifi.WifiInfo;
import android.net.wifi.WifiManager;
import android.os.BatteryManager;
import android.os.Build;
import android.os.Environment;
import android.provider.Settings;
import android.telephony.TelephonyManager;
import android.util.Log;
import android.view.Display;
import android.view.WindowManager;

import java.io.File;
import java.util.Locale;

/**
 * What the record of all system information says of the phone, in its words. A text is empty where
 * the phone has no such thing or does not tell. Any thread.
 */
@SuppressWarnings("deprecation") // what replaces these came after Android 4.1
final class PhoneFacts {
    private static final String TAG = "Quorvi";

    private static final int BRIGHTNESS_WHEN_UNSET = 128;

    /** By the number that the phone's radio has for the kind of its network; 0 and 19 are none. */
    private static final String[] NETWORKS = {
        "", "GPRS", "EDGE", "UMTS", "CDMA", "EVDO", "EVDO", "1xRTT", "HSDPA", "HSUPA", "HSPA",
        "iDEN", "EVDO", "LTE", "eHRPD", "HSPA+", "GSM", "TD-SCDMA", "IWLAN", "", "NR",
    };

    private final Context context;
    private final File data;

    /** @param data what the phone keeps its applications' data on */
    PhoneFacts(Context context, File data) {
        this.context = context;
        this.data = data;
    }

    /** From Android 10 on no phone tells it. */
    String imei() {
        try {
            return orEmpty(telephony().getDeviceId());
        } catch (RuntimeException e) {
            Log.w(TAG, "the phone does not tell its IMEI", e);
            return "";
        }
    }

    /** From Android 10 on no phone tells it. */
    String imsi() {
        try {
            return orEmpty(telephony().getSubscriberId());
        } catch (RuntimeException e) {
            Log.w(TAG, "the phone does not tell its IMSI", e);
            return "";
        }
    }

    /** Pixels: "480 x 800". */
    String resolution() {
        Display display =
                ((WindowManager) context.getSystemService(Context.WINDOW_SERVICE))
                        .getDefaultDisplay();
        Point size = new Point();
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.JELLY_BEAN_MR1) {
            measureWhole(display, size);
        } else {
            display.getSize(size);
        }
        return size.x + " x " + size.y;
    }

    /** With what the phone itself covers by its bars. */
    @TargetApi(Build.VERSION_CODES.JELLY_BEAN_MR1)
    private static void measureWhole(Display display, Point size) {
        display.getRealSize(size);
    }

    /** Percent. */
    String battery() {
        Intent state =
                context.registerReceiver(null, new IntentFilter(Intent.ACTION_BATTERY_CHANGED));
        int level = state == null ? -1 : state.getIntExtra(BatteryManager.EXTRA_LEVEL, -1);
        int scale = state == null ? 0 : state.getIntExtra(BatteryManager.EXTRA_SCALE, 100);
        return level < 0 || scale <= 0 ? "" : Integer.toString(level * 100 / scale);
    }

    String ram() {
        ActivityManager.MemoryInfo memory = new ActivityManager.MemoryInfo();
        ((ActivityManager) context.getSystemService(Context.ACTIVITY_SERVICE))
                .getMemoryInfo(memory);
        return spaceText(memory.availMem, memory.totalMem);
    }

    String rom() {
        return spaceText(data.getUsableSpace(), data.getTotalSpace());
    }

    String card() {
        if (!Environment.MEDIA_MOUNTED.equals(Environment.getExternalStorageState())) {
            return "";
        }
        File card = Environment.getExternalStorageDirectory();
        return spaceText(card.getUsableSpace(), card.getTotalSpace());
    }

    /** The operator and the kind of its network: "中国移动 (EDGE)". */
    String mobileNetwork() {
        String operator = operator();
        String kind = networkKind();
        return operator.isEmpty() || kind.isEmpty() ? operator : operator + " (" + kind + ")";
    }

    private String operator() {
        try {
            return orEmpty(telephony().getNetworkOperatorName());
        } catch (RuntimeException e) {
            // A tablet of late has nobody to ask.
            Log.w(TAG, "the phone does not tell its operator", e);
            return "";
        }
    }

    private String networkKind() {
        try {
            int type = telephony().getNetworkType();
            return type >= 0 && type < NETWORKS.length ? NETWORKS[type] : "";
        } catch (RuntimeException e) {
            Log.w(TAG, "the phone does not tell the kind of its network", e);
            return "";
        }
    }

    /**
     * The network's name and its speed: "三号楼的家 (72 Mbps)". From Android 8.1 on the name goes only
     * to who may know the phone's place, for which the agent does not ask.
     */
    String wifiNetwork() {
        WifiManager wifi =
                (WifiManager) context.getApplicationContext().getSystemService(Context.WIFI_SERVICE);
        WifiInfo info = wifi == null ? null : wifi.getConnectionInfo();
        if (info == null || info.getLinkSpeed() <= 0) {
            return "";
        }
        String name = orEmpty(info.getSSID()).replaceAll("^\"(.*)\"$", "$1");
        boolean isTold = !name.isEmpty() && !name.equals("<unknown ssid>") && !name.equals("0x");
        return (isTold ? name : "已连接") + " (" + info.getLinkSpeed() + " Mbps)";
    }

    /** 0 to 255. */
    int brightness() {
        return Settings.System.getInt(
                context.getContentResolver(),
                Settings.System.SCREEN_BRIGHTNESS,
                BRIGHTNESS_WHEN_UNSET);
    }

    private TelephonyManager telephony() {
        return (TelephonyManager) context.getSystemService(Context.TELEPHONY_SERVICE);
    }

    /** What is free and the whole, in bytes: "612 MB / 1.07 GB". */
    static String spaceText(long free, long whole) {
        return sizeText(free) + " / " + sizeText(whole);
    }

    private static String sizeText(long bytes) {
        long megabytes = bytes >> 20;
        return megabytes < 1024
                ? megabytes + " MB"
                : String.format(Locale.ROOT, "%.2f GB", megabytes / 1024.0);
    }

    private static String orEmpty(String text) {
        return text == null ? "" : text;
    }
}
