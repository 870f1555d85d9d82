package com.quorvi.Quorvi;

import android.content.ContentProviderClient;
import android.content.ContentProviderOperation;
import android.content.ContentResolver;
import android.content.ContentValues;
import android.content.Context;
import android.content.OperationApplicationException;
import android.database.Cursor;
import android.database.MatrixCursor;
import android.net.Uri;
import android.os.RemoteException;
import android.util.Log;

import java.util.ArrayList;

/**
 * Asks the phone's own databases. What a phone refuses or does not have reads as an empty table and
 * as a change of nothing: the wire has no other answer.
 */
final class Provider {
    private static final String TAG = "Quorvi";

    /** How many ids go into one selection; SQLite takes 999 arguments. */
    private static final int IDS_AT_ONCE = 500;

    private final ContentResolver resolver;

    Provider(Context context) {
        resolver = context.getContentResolver();
    }

    /** The caller closes it. */
    Cursor rows(Uri table, String[] columns, String where, String[] arguments, String order) {
        Cursor cursor = null;
        try {
            cursor = resolver.query(table, columns, where, arguments, order);
        } catch (RuntimeException e) {
            // SecurityException without the permission; what a maker's provider throws at columns
            // that it does not know is anything.
            Log.w(TAG, table + " is not to be read", e);
        }
        return new Rows(cursor == null ? new MatrixCursor(columns) : cursor);
    }

    /** Null where the phone refuses. */
    Uri insert(Uri table, ContentValues values) {
        try {
            return isThere(table) ? resolver.insert(table, values) : null;
        } catch (RuntimeException e) {
            Log.w(TAG, table + " takes no row", e);
            return null;
        }
    }

    /** Does all of the changes or, where one of them fails or the agent ends in the middle, none. */
    void apply(Uri table, ArrayList<ContentProviderOperation> changes) {
        try {
            if (isThere(table)) {
                resolver.applyBatch(table.getAuthority(), changes);
            }
        } catch (RuntimeException e) {
            Log.w(TAG, table + " takes no changes", e);
        } catch (RemoteException e) {
            Log.w(TAG, table + " takes no changes", e);
        } catch (OperationApplicationException e) {
            Log.w(TAG, table + " takes no changes", e);
        }
    }

    int update(Uri table, ContentValues values, String where, String... arguments) {
        try {
            return isThere(table) ? resolver.update(table, values, where, arguments) : 0;
        } catch (RuntimeException e) {
            Log.w(TAG, table + " takes no change", e);
            return 0;
        }
    }

    int delete(Uri table, String where, String... arguments) {
        try {
            return isThere(table) ? resolver.delete(table, where, arguments) : 0;
        } catch (RuntimeException e) {
            Log.w(TAG, table + " deletes nothing", e);
            return 0;
        }
    }

    /** Deletes the rows whose column holds one of the ids. */
    int delete(Uri table, String column, long[] ids) {
        int deleted = 0;
        for (int from = 0; from < ids.length; from += IDS_AT_ONCE) {
            StringBuilder some = new StringBuilder();
            for (int i = from; i < Math.min(ids.length, from + IDS_AT_ONCE); ++i) {
                some.append(i == from ? "" : ",").append(ids[i]);
            }
            deleted += delete(table, column + " IN (" + some + ")");
        }
        return deleted;
    }

    /** Whether the phone has that database at all; it throws, later, when it has not. */
    @SuppressWarnings("deprecation") // close() came with Android 7
    private boolean isThere(Uri table) {
        ContentProviderClient client = resolver.acquireContentProviderClient(table);
        if (client == null) {
            return false;
        }
        client.release();
        return true;
    }
}
