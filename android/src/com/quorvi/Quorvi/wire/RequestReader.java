package com.quorvi.Quorvi.wire;

/** Reads a request's fields one behind the other, big-endian, never past the request's end. */
public final class RequestReader {
    private final byte[] request;
    private int cursor;

    RequestReader(byte[] request, int cursor) {
        this.request = request;
        this.cursor = cursor;
    }

    public int uint8() throws MalformedRequest {
        return request[take(1)] & 0xFF;
    }

    /** The four bytes as they are: what is unsigned on the wire may be negative here. */
    public int uint32() throws MalformedRequest {
        return Wire.readUInt32(request, take(4));
    }

    public long uint64() throws MalformedRequest {
        int at = take(8);
        return (long) Wire.readUInt32(request, at) << 32
                | Wire.readUInt32(request, at + 4) & 0xFFFFFFFFL;
    }

    /** An id, of which the PC knows the low 32 bits. */
    public long id() throws MalformedRequest {
        return uint32() & 0xFFFFFFFFL;
    }

    /** A u32 that must be 0 or 1. */
    public boolean flag() throws MalformedRequest {
        int value = uint32();
        if (value != 0 && value != 1) {
            throw new MalformedRequest("a flag of " + value);
        }
        return value == 1;
    }

    /** A u32 length and as many bytes of UTF-8; bytes that are none become U+FFFD. */
    public String text() throws MalformedRequest {
        int length = uint32();
        int at = take(length);
        return new String(request, at, length, Wire.UTF_8);
    }

    /**
     * Says that all fields were read. Whoever changes something calls this first, so that a request
     * that is longer than its fields changes nothing.
     */
    public void end() throws MalformedRequest {
        if (cursor != request.length) {
            throw new MalformedRequest((request.length - cursor) + " bytes behind the last field");
        }
    }

    private int take(int count) throws MalformedRequest {
        if (count < 0 || count > request.length - cursor) {
            throw new MalformedRequest("it ends before its fields do");
        }
        int at = cursor;
        cursor += count;
        return at;
    }
}
