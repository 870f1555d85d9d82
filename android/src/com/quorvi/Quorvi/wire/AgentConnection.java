package com.quorvi.Quorvi.wire;

import java.io.EOFException;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.util.Arrays;

/** One connection to the agent: takes one request, answers it. */
final class AgentConnection {
    private static final int BLOCK_BYTES = 4096;

    /** Bytes behind the request that are looked at, so that closing doesn't take the reply back. */
    private static final int MAX_UNASKED_BYTES = 64 * 1024;

    private final CommandTable table;
    private final File spoolFolder;

    AgentConnection(CommandTable table, File spoolFolder) {
        this.table = table;
        this.spoolFolder = spoolFolder;
    }

    /**
     * Reads one request and writes its reply; closes neither stream.
     *
     * @param watch is told of each step, and may close the streams meanwhile
     * @return the command that was answered
     */
    AgentCommand serve(InputStream in, OutputStream out, Watch watch)
            throws IOException, MalformedRequest {
        byte[] code = readUpTo(in, new byte[0], Wire.WORD_BYTES);
        AgentCommand command = AgentCommand.of(Wire.readUInt32(code, 0));
        CommandGroup group = command == null ? null : table.groupOf(command);
        if (group == null) {
            throw new MalformedRequest(
                    "no command " + (Wire.readUInt32(code, 0) & 0xFFFFFFFFL));
        }
        byte[] header = readUpTo(in, code, command.form.headerBytes);
        byte[] request = readUpTo(in, header, command.form.lengthOf(header));
        watch.answering();
        ReplyWriter reply = new ReplyWriter(spoolFolder);
        try {
            group.answer(
                    command,
                    new Exchange(
                            command.form.fieldsOf(request),
                            command.form.countOf(request),
                            reply));
            watch.moved();
            reply.sendTo(out, watch);
        } finally {
            reply.close();
        }
        passOverUnasked(in);
        return command;
    }

    /**
     * Goes on to {@code total} bytes. Memory grows with what has come, not with what was claimed.
     */
    private static byte[] readUpTo(InputStream in, byte[] sofar, int total) throws IOException {
        byte[] bytes = sofar;
        int have = sofar.length;
        while (have < total) {
            if (have == bytes.length) {
                bytes = Arrays.copyOf(bytes, Math.min(total, Math.max(2 * have, BLOCK_BYTES)));
            }
            int count = in.read(bytes, have, bytes.length - have);
            if (count < 0) {
                throw new EOFException("the request ends after " + have + " of " + total + " bytes");
            }
            have += count;
        }
        return bytes;
    }

    /**
     * Closing a socket of which something is unread resets it, and the peer loses the reply. A
     * connection that ends meanwhile was answered all the same.
     */
    private static void passOverUnasked(InputStream in) {
        byte[] block = new byte[BLOCK_BYTES];
        int passed = 0;
        try {
            while (passed < MAX_UNASKED_BYTES && in.available() > 0) {
                int count = in.read(block);
                if (count < 0) {
                    return;
                }
                passed += count;
            }
        } catch (IOException e) {
            // Nothing is left to pass over.
        }
    }

    /** Is told how far a connection is, to end one that stands still. */
    interface Watch extends Spool.Progress {
        /** The request is whole: from here to the next moved() it's the agent that takes its time. */
        void answering();
    }
}
