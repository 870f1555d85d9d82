package com.quorvi.Quorvi.wire;

import java.io.ByteArrayOutputStream;
import java.nio.charset.StandardCharsets;

/** Byte literals: integers are bytes, texts are their UTF-8. */
public final class Bytes {
    private Bytes() {}

    public static byte[] of(Object... parts) {
        ByteArrayOutputStream all = new ByteArrayOutputStream();
        for (Object part : parts) {
            if (part instanceof Integer) {
                all.write((Integer) part);
            } else {
                byte[] bytes =
                        part instanceof byte[]
                                ? (byte[]) part
                                : ((String) part).getBytes(StandardCharsets.UTF_8);
                all.write(bytes, 0, bytes.length);
            }
        }
        return all.toByteArray();
    }

    public static byte[] u32(long value) {
        byte[] bytes = new byte[4];
        Wire.packUInt32((int) value, bytes, 0);
        return bytes;
    }

    public static byte[] u64(long value) {
        return of(u32(value >>> 32), u32(value));
    }

    /** A u32 length and the text. */
    public static byte[] text(String text) {
        return of(u32(of(text).length), text);
    }

    /** Code, total, item count, items. */
    public static byte[] frame(AgentCommand command, int items, Object... fields) {
        byte[] body = of(fields);
        return of(u32(command.code), u32(12 + body.length), u32(items), body);
    }

    /** What a payload reply looks like: length, leading word, fields. */
    public static byte[] payload(Object... fields) {
        byte[] body = of(fields);
        return of(u32(4 + body.length), u32(Wire.LEADING_WORD), body);
    }
}
