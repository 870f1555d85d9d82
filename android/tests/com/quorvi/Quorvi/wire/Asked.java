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
        replyTo(out, table, request);
        return out.toByteArray();
    }

    public static void replyTo(OutputStream out, CommandTable table, byte[] request)
            throws IOException, MalformedRequest {
        new AgentConnection(table, temporary())
                .serve(new ByteArrayInputStream(request), out, NOBODY_WATCHES);
    }

    static File temporary() {
        return new File(System.getProperty("java.io.tmpdir"));
    }
}
