package com.quorvi.Quorvi.wire;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.io.OutputStream;

/** Asks an agent's table over streams, as a connection does. */
public final class Asked {
    static final AgentConnection.Watch NOBODY_WATCHES = new AgentConnection.Watch() {
        @Override
        public void moved() {}

        @Override
        public void answering() {}
    };

    private Asked() {}

    /** The whole reply to a whole request. */
    public static byte[] reply(CommandTable table, byte[] request)
            throws IOException, MalformedRequest {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        new AgentConnection(table, temporary())
                .serve(new ByteArrayInputStream(request), out, NOBODY_WATCHES);
        return out.toByteArray();
    }

    /** Asks, and counts the bytes of the reply without keeping them. */
    public static long replyBytes(CommandTable table, byte[] request)
            throws IOException, MalformedRequest {
        final long[] count = {0};
        OutputStream out = new OutputStream() {
            @Override
            public void write(int one) {
                ++count[0];
            }

            @Override
            public void write(byte[] bytes, int offset, int length) {
                count[0] += length;
            }
        };
        new AgentConnection(table, temporary())
                .serve(new ByteArrayInputStream(request), out, NOBODY_WATCHES);
        return count[0];
    }

    static File temporary() {
        return new File(System.getProperty("java.io.tmpdir"));
    }
}
