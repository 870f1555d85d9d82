package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import android.database.MatrixCursor;
import android.database.sqlite.SQLiteException;

import org.junit.After;
import org.junit.Test;
import org.robolectric.annotation.Config;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

@Config(sdk = {19, 34})
public class RowsTest extends OnPhones {
    /** Five rows, 0 to 4, some of which the phone cannot hand over any more. */
    static class Shrinking extends MatrixCursor {
        int gone = 5; // from here on rows were deleted since they were counted
        int tooLarge = -1;
        int broken = -1;
        int lastOfPhone = 5; // from here on the phone's database does not answer

        Shrinking() {
            super(new String[] {"_id"});
            for (int id = 0; id < 5; ++id) {
                addRow(new Object[] {id});
            }
        }

        @Override
        public boolean onMove(int from, int to) {
            if (to == tooLarge) {
                throw new SQLiteException("Row too big to fit into CursorWindow requiredPos=3");
            }
            if (to == broken) {
                throw new SQLiteException("disk I/O error");
            }
            return to < lastOfPhone;
        }

        @Override
        public boolean isNull(int column) {
            if (getPosition() >= gone) {
                throw new IllegalStateException("Couldn't read row " + getPosition() + ", col 0");
            }
            return super.isNull(column);
        }
    }

    private final Shrinking phone = new Shrinking();

    @After
    public void close() {
        phone.close();
    }

    private List<Integer> read() {
        List<Integer> ids = new ArrayList<>();
        Rows rows = new Rows(phone);
        while (rows.moveToNext()) {
            ids.add(rows.getInt(0));
        }
        assertTrue(rows.isAfterLast());
        return ids;
    }

    @Test
    public void everyRowIsRead() {
        assertEquals(Arrays.asList(0, 1, 2, 3, 4), read());
    }

    @Test
    public void rowsThatWereDeletedSinceTheyWereCountedAreLeftOut() {
        phone.gone = 3;
        assertEquals(Arrays.asList(0, 1, 2), read());
        phone.gone = 0;
        assertEquals(Collections.emptyList(), read());
    }

    @Test
    public void aRowThatNoWindowHoldsIsPassedOverAndTheOthersAreRead() {
        phone.tooLarge = 2;
        assertEquals(Arrays.asList(0, 1, 3, 4), read());
    }

    @Test
    public void aDatabaseThatFailsIsNotTakenForAShortList() {
        phone.broken = 2;
        assertThrows(SQLiteException.class, this::read);
    }

    @Test
    public void aDatabaseThatDiesIsNotTakenForAShortList() {
        phone.lastOfPhone = 2;
        assertThrows(IllegalStateException.class, this::read);
    }

    @Test
    public void theFirstRowIsTheFirstThatIsThere() {
        Rows rows = new Rows(phone);
        assertTrue(rows.moveToFirst());
        assertEquals(0, rows.getInt(0));
        phone.tooLarge = 0;
        assertTrue(rows.moveToFirst());
        assertEquals(1, rows.getInt(0));
        phone.gone = 0;
        assertFalse(rows.moveToFirst());
    }
}
