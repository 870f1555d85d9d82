package com.quorvi.Quorvi.wire;

import java.io.ByteArrayOutputStream;
import java.io.Closeable;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;

/**
 * Keeps a payload until its length is known, which the wire wants in front: in memory while it is
 * small, in a file of the phone's cache beyond that, so that ten thousand photos cost the phone no
 * memory. For one thread; close() removes the file.
 */
final class Spool implements Closeable {
    /** What is kept in memory. */
    static final int MEMORY_BYTES = 1024 * 1024;

    private static final int BLOCK_BYTES = 64 * 1024;

    private final File folder;
    private ByteArrayOutputStream memory = new ByteArrayOutputStream();
    private File file;
    private OutputStream fileOutput;
    private long length;

    /** @param folder where the file goes */
    Spool(File folder) {
        this.folder = folder;
    }

    long length() {
        return length;
    }

    void write(byte[] bytes, int offset, int count) throws IOException {
        memory.write(bytes, offset, count);
        length += count;
        if (memory.size() > (file == null ? MEMORY_BYTES : BLOCK_BYTES)) {
            flushToFile();
        }
    }

    /** Sends all that was written, block by block; tells {@code progress} behind each. */
    void copyTo(OutputStream out, Progress progress) throws IOException {
        if (file == null) {
            byte[] all = memory.toByteArray();
            for (int at = 0; at < all.length; at += BLOCK_BYTES) {
                out.write(all, at, Math.min(BLOCK_BYTES, all.length - at));
                progress.moved();
            }
            return;
        }
        flushToFile();
        byte[] block = new byte[BLOCK_BYTES];
        InputStream in = new FileInputStream(file);
        try {
            for (int count = in.read(block); count > 0; count = in.read(block)) {
                out.write(block, 0, count);
                progress.moved();
            }
        } finally {
            in.close();
        }
    }

    private void flushToFile() throws IOException {
        if (file == null) {
            file = File.createTempFile("reply", null, folder);
            fileOutput = new FileOutputStream(file);
            byte[] sofar = memory.toByteArray();
            memory = new ByteArrayOutputStream(2 * BLOCK_BYTES);
            fileOutput.write(sofar);
        } else {
            memory.writeTo(fileOutput);
            memory.reset();
        }
    }

    @Override
    public void close() {
        if (file == null) {
            return;
        }
        try {
            fileOutput.close();
        } catch (IOException e) {
            // The file goes all the same.
        }
        file.delete();
    }

    /** Is told that bytes have gone out. */
    interface Progress {
        void moved();
    }
}
