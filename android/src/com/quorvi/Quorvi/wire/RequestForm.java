package com.quorvi.Quorvi.wire;

/** How a request's end is known, and where its items begin. */
enum RequestForm {
    /** code */
    BARE(4, 0, 0, 4),
    /** code, total, item count, items */
    FRAMED(12, 4, 8, 12),
    /** code, conversation id: 8 bytes, of which the id is the one field */
    CONVERSATION(8, 0, 0, 4),
    /** code, item count, total, name: the count in front of the total */
    RUN_APPLICATION(12, 8, 4, 12),
    /** code, total, count of names, three flag bytes, names */
    CLEAN(12, 4, 8, 12);

    /** The largest request taken; the longest that the suite sends are some ten thousand ids. */
    static final int MAX_REQUEST_BYTES = 4 * 1024 * 1024;

    /** Bytes after which the length of the whole request is known. */
    final int headerBytes;

    private final int totalOffset; // 0: the header is the whole request
    private final int countOffset; // 0: there is no count
    private final int itemsOffset;

    RequestForm(int headerBytes, int totalOffset, int countOffset, int itemsOffset) {
        this.headerBytes = headerBytes;
        this.totalOffset = totalOffset;
        this.countOffset = countOffset;
        this.itemsOffset = itemsOffset;
    }

    /** The length of the whole request in bytes, told from its header. */
    int lengthOf(byte[] header) throws MalformedRequest {
        if (totalOffset == 0) {
            return headerBytes;
        }
        int total = Wire.readUInt32(header, totalOffset);
        if (total < headerBytes || total > MAX_REQUEST_BYTES) {
            throw new MalformedRequest("a total of " + (total & 0xFFFFFFFFL) + " bytes");
        }
        return total;
    }

    /** The fields of a whole request, behind what frames them. */
    RequestReader fieldsOf(byte[] request) {
        return new RequestReader(request, itemsOffset);
    }

    /** The item count of a whole request, unsigned; 0 where its form has none. */
    long countOf(byte[] request) {
        return countOffset == 0 ? 0 : Wire.readUInt32(request, countOffset) & 0xFFFFFFFFL;
    }
}
