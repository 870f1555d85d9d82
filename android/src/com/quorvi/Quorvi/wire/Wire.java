package com.quorvi.Quorvi.wire;

import java.nio.charset.Charset;

/** What both ends of the wire agree on: its numbers, and how an integer lies in bytes. */
public final class Wire {
    /** The TCP port of the agent. */
    public static final int AGENT_PORT = 50505;

    /** Stands for a reply's length: the agent has nothing to return, and no payload follows. */
    public static final int NO_DATA_MARK = 0x075BCD17;

    /** Stands for a string's length inside a payload: the field has no value. */
    public static final int ABSENT_MARK = 0x0DF0ADBA;

    /** The word in front of a payload's fields, which no reader looks at. */
    static final int LEADING_WORD = 0x51564C57;

    static final int WORD_BYTES = 4;

    /** StandardCharsets came with Android 4.4. */
    static final Charset UTF_8 = Charset.forName("UTF-8");

    private Wire() {}

    /** Writes the value's four bytes from {@code at} on, the most significant first. */
    static void packUInt32(int value, byte[] out, int at) {
        out[at] = (byte) (value >>> 24);
        out[at + 1] = (byte) (value >>> 16);
        out[at + 2] = (byte) (value >>> 8);
        out[at + 3] = (byte) value;
    }

    static int readUInt32(byte[] in, int at) {
        return (in[at] & 0xFF) << 24
                | (in[at + 1] & 0xFF) << 16
                | (in[at + 2] & 0xFF) << 8
                | in[at + 3] & 0xFF;
    }
}
