package com.quorvi.Quorvi.wire;

import java.io.Closeable;
import java.io.File;
import java.io.IOException;
import java.io.OutputStream;

/**
 * Writes a reply: either a payload, or one word. A reply to which nothing was added says that there
 * is no data. For one thread.
 */
public final class ReplyWriter implements Closeable {
    private static final byte[] PADDING = {0};

    private final Spool payload;
    private final byte[] scratch = new byte[8];
    private Integer word;

    ReplyWriter(File folder) {
        payload = new Spool(folder);
    }

    public ReplyWriter uint32(int value) throws IOException {
        Wire.packUInt32(value, scratch, 0);
        return add(scratch, 4);
    }

    public ReplyWriter uint64(long value) throws IOException {
        Wire.packUInt32((int) (value >>> 32), scratch, 0);
        Wire.packUInt32((int) value, scratch, 4);
        return add(scratch, 8);
    }

    /** 1 or 0. */
    public ReplyWriter flag(boolean value) throws IOException {
        return uint32(value ? 1 : 0);
    }

    /** A u32 length and UTF-8; null, of which the phone's databases are full, is an empty text. */
    public ReplyWriter text(String text) throws IOException {
        byte[] bytes = (text == null ? "" : text).getBytes(Wire.UTF_8);
        return uint32(bytes.length).raw(bytes);
    }

    public ReplyWriter absentText() throws IOException {
        return uint32(Wire.ABSENT_MARK);
    }

    /** The bytes alone; their length is the caller's field. */
    public ReplyWriter raw(byte[] bytes) throws IOException {
        return add(bytes, bytes.length);
    }

    /** A u64 length and the bytes; null is a picture that there is not, of length 0. */
    public ReplyWriter picture(byte[] bytes) throws IOException {
        uint64(bytes == null ? 0 : bytes.length);
        return bytes == null ? this : raw(bytes);
    }

    /** Whether there is a picture, and if so a u64 length and the bytes. */
    public ReplyWriter optionalPicture(byte[] bytes) throws IOException {
        flag(bytes != null);
        return bytes == null ? this : picture(bytes);
    }

    /** The AcknowledgeWord; the reply has no payload then. */
    public void word(int value) {
        word = value;
    }

    /** Whether nothing was added yet. */
    public boolean isEmpty() {
        return word == null && payload.length() == 0;
    }

    void sendTo(OutputStream out, Spool.Progress progress) throws IOException {
        byte[] first = new byte[Wire.WORD_BYTES];
        if (word == null && isLengthReserved(payload.length())) {
            // One byte more is no record more: readers end a run that close to its end.
            payload.write(PADDING, 0, 1);
        }
        Wire.packUInt32(firstWord(), first, 0);
        out.write(first);
        if (word == null) {
            payload.copyTo(out, progress);
        }
        out.flush();
    }

    /** Whether a payload of this length would be read as one that there is not. */
    static boolean isLengthReserved(long length) {
        return length == Wire.NO_DATA_MARK;
    }

    @Override
    public void close() {
        payload.close();
    }

    private int firstWord() throws IOException {
        if (word != null) {
            return word;
        }
        if (payload.length() > Integer.MAX_VALUE) {
            throw new IOException("a reply of " + payload.length() + " bytes");
        }
        return payload.length() == 0 ? Wire.NO_DATA_MARK : (int) payload.length();
    }

    private ReplyWriter add(byte[] bytes, int count) throws IOException {
        if (payload.length() == 0) {
            byte[] leading = new byte[Wire.WORD_BYTES];
            Wire.packUInt32(Wire.LEADING_WORD, leading, 0);
            payload.write(leading, 0, leading.length);
        }
        payload.write(bytes, 0, count);
        return this;
    }
}
