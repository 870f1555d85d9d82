package com.quorvi.Quorvi;

import com.quorvi.Quorvi.wire.AgentCommand;

import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/** What the agent asks the phone for, and for which commands. The manifest names the same. */
enum Permissions {
    /** The socket, without which there is no command at all. */
    INTERNET("android.permission.INTERNET", false, AgentCommand.values()),
    FOREGROUND_SERVICE("android.permission.FOREGROUND_SERVICE", false, AgentCommand.values()),
    /** Conversations are listed by the names of contacts. */
    READ_CONTACTS(
            "android.permission.READ_CONTACTS",
            true,
            AgentCommand.LIST_CONTACTS,
            AgentCommand.READ_CONTACT,
            AgentCommand.UPDATE_CONTACT,
            AgentCommand.LIST_CONVERSATIONS,
            AgentCommand.LIST_GROUPS,
            AgentCommand.LIST_GROUP_NAMES,
            AgentCommand.LIST_GROUP_MEMBERS),
    WRITE_CONTACTS(
            "android.permission.WRITE_CONTACTS",
            true,
            AgentCommand.ADD_CONTACT,
            AgentCommand.UPDATE_CONTACT,
            AgentCommand.DELETE_CONTACTS,
            AgentCommand.ADD_GROUP,
            AgentCommand.RENAME_GROUP,
            AgentCommand.DELETE_GROUPS),
    READ_SMS(
            "android.permission.READ_SMS",
            true,
            AgentCommand.LIST_CONVERSATIONS,
            AgentCommand.READ_CONVERSATION),
    /** Until Android 4.4; after that nobody is asked, and nobody may. */
    WRITE_SMS(
            "android.permission.WRITE_SMS",
            false,
            AgentCommand.DELETE_CONVERSATION,
            AgentCommand.SEND_MESSAGE),
    SEND_SMS("android.permission.SEND_SMS", true, AgentCommand.SEND_MESSAGE),
    READ_CALL_LOG("android.permission.READ_CALL_LOG", true, AgentCommand.LIST_CALLS),
    WRITE_CALL_LOG(
            "android.permission.WRITE_CALL_LOG",
            true,
            AgentCommand.DELETE_CALLS,
            AgentCommand.DELETE_ALL_CALLS),
    SET_ALARM("com.android.alarm.permission.SET_ALARM", false, AgentCommand.ADD_ALARM),
    /** Until Android 5.1, with the last browser that shows others its bookmarks. */
    READ_BOOKMARKS(
            "com.android.browser.permission.READ_HISTORY_BOOKMARKS",
            false,
            AgentCommand.LIST_BOOKMARKS),
    WRITE_BOOKMARKS(
            "com.android.browser.permission.WRITE_HISTORY_BOOKMARKS",
            false,
            AgentCommand.ADD_BOOKMARK,
            AgentCommand.UPDATE_BOOKMARK,
            AgentCommand.DELETE_BOOKMARKS,
            AgentCommand.CLEAN),
    GET_PACKAGE_SIZE(
            "android.permission.GET_PACKAGE_SIZE",
            false,
            AgentCommand.SCAN_FOR_CLEANING,
            AgentCommand.CLEAN),
    /** Until Android 5.1; after that only the phone's own applications have it. */
    CLEAR_APP_CACHE("android.permission.CLEAR_APP_CACHE", false, AgentCommand.CLEAN),
    ACCESS_WIFI_STATE(
            "android.permission.ACCESS_WIFI_STATE",
            false,
            AgentCommand.READ_SETTINGS,
            AgentCommand.SYSTEM_INFORMATION),
    CHANGE_WIFI_STATE("android.permission.CHANGE_WIFI_STATE", false, AgentCommand.WRITE_SETTING),
    BLUETOOTH(
            "android.permission.BLUETOOTH",
            false,
            AgentCommand.READ_SETTINGS,
            AgentCommand.SYSTEM_INFORMATION),
    BLUETOOTH_ADMIN("android.permission.BLUETOOTH_ADMIN", false, AgentCommand.WRITE_SETTING),
    /** From Android 6 on it has a page of its own in the phone's settings, where the owner allows it. */
    WRITE_SETTINGS("android.permission.WRITE_SETTINGS", false, AgentCommand.WRITE_SETTING),
    /** Who the phone is: its IMEI and its IMSI. */
    READ_PHONE_STATE(
            "android.permission.READ_PHONE_STATE", true, AgentCommand.SYSTEM_INFORMATION),
    /** Alarms are listed by the titles of their tones. */
    READ_EXTERNAL_STORAGE(
            "android.permission.READ_EXTERNAL_STORAGE",
            true,
            AgentCommand.LIST_ALARMS,
            AgentCommand.LIST_FILE_ROOTS,
            AgentCommand.LIST_DIRECTORY),
    KILL_BACKGROUND_PROCESSES(
            "android.permission.KILL_BACKGROUND_PROCESSES", false, AgentCommand.END_PROCESSES);

    final String androidName;

    /** Whether the owner is asked for it, from Android 6 on. */
    final boolean isAsked;

    final List<AgentCommand> commands;

    Permissions(String androidName, boolean isAsked, AgentCommand... commands) {
        this.androidName = androidName;
        this.isAsked = isAsked;
        this.commands = Collections.unmodifiableList(Arrays.asList(commands));
    }
}
