package com.quorvi.Quorvi.wire;

import java.util.EnumMap;
import java.util.Map;

/** Of every command one request that the agent takes. */
public final class WholeRequests {
    private static final byte[] NO = Bytes.u32(0);
    private static final byte[] YES = Bytes.u32(1);
    private static final byte[] ID = Bytes.u32(101);

    /** Six kinds of which a contact has none: groups, addresses and so on. */
    private static final byte[] NO_OTHERS = new byte[6 * 4];

    private static final byte[] ALARM =
            Bytes.of(
                    Bytes.u32(6), // hour
                    Bytes.u32(40), // minute
                    Bytes.u32(0x1F), // days
                    Bytes.u64(0), // time
                    YES, // enabled
                    NO, // vibrates
                    Bytes.text("起床"),
                    Bytes.text("content://settings/system/alarm_alert"));

    private WholeRequests() {}

    public static Map<AgentCommand, byte[]> all() {
        Map<AgentCommand, byte[]> all = new EnumMap<>(AgentCommand.class);
        for (AgentCommand command : AgentCommand.values()) {
            all.put(command, of(command));
        }
        return all;
    }

    private static byte[] of(AgentCommand command) {
        switch (command) {
            case READ_CONTACT:
            case DELETE_CONVERSATION:
                return Bytes.frame(command, 1, ID);
            case DELETE_CONTACTS:
            case DELETE_GROUPS:
            case DELETE_CALLS:
            case DELETE_ALARMS:
            case DELETE_BOOKMARKS:
                return Bytes.frame(command, 2, ID, Bytes.u32(0xFFFFFFFFL));
            case DELETE_ALL_CALLS:
                return Bytes.frame(command, 1);
            case ADD_CONTACT:
                return Bytes.frame(command, 1, YES, NO, contact(NO));
            case UPDATE_CONTACT:
                return Bytes.frame(command, 1, ID, YES, NO, contact(Bytes.of(NO, NO)));
            case ADD_GROUP:
            case LIST_DIRECTORY:
                return Bytes.frame(command, 1, Bytes.text("/mnt"));
            case RENAME_GROUP:
                return Bytes.frame(command, 1, ID, Bytes.text("同事"));
            case READ_CONVERSATION:
                return Bytes.of(Bytes.u32(command.code), ID);
            case SEND_MESSAGE:
                return Bytes.frame(
                        command, 2, Bytes.text("10086"), Bytes.text("95588"), Bytes.text("七点见"));
            case ADD_ALARM:
                return Bytes.frame(command, 1, ALARM);
            case UPDATE_ALARM:
                return Bytes.frame(command, 1, ID, ALARM);
            case ADD_BOOKMARK:
                return Bytes.frame(command, 1, bookmark());
            case UPDATE_BOOKMARK:
                return Bytes.frame(command, 1, ID, bookmark());
            case RUN_APPLICATION:
                return Bytes.of(
                        Bytes.u32(command.code), YES, Bytes.u32(21), Bytes.text("com.x"));
            case WRITE_SETTING:
                return Bytes.frame(command, 1, Bytes.u32(7), YES);
            case CLEAN:
                return Bytes.frame(command, 1, 1, 1, 1, Bytes.text("com.x"));
            case END_PROCESSES:
                return Bytes.frame(command, 2, Bytes.text("com.x"), Bytes.text("com.y"));
            default:
                return Bytes.u32(command.code);
        }
    }

    /** A name, no nickname, no note, one number. */
    private static byte[] contact(byte[] operationAndType) {
        byte[] row = Bytes.of(Bytes.u64(-1), operationAndType);
        return Bytes.of(
                YES, row, Bytes.text("张三"), NO, NO,
                YES, row, Bytes.text("110"), NO_OTHERS);
    }

    private static byte[] bookmark() {
        return Bytes.of(Bytes.u32(7), Bytes.text("天气"), Bytes.text("http://weather.example/"));
    }
}
