package com.quorvi.Quorvi.wire;

import java.util.HashMap;
import java.util.Map;

/** Every command that an agent answers: its code, whose hundreds name the group, and its form. */
public enum AgentCommand {
    // Phone
    DEVICE_SUMMARY(870002, RequestForm.BARE),
    AGENT_VERSION(870003, RequestForm.BARE),
    SYSTEM_INFORMATION(870004, RequestForm.BARE),
    // Contacts
    LIST_CONTACTS(870101, RequestForm.BARE),
    READ_CONTACT(870102, RequestForm.FRAMED),
    ADD_CONTACT(870103, RequestForm.FRAMED),
    UPDATE_CONTACT(870104, RequestForm.FRAMED),
    DELETE_CONTACTS(870106, RequestForm.FRAMED),
    LIST_GROUP_NAMES(870120, RequestForm.BARE),
    ADD_GROUP(870121, RequestForm.FRAMED),
    RENAME_GROUP(870122, RequestForm.FRAMED),
    DELETE_GROUPS(870124, RequestForm.FRAMED),
    LIST_GROUPS(870140, RequestForm.BARE),
    LIST_GROUP_MEMBERS(870150, RequestForm.BARE),
    // Messages
    LIST_CONVERSATIONS(870201, RequestForm.BARE),
    READ_CONVERSATION(870202, RequestForm.CONVERSATION),
    SEND_MESSAGE(870204, RequestForm.FRAMED),
    DELETE_CONVERSATION(870206, RequestForm.FRAMED),
    // Calls
    LIST_CALLS(870301, RequestForm.BARE),
    DELETE_CALLS(870303, RequestForm.FRAMED),
    DELETE_ALL_CALLS(870304, RequestForm.FRAMED),
    // Alarms
    LIST_ALARMS(870401, RequestForm.BARE),
    ADD_ALARM(870402, RequestForm.FRAMED),
    UPDATE_ALARM(870403, RequestForm.FRAMED),
    DELETE_ALARMS(870405, RequestForm.FRAMED),
    // Files
    LIST_FILE_ROOTS(870601, RequestForm.BARE),
    LIST_DIRECTORY(870602, RequestForm.FRAMED),
    // Bookmarks
    LIST_BOOKMARKS(870701, RequestForm.BARE),
    ADD_BOOKMARK(870702, RequestForm.FRAMED),
    UPDATE_BOOKMARK(870703, RequestForm.FRAMED),
    DELETE_BOOKMARKS(870705, RequestForm.FRAMED),
    // Applications
    LIST_APPLICATIONS(870802, RequestForm.BARE),
    RUN_APPLICATION(870805, RequestForm.RUN_APPLICATION),
    // Settings
    READ_SETTINGS(871501, RequestForm.BARE),
    WRITE_SETTING(871502, RequestForm.FRAMED),
    // Cleaner
    SCAN_FOR_CLEANING(871601, RequestForm.BARE),
    CLEAN(871602, RequestForm.CLEAN),
    // Auto-start
    LIST_AUTO_START(871701, RequestForm.BARE),
    // Tasks
    LIST_PROCESSES(871801, RequestForm.BARE),
    END_PROCESSES(871804, RequestForm.FRAMED),
    FREE_MEMORY(871806, RequestForm.BARE);

    private static final Map<Integer, AgentCommand> BY_CODE = new HashMap<>();

    static {
        for (AgentCommand command : values()) {
            BY_CODE.put(command.code, command);
        }
    }

    /** Sent as u32. */
    public final int code;

    final RequestForm form;

    AgentCommand(int code, RequestForm form) {
        this.code = code;
        this.form = form;
    }

    /** The command with this code; null for a code outside the table. */
    static AgentCommand of(int code) {
        return BY_CODE.get(code);
    }
}
