package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import android.content.ContentResolver;
import android.database.Cursor;
import android.provider.ContactsContract.CommonDataKinds.Photo;
import android.provider.ContactsContract.Data;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Asked;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.CommandTable;

import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;
import org.robolectric.annotation.Config;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Files;
import java.util.Locale;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.function.LongConsumer;

/** Ten thousand contacts with a photo each, from a phone whose own database takes no time. */
@Config(sdk = {23, 34})
public class ContactLoadTest extends OnPhones {
    private static final long MEGABYTE = 1024 * 1024;
    private static final long MAX_COST = 32 * MEGABYTE;
    private static final long MAX_LOOK_NANOS = TimeUnit.SECONDS.toNanos(30);
    private static final int ROUNDS = 3;
    private static final int PHOTOS_AT_ONCE = 100;

    /** Of the processor's time, to what copying the same bytes takes. */
    private static final double MAX_RATIO = 2;

    private static volatile byte[] garbage;

    @Rule
    public final TemporaryFolder folder = new TemporaryFolder();

    /** Counts what is written and keeps none of it. */
    private static final class Sink extends OutputStream {
        private final LongConsumer watch;
        private long bytes;

        Sink(LongConsumer watch) {
            this.watch = watch;
        }

        @Override
        public void write(int one) {
            ++bytes;
        }

        @Override
        public void write(byte[] all, int offset, int count) {
            bytes += count;
            watch.accept(bytes);
        }
    }

    private static long list(LongConsumer watch) throws Exception {
        Sink sink = new Sink(watch);
        Asked.replyTo(
                sink,
                new CommandTable(new ContactCommands(phone())),
                Bytes.u32(AgentCommand.LIST_CONTACTS.code));
        return sink.bytes;
    }

    private static long expectedBytes() {
        int record =
                8 + 8 + 4 + LargeBook.NAME.length() + 4 + 4 + 8 + 4 + 4 + 8 + LargeBook.PHOTO_BYTES;
        return 8 + (long) LargeBook.CONTACTS * record;
    }

    /** Makes the collector run, also one that is deaf to gc(), and waits until finalizers have. */
    private static long usedBytes() {
        AtomicBoolean finalized = new AtomicBoolean();
        leaveBehind(finalized);
        while (!finalized.get()) {
            garbage = new byte[(int) MEGABYTE];
            System.gc();
            System.runFinalization();
        }
        Runtime runtime = Runtime.getRuntime();
        return runtime.totalMemory() - runtime.freeMemory();
    }

    private static void leaveBehind(AtomicBoolean finalized) {
        new Object() {
            @Override
            protected void finalize() {
                finalized.set(true);
            }
        };
    }

    private static long usedBefore() {
        long least = Long.MAX_VALUE;
        for (int round = 0; round < ROUNDS; ++round) {
            least = Math.min(least, usedBytes());
        }
        return least;
    }

    /**
     * What is used more than before, looked at until that is little. Cursors keep their rows until
     * their finalizers have run, and what these let go goes with one of the next collections: only
     * what is held never goes.
     */
    private static long costSince(long before) {
        long start = System.nanoTime();
        long least = Long.MAX_VALUE;
        do {
            least = Math.min(least, usedBytes() - before);
        } while (least >= MAX_COST && System.nanoTime() - start < MAX_LOOK_NANOS);
        return least;
    }

    /** Looks at the costs whenever so much more of the list has been read, and has been sent. */
    private static final class Costs {
        static final int LOOKS = 10;

        private long before;
        private long most;
        private int read;
        private int sent;

        void look() {
            most = Math.max(most, costSince(before));
        }

        void haveRead(int photos) {
            if (photos >= (read + 1) * (LargeBook.CONTACTS / LOOKS)) {
                ++read;
                look();
            }
        }

        void haveSent(long bytes) {
            if (bytes >= (sent + 1) * (expectedBytes() / LOOKS)) {
                ++sent;
                look();
            }
        }
    }

    @Test
    public void costsThePhoneLessThan32Megabytes() throws Exception {
        Costs costs = new Costs();
        install("com.android.contacts", new LargeBook(costs::haveRead));
        costs.before = usedBefore();
        assertEquals(expectedBytes(), list(costs::haveSent));
        assertEquals(Costs.LOOKS, costs.read);
        assertEquals(Costs.LOOKS, costs.sent);
        assertTrue(costs.most / MEGABYTE + " MB", costs.most < MAX_COST);
    }

    /**
     * The least that there is to do: the same photos out of the same database into a file, as their
     * length goes in front of them, and out of it.
     */
    private void copyBare() throws IOException {
        File file = folder.newFile();
        Sink sink = new Sink(sent -> {});
        try (OutputStream out = new FileOutputStream(file)) {
            ContentResolver resolver = phone().getContentResolver();
            for (int first = 1; first <= LargeBook.CONTACTS; first += PHOTOS_AT_ONCE) {
                StringBuilder some = new StringBuilder().append(first);
                for (int id = first + 1; id < first + PHOTOS_AT_ONCE; ++id) {
                    some.append(',').append(id);
                }
                try (Cursor photos =
                        resolver.query(
                                Data.CONTENT_URI,
                                new String[] {Data._ID, Photo.PHOTO},
                                Data._ID + " IN (" + some + ")",
                                null,
                                null)) {
                    while (photos.moveToNext()) {
                        out.write(photos.getBlob(1));
                    }
                }
            }
        }
        byte[] block = new byte[64 * 1024];
        try (InputStream in = Files.newInputStream(file.toPath())) {
            for (int count = in.read(block); count > 0; count = in.read(block)) {
                sink.write(block, 0, count);
            }
        }
        assertEquals((long) LargeBook.CONTACTS * LargeBook.PHOTO_BYTES, sink.bytes);
        assertTrue(file.delete());
    }

    private interface Work {
        void run() throws Exception;
    }

    /** Of this thread, whatever other programs of this computer take meanwhile. */
    private static long processorNanos(Work work) throws Exception {
        ThreadMXBean threads = ManagementFactory.getThreadMXBean();
        long before = threads.getCurrentThreadCpuTime();
        work.run();
        return threads.getCurrentThreadCpuTime() - before;
    }

    /** 50 MB/s where the processor is the agent's alone, and little more than a copy anywhere. */
    @Test
    public void costsLittleMoreTimeThanACopyOfTheSameBytes() throws Exception {
        install("com.android.contacts", new LargeBook());
        long listed = Long.MAX_VALUE;
        long copied = Long.MAX_VALUE;
        long passed = Long.MAX_VALUE;
        for (int round = 0; round < ROUNDS; ++round) {
            copied = Math.min(copied, processorNanos(this::copyBare));
            long start = System.nanoTime();
            listed = Math.min(listed, processorNanos(() -> list(sent -> {})));
            passed = Math.min(passed, System.nanoTime() - start);
        }
        double ratio = (double) listed / copied;
        String speed =
                String.format(
                        Locale.ROOT,
                        "Speed: contacts listed at %d MB/s, %d MB/s of the processor's time, which is"
                                + " %.2f of a copy's",
                        megabytesASecond(passed), megabytesASecond(listed), ratio);
        System.err.println(speed);
        assertTrue(speed, ratio < MAX_RATIO);
        assertTrue(speed, megabytesASecond(listed) >= 50);
    }

    private static long megabytesASecond(long nanos) {
        return expectedBytes() * TimeUnit.SECONDS.toNanos(1) / MEGABYTE / nanos;
    }
}
