package com.quorvi.Quorvi.wire;

import java.io.ByteArrayOutputStream;
import java.io.Closeable;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.io.RandomAccessFile;

/**
 * Keeps a payload until its length is known, which the wire wants in front: in memory while it is
 * small, in a file of the phone's cache beyond that, so that ten thousand photos cost the phone no
 * memory. The file has no name once it is open, so that nothing of the reply stays when the phone ends
 * the agent in the middle. For one thread; close() gives the file's room back.
 */
final class Spool implements Closeable {
    /** What is kept in memory. */
    static final int MEMORY_BYTES = 1024 * 1024;

    private static final int BLOCK_BYTES = 64 * 1024;

    private final File folder;
    private ByteArrayOutputStream memory = new ByteArrayOutputStream();
    private RandomAccessFile file;
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
        file.seek(0);
        byte[] block = new byte[BLOCK_BYTES];
        InputStream in = new FileInputStream(file.getFD());
        for (int count = in.read(block); count > 0; count = in.read(block)) {
            out.write(block, 0, count);
            progress.moved();
        }
    }

    private void flushToFile() throws IOException {
        if (file == null) {
            File named = File.createTempFile("reply", null, folder);
            try {
                file = new RandomAccessFile(named, "rw");
            } finally {
                named.delete();
            }
            fileOutput = new FileOutputStream(file.getFD());
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
            file.close();
        } catch (IOException e) {
            // It is closed for us all the same.
        }
    }

    /** Is told that bytes have gone out. */
    interface Progress {
        void moved();
    }
}
