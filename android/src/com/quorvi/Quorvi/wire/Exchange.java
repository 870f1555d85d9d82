package com.quorvi.Quorvi.wire;

/** What answers a command is given: the request to read, the reply to write. */
public final class Exchange {
    /** What most commands that change something acknowledge; no reader looks at it. */
    private static final int DONE = 1;

    private static final int REFUSED = 0;

    public final RequestReader request;

    /** The item count of a frame that has one. No more of them need follow: read until it throws. */
    public final long items;

    public final ReplyWriter reply;

    Exchange(RequestReader request, long items, ReplyWriter reply) {
        this.request = request;
        this.items = items;
        this.reply = reply;
    }

    /** For a command on a single object: any item count but 1 is malformed. */
    public void expectOneItem() throws MalformedRequest {
        if (items != 1) {
            throw new MalformedRequest("item count " + items + " for a single object");
        }
    }

    /** The items of a command on several objects, each of which is named by its id. */
    public long[] ids() throws MalformedRequest {
        if (items > RequestForm.MAX_REQUEST_BYTES / Wire.WORD_BYTES) {
            throw new MalformedRequest("item count " + items);
        }
        long[] ids = new long[(int) items];
        for (int i = 0; i < ids.length; ++i) {
            ids[i] = request.id();
        }
        request.end();
        return ids;
    }

    public void done() {
        reply.word(DONE);
    }

    public void doneOrRefused(boolean done) {
        reply.word(done ? DONE : REFUSED);
    }
}
