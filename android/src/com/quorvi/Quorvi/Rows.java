package com.quorvi.Quorvi;

import android.database.Cursor;
import android.database.CursorWrapper;
import android.database.sqlite.SQLiteException;
import android.util.Log;

/**
 * Rows of the phone's databases, read one behind the other with moveToNext(). The phone hands them
 * over by windows of some megabytes and counts them before: a row that was deleted meanwhile, or that
 * no window holds, is passed over. A database that is gone in the middle throws, so that half a list
 * is not taken for a whole one.
 */
final class Rows extends CursorWrapper {
    private static final String TAG = "Quorvi";

    Rows(Cursor rows) {
        super(rows);
    }

    @Override
    public boolean moveToNext() {
        for (int row = getPosition() + 1; row < getCount(); ++row) {
            if (isThere(row)) {
                return true;
            }
        }
        super.moveToPosition(getCount());
        return false;
    }

    @Override
    public boolean moveToFirst() {
        super.moveToPosition(-1);
        return moveToNext();
    }

    private boolean isThere(int row) {
        boolean hasMoved;
        try {
            hasMoved = super.moveToPosition(row);
        } catch (SQLiteException e) {
            return passOver(row, e);
        }
        if (!hasMoved) {
            throw new IllegalStateException("the phone's database ended at row " + row);
        }
        try {
            isNull(0);
            return true;
        } catch (IllegalStateException e) {
            Log.w(TAG, "row " + row + " is gone", e);
            return false;
        }
    }

    /** Only what is too large for any window: a disk that fails ends the list. */
    private static boolean passOver(int row, SQLiteException e) {
        if (e.getMessage() == null || !e.getMessage().contains("too big")) {
            throw e;
        }
        Log.w(TAG, "row " + row + " is too large", e);
        return false;
    }
}
