package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;
import static org.junit.Assume.assumeTrue;

import android.content.ContentProvider;
import android.content.ContentValues;
import android.database.Cursor;
import android.database.MatrixCursor;
import android.net.Uri;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Asked;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.CommandTable;

import org.junit.Test;
import org.robolectric.annotation.Config;

import java.util.concurrent.TimeUnit;

/** Ten thousand contacts with a photo each, from a phone whose own database takes no time. */
@Config(sdk = {19, 34})
public class ContactLoadTest extends OnPhones {
    private static final int CONTACTS = 10 * 1000;
    private static final int PHOTO_BYTES = 20 * 1000;
    private static final long MEGABYTE = 1024 * 1024;

    /** Makes a contact for each number, and a photo when it is asked for. */
    private static final class Book extends ContentProvider {
        private final Runnable halfWay;
        private int photos;

        Book(Runnable halfWay) {
            this.halfWay = halfWay;
        }

        @Override
        public boolean onCreate() {
            return true;
        }

        @Override
        public Cursor query(
                Uri uri, String[] columns, String where, String[] arguments, String order) {
            MatrixCursor rows = new MatrixCursor(columns);
            if (uri.getPath().equals("/contacts")) {
                for (long id = 1; id <= CONTACTS; ++id) {
                    rows.addRow(new Object[] {id, "name", 0, 0L, id});
                }
            } else if (where.startsWith("_id IN (")) {
                for (String id : where.substring(8, where.length() - 1).split(",")) {
                    rows.addRow(new Object[] {Long.parseLong(id), new byte[PHOTO_BYTES]});
                    if (++photos == CONTACTS / 2) {
                        halfWay.run();
                    }
                }
            }
            return rows;
        }

        @Override
        public Uri insert(Uri uri, ContentValues values) {
            return null;
        }

        @Override
        public int update(Uri uri, ContentValues values, String where, String[] arguments) {
            return 0;
        }

        @Override
        public int delete(Uri uri, String where, String[] arguments) {
            return 0;
        }

        @Override
        public String getType(Uri uri) {
            return null;
        }
    }

    /** Cursors keep their rows until their finalizers have run. */
    private static long usedBytes() {
        long least = Long.MAX_VALUE;
        for (int i = 0; i < 3; ++i) {
            System.gc();
            System.runFinalization();
            Runtime runtime = Runtime.getRuntime();
            least = Math.min(least, runtime.totalMemory() - runtime.freeMemory());
        }
        return least;
    }

    private static long list() throws Exception {
        return Asked.replyBytes(
                new CommandTable(new ContactCommands(phone())),
                Bytes.u32(AgentCommand.LIST_CONTACTS.code));
    }

    private static long expectedBytes() {
        int record = 8 + 8 + 4 + "name".length() + 4 + 4 + 8 + 4 + 4 + 8 + PHOTO_BYTES;
        return 8 + (long) CONTACTS * record;
    }

    @Test
    public void costsThePhoneLessThan32Megabytes() throws Exception {
        long[] halfWay = {0};
        install("com.android.contacts", new Book(() -> halfWay[0] = usedBytes()));
        long before = usedBytes();
        assertEquals(expectedBytes(), list());
        long cost = halfWay[0] - before;
        assertTrue(cost / MEGABYTE + " MB", cost < 32 * MEGABYTE);
    }

    /**
     * By itself and by hand (JAVA_TOOL_OPTIONS=-Dagent.speed=true), as other programs of this
     * computer take their share.
     */
    @Test
    public void goesAt50MegabytesASecond() throws Exception {
        assumeTrue(Boolean.getBoolean("agent.speed"));
        install("com.android.contacts", new Book(() -> {}));
        long best = 0;
        for (int i = 0; i < 3; ++i) {
            long start = System.nanoTime();
            long bytes = list();
            long millis = TimeUnit.NANOSECONDS.toMillis(System.nanoTime() - start);
            best = Math.max(best, bytes * 1000 / MEGABYTE / Math.max(1, millis));
        }
        System.err.println(best + " MB/s");
        assertTrue(best + " MB/s", best >= 50);
    }
}
