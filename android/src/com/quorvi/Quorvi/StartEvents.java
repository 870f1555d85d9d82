package com.quorvi.Quorvi;

import android.content.Intent;
import android.net.Uri;

import java.util.ArrayList;
import java.util.List;

/**
 * Which broadcast of the phone is which event of command 871701. The PC has the events' captions, by
 * the same numbers.
 */
final class StartEvents {
    private static final String PACKAGE = "package:com.example";
    private static final String CARD = "file:///sdcard";
    private static final String CALENDAR = "content://com.android.calendar";

    /**
     * Row n is event n: its action, and, where the phone sends one with it, an address of the kind,
     * without which no receiver is found. Events 74 and 77 are one action: kept on purpose, since the
     * PC has two captions for it (StartEventsTest.oneActionIsTwoEvents).
     */
    private static final String[][] ROWS = {
        {"android.intent.action.PRE_BOOT_COMPLETED"}, // 0
        {"android.intent.action.BOOT_COMPLETED"},
        {"android.net.conn.CONNECTIVITY_CHANGE"},
        {"android.intent.action.AIRPLANE_MODE"},
        {"android.intent.action.BATTERY_CHANGED"},
        {"android.intent.action.BATTERY_LOW"},
        {"android.intent.action.BATTERY_OKAY"},
        {"android.intent.action.CLOSE_SYSTEM_DIALOGS"},
        {"android.intent.action.CONFIGURATION_CHANGED"},
        {"android.intent.action.LOCALE_CHANGED"},
        {"android.intent.action.DATE_CHANGED"}, // 10
        {"android.intent.action.DEVICE_STORAGE_LOW"},
        {"android.intent.action.DEVICE_STORAGE_OK"},
        {"android.intent.action.GTALK_CONNECTED"},
        {"android.intent.action.GTALK_DISCONNECTED"},
        {"android.intent.action.HEADSET_PLUG"},
        {"android.intent.action.INPUT_METHOD_CHANGED"},
        {"android.intent.action.MANAGE_PACKAGE_STORAGE"},
        {"android.intent.action.CAMERA_BUTTON"},
        {"android.intent.action.MEDIA_BUTTON"},
        {"android.intent.action.MEDIA_BAD_REMOVAL", CARD}, // 20
        {"android.intent.action.MEDIA_CHECKING", CARD},
        {"android.intent.action.MEDIA_EJECT", CARD},
        {"android.intent.action.MEDIA_MOUNTED", CARD},
        {"android.intent.action.MEDIA_NOFS", CARD},
        {"android.intent.action.MEDIA_REMOVED", CARD},
        {"android.intent.action.MEDIA_SCANNER_FINISHED", CARD},
        {"android.intent.action.MEDIA_SCANNER_SCAN_FILE", CARD},
        {"android.intent.action.MEDIA_SCANNER_STARTED", CARD},
        {"android.intent.action.MEDIA_SHARED", CARD},
        {"android.intent.action.MEDIA_UNMOUNTABLE", CARD}, // 30
        {"android.intent.action.MEDIA_UNMOUNTED", CARD},
        {"android.intent.action.NEW_OUTGOING_CALL"},
        {"android.intent.action.PACKAGE_ADDED", PACKAGE},
        {"android.intent.action.PACKAGE_CHANGED", PACKAGE},
        {"android.intent.action.PACKAGE_DATA_CLEARED", PACKAGE},
        {"android.intent.action.PACKAGE_INSTALL", PACKAGE},
        {"android.intent.action.PACKAGE_REMOVED", PACKAGE},
        {"android.intent.action.PACKAGE_REPLACED", PACKAGE},
        {"android.intent.action.PACKAGE_RESTARTED", PACKAGE},
        {"android.intent.action.PROVIDER_CHANGED", CALENDAR}, // 40
        {"android.intent.action.REBOOT"},
        {"android.intent.action.SCREEN_OFF"},
        {"android.intent.action.SCREEN_ON"},
        {"android.intent.action.TIMEZONE_CHANGED"},
        {"android.intent.action.TIME_SET"},
        {"android.intent.action.TIME_TICK"},
        {"android.intent.action.UID_REMOVED"},
        {"android.intent.action.UMS_CONNECTED"},
        {"android.intent.action.UMS_DISCONNECTED"},
        {"android.intent.action.USER_PRESENT"}, // 50
        {"android.intent.action.WALLPAPER_CHANGED"},
        {"android.intent.action.ACTION_POWER_CONNECTED"},
        {"android.intent.action.ACTION_POWER_DISCONNECTED"},
        {"android.intent.action.ACTION_SHUTDOWN"},
        {"android.intent.action.DOCK_EVENT"},
        {"android.intent.action.ANR"},
        {"android.intent.action.EVENT_REMINDER", CALENDAR},
        {"android.accounts.LOGIN_ACCOUNTS_CHANGED"},
        {"android.intent.action.EXTERNAL_APPLICATIONS_AVAILABLE"},
        {"android.intent.action.EXTERNAL_APPLICATIONS_UNAVAILABLE"}, // 60
        {"android.app.action.ACTION_PASSWORD_CHANGED"},
        {"android.app.action.ACTION_PASSWORD_FAILED"},
        {"android.app.action.ACTION_PASSWORD_SUCCEEDED"},
        {"android.app.action.DEVICE_ADMIN_DISABLED"},
        {"android.app.action.DEVICE_ADMIN_DISABLE_REQUESTED"},
        {"android.app.action.DEVICE_ADMIN_ENABLED"},
        {"com.android.launcher.action.INSTALL_SHORTCUT"},
        {"com.android.launcher.action.UNINSTALL_SHORTCUT"},
        {"com.android.camera.NEW_PICTURE", "content://media/external/images/media/1"},
        {"android.net.conn.BACKGROUND_DATA_SETTING_CHANGED"}, // 70
        {"android.intent.action.PHONE_STATE"},
        {"android.intent.action.SERVICE_STATE"},
        {"android.intent.action.ANY_DATA_STATE"},
        {"android.intent.action.SIG_STR"},
        {"android.intent.action.DATA_CONNECTION_FAILED"},
        {"android.intent.action.NETWORK_SET_TIME"},
        {"android.intent.action.SIG_STR"},
        {"android.intent.action.SIM_STATE_CHANGED"},
        {"android.provider.Telephony.SIM_FULL"},
        {"android.provider.Telephony.SMS_RECEIVED"}, // 80
        {"android.intent.action.DATA_SMS_RECEIVED", "sms://localhost:0"},
        {"android.provider.Telephony.SMS_REJECTED"},
        {"android.provider.Telephony.WAP_PUSH_RECEIVED"},
        {"android.provider.Telephony.SECRET_CODE", "android_secret_code://4636"},
        {"android.provider.Telephony.SPN_STRINGS_UPDATED"},
        {"android.net.wifi.WIFI_STATE_CHANGED"},
        {"android.net.wifi.NETWORK_IDS_CHANGED"},
        {"android.net.wifi.RSSI_CHANGED"},
        {"android.net.wifi.SCAN_RESULTS"},
        {"android.net.wifi.STATE_CHANGE"}, // 90
        {"android.net.wifi.supplicant.CONNECTION_CHANGE"},
        {"android.net.wifi.supplicant.STATE_CHANGE"},
        {"android.media.RINGER_MODE_CHANGED"},
        {"android.media.VIBRATE_SETTING_CHANGED"},
        {"android.media.AUDIO_BECOMING_NOISY"},
        {"android.speech.tts.TTS_QUEUE_PROCESSING_COMPLETED"},
        {"android.speech.tts.engine.TTS_DATA_INSTALLED"},
        {"android.bluetooth.a2dp.action.SINK_STATE_CHANGED"},
        {"android.bluetooth.adapter.action.DISCOVERY_FINISHED"},
        {"android.bluetooth.adapter.action.DISCOVERY_STARTED"}, // 100
        {"android.bluetooth.adapter.action.LOCAL_NAME_CHANGED"},
        {"android.bluetooth.adapter.action.SCAN_MODE_CHANGED"},
        {"android.bluetooth.adapter.action.STATE_CHANGED"},
        {"android.bluetooth.device.action.PAIRING_REQUEST"},
        {"android.bluetooth.device.action.ACL_CONNECTED"},
        {"android.bluetooth.device.action.ACL_DISCONNECTED"},
        {"android.bluetooth.device.action.ACL_DISCONNECT_REQUESTED"},
        {"android.bluetooth.device.action.BOND_STATE_CHANGED"},
        {"android.bluetooth.device.action.CLASS_CHANGED"},
        {"android.bluetooth.device.action.FOUND"}, // 110
        {"android.bluetooth.device.action.NAME_CHANGED"},
        {"android.bluetooth.devicepicker.action.DEVICE_SELECTED"},
        {"android.bluetooth.devicepicker.action.LAUNCH"},
        {"android.bluetooth.headset.action.AUDIO_STATE_CHANGED"},
        {"android.bluetooth.headset.action.STATE_CHANGED"},
        {"android.bluetooth.a2dp.profile.action.CONNECTION_STATE_CHANGED"},
        {"android.bluetooth.intent.action.DISCOVERY_COMPLETED"},
        {"android.bluetooth.intent.action.DISCOVERY_STARTED"},
        {"android.bluetooth.intent.action.HEADSET_STATE_CHANGED"},
        {"android.bluetooth.intent.action.NAME_CHANGED"}, // 120
        {"android.bluetooth.intent.action.PAIRING_REQUEST"},
        {"android.bluetooth.intent.action.PAIRING_CANCEL"},
        {"android.bluetooth.intent.action.REMOTE_DEVICE_CONNECTED"},
        {"android.bluetooth.intent.action.REMOTE_DEVICE_DISAPPEARED"},
        {"android.bluetooth.intent.action.REMOTE_DEVICE_DISCONNECTED"},
        {"android.bluetooth.intent.action.REMOTE_DEVICE_DISCONNECT_REQUESTED"},
        {"android.bluetooth.intent.action.REMOTE_DEVICE_FOUND"},
        {"android.bluetooth.intent.action.REMOTE_NAME_FAILED"},
        {"android.bluetooth.intent.action.REMOTE_NAME_UPDATED"},
        {"android.bluetooth.intent.action.BLUETOOTH_STATE_CHANGED"}, // 130
        {"android.bluetooth.intent.action.BOND_STATE_CHANGED"},
        {"android.bluetooth.headset.profile.action.CONNECTION_STATE_CHANGED"},
        {"android.bluetooth.intent.action.SCAN_MODE_CHANGED"},
        {"android.bluetooth.intent.action.BONDING_CREATED"},
        {"android.bluetooth.intent.action.BONDING_REMOVED"},
        {"android.bluetooth.intent.action.DISABLED"},
        {"android.bluetooth.intent.action.ENABLED"},
        {"android.bluetooth.intent.action.MODE_CHANGED"},
        {"android.bluetooth.intent.action.REMOTE_ALIAS_CHANGED"},
        {"android.bluetooth.intent.action.REMOTE_ALIAS_CLEARED"}, // 140
        {"android.appwidget.action.APPWIDGET_UPDATE"},
        {"android.appwidget.action.APPWIDGET_ENABLED"},
        {"android.appwidget.action.APPWIDGET_DISABLED"},
        {"android.appwidget.action.APPWIDGET_DELETED"},
    };

    static final int COUNT = ROWS.length;

    private static final int WAP_PUSH = 83;
    private static final String MULTIMEDIA_MESSAGE = "application/vnd.wap.mms-message";

    private StartEvents() {}

    static String actionOf(int event) {
        return ROWS[event][0];
    }

    /** The broadcasts as the phone sends them: bare, and with what goes with them. */
    static List<Intent> broadcastsOf(int event) {
        List<Intent> all = new ArrayList<>();
        all.add(new Intent(actionOf(event)));
        if (ROWS[event].length > 1) {
            all.add(new Intent(actionOf(event), Uri.parse(ROWS[event][1])));
        }
        if (event == WAP_PUSH) {
            all.add(new Intent(actionOf(event)).setType(MULTIMEDIA_MESSAGE));
        }
        return all;
    }
}
