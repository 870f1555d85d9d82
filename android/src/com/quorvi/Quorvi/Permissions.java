package com.quorvi.Quorvi;

import android.content.Context;
import android.content.pm.PackageManager;
import android.os.Build;
import android.os.Process;
import android.text.TextUtils;

import com.quorvi.Quorvi.wire.AgentCommand;

import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/** What the agent asks the phone for, and for which commands. The manifest names the same. */
enum Permissions {
    /** The socket, without which there is no command at all. */
    INTERNET("android.permission.INTERNET", 0, AgentCommand.values()),
    FOREGROUND_SERVICE("android.permission.FOREGROUND_SERVICE", 0, AgentCommand.values()),
    /** Conversations are listed by the names of contacts. */
    READ_CONTACTS(
            "android.permission.READ_CONTACTS",
            R.string.contacts,
            AgentCommand.LIST_CONTACTS,
            AgentCommand.READ_CONTACT,
            AgentCommand.UPDATE_CONTACT,
            AgentCommand.LIST_CONVERSATIONS,
            AgentCommand.LIST_GROUPS,
            AgentCommand.LIST_GROUP_NAMES,
            AgentCommand.LIST_GROUP_MEMBERS),
    WRITE_CONTACTS(
            "android.permission.WRITE_CONTACTS",
            R.string.contacts,
            AgentCommand.ADD_CONTACT,
            AgentCommand.UPDATE_CONTACT,
            AgentCommand.DELETE_CONTACTS,
            AgentCommand.ADD_GROUP,
            AgentCommand.RENAME_GROUP,
            AgentCommand.DELETE_GROUPS),
    READ_SMS(
            "android.permission.READ_SMS",
            R.string.messages,
            AgentCommand.LIST_CONVERSATIONS,
            AgentCommand.READ_CONVERSATION),
    /** Until Android 4.4; after that nobody is asked, and nobody may. */
    WRITE_SMS(
            "android.permission.WRITE_SMS",
            0,
            AgentCommand.DELETE_CONVERSATION,
            AgentCommand.SEND_MESSAGE),
    SEND_SMS("android.permission.SEND_SMS", R.string.messages, AgentCommand.SEND_MESSAGE),
    READ_CALL_LOG("android.permission.READ_CALL_LOG", R.string.calls, AgentCommand.LIST_CALLS),
    WRITE_CALL_LOG(
            "android.permission.WRITE_CALL_LOG",
            R.string.calls,
            AgentCommand.DELETE_CALLS,
            AgentCommand.DELETE_ALL_CALLS),
    SET_ALARM("com.android.alarm.permission.SET_ALARM", 0, AgentCommand.ADD_ALARM),
    /** Until Android 5.1, with the last browser that shows others its bookmarks. */
    READ_BOOKMARKS(
            "com.android.browser.permission.READ_HISTORY_BOOKMARKS",
            0,
            AgentCommand.LIST_BOOKMARKS),
    WRITE_BOOKMARKS(
            "com.android.browser.permission.WRITE_HISTORY_BOOKMARKS",
            0,
            AgentCommand.ADD_BOOKMARK,
            AgentCommand.UPDATE_BOOKMARK,
            AgentCommand.DELETE_BOOKMARKS,
            AgentCommand.CLEAN),
    GET_PACKAGE_SIZE(
            "android.permission.GET_PACKAGE_SIZE",
            0,
            AgentCommand.SCAN_FOR_CLEANING,
            AgentCommand.CLEAN),
    /** Until Android 5.1; after that only the phone's own applications have it. */
    CLEAR_APP_CACHE("android.permission.CLEAR_APP_CACHE", 0, AgentCommand.CLEAN),
    ACCESS_WIFI_STATE(
            "android.permission.ACCESS_WIFI_STATE",
            0,
            AgentCommand.READ_SETTINGS,
            AgentCommand.SYSTEM_INFORMATION),
    CHANGE_WIFI_STATE("android.permission.CHANGE_WIFI_STATE", 0, AgentCommand.WRITE_SETTING),
    BLUETOOTH(
            "android.permission.BLUETOOTH",
            0,
            AgentCommand.READ_SETTINGS,
            AgentCommand.SYSTEM_INFORMATION),
    BLUETOOTH_ADMIN("android.permission.BLUETOOTH_ADMIN", 0, AgentCommand.WRITE_SETTING),
    /** From Android 6 on it has a page of its own in the phone's settings, where the owner allows it. */
    WRITE_SETTINGS("android.permission.WRITE_SETTINGS", 0, AgentCommand.WRITE_SETTING),
    /** Who the phone is: its IMEI and its IMSI. */
    READ_PHONE_STATE(
            "android.permission.READ_PHONE_STATE", R.string.phone_state, AgentCommand.SYSTEM_INFORMATION),
    /** Alarms are listed by the titles of their tones. */
    READ_EXTERNAL_STORAGE(
            "android.permission.READ_EXTERNAL_STORAGE",
            R.string.files,
            AgentCommand.LIST_ALARMS,
            AgentCommand.LIST_FILE_ROOTS,
            AgentCommand.LIST_DIRECTORY),
    KILL_BACKGROUND_PROCESSES(
            "android.permission.KILL_BACKGROUND_PROCESSES", 0, AgentCommand.END_PROCESSES);

    final String androidName;

    /** What the owner allows by it, in words, who is asked for it from Android 6 on; 0: not asked. */
    private final int topic;

    final List<AgentCommand> commands;

    Permissions(String androidName, int topic, AgentCommand... commands) {
        this.androidName = androidName;
        this.topic = topic;
        this.commands = Collections.unmodifiableList(Arrays.asList(commands));
    }

    boolean isAsked() {
        return topic != 0;
    }

    /** Whether this phone's owner is asked for it and has not allowed it. */
    boolean isMissing(Context context) {
        return isAsked()
                && Build.VERSION.SDK_INT >= Build.VERSION_CODES.M
                && context.checkPermission(androidName, Process.myPid(), Process.myUid())
                        != PackageManager.PERMISSION_GRANTED;
    }

    /** What the owner has not allowed, in a sentence; empty when all is allowed. */
    static String missingText(Context context) {
        Set<String> topics = new LinkedHashSet<>();
        for (Permissions one : values()) {
            if (one.isMissing(context)) {
                topics.add(context.getString(one.topic));
            }
        }
        return topics.isEmpty()
                ? ""
                : context.getString(
                        R.string.missing,
                        TextUtils.join(context.getString(R.string.comma), topics));
    }
}
