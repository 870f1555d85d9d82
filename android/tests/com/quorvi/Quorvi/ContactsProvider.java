package com.quorvi.Quorvi;

import android.content.ContentProviderOperation;
import android.content.ContentProviderResult;
import android.content.ContentUris;
import android.content.ContentValues;
import android.content.OperationApplicationException;
import android.database.Cursor;
import android.database.sqlite.SQLiteDatabase;
import android.net.Uri;

import java.util.ArrayList;

/** The phone's contacts as its own database keeps them: parts of contacts, rows of data, groups. */
final class ContactsProvider extends TableProvider {
    ContactsProvider() {
        super("unused INTEGER");
        SQLiteDatabase database = database();
        database.execSQL(
                "CREATE TABLE raw_contacts(_id INTEGER PRIMARY KEY, contact_id INTEGER,"
                        + " starred INTEGER DEFAULT 0, deleted INTEGER DEFAULT 0,"
                        + " account_name TEXT, account_type TEXT,"
                        + " last_time_contacted INTEGER DEFAULT 0, times_contacted INTEGER DEFAULT 0)");
        database.execSQL(
                "CREATE TABLE data_rows(_id INTEGER PRIMARY KEY, raw_contact_id INTEGER,"
                        + " mimetype TEXT, is_super_primary INTEGER DEFAULT 0,"
                        + " data1, data2, data3, data4, data5, data15 BLOB)");
        database.execSQL(
                "CREATE TABLE groups(_id INTEGER PRIMARY KEY, title TEXT, account_name TEXT,"
                        + " account_type TEXT, group_visible INTEGER DEFAULT 1,"
                        + " deleted INTEGER DEFAULT 0)");
        // Each contact has one part here: its id is that of the part plus 100.
        database.execSQL(
                "CREATE VIEW data AS SELECT d.*,"
                        + " CAST(d.raw_contact_id + 100 AS INTEGER) AS contact_id,"
                        + " (SELECT data1 FROM data_rows n WHERE n.raw_contact_id = r._id"
                        + " AND n.mimetype LIKE '%/name') AS display_name"
                        + " FROM data_rows d JOIN raw_contacts r ON d.raw_contact_id = r._id"
                        + " WHERE r.deleted = 0");
        database.execSQL(
                "CREATE VIEW contacts AS SELECT CAST(r._id + 100 AS INTEGER) AS _id, starred, last_time_contacted,"
                        + " times_contacted, (SELECT data1 FROM data_rows WHERE raw_contact_id = r._id"
                        + " AND mimetype LIKE '%/name') AS display_name,"
                        + " (SELECT data1 FROM data_rows WHERE raw_contact_id = r._id"
                        + " AND mimetype LIKE '%/name') AS sort_key,"
                        + " (SELECT _id FROM data_rows WHERE raw_contact_id = r._id"
                        + " AND mimetype LIKE '%/photo') AS photo_id"
                        + " FROM raw_contacts r WHERE deleted = 0");
    }

    /** A part of a contact that the owner put in; the contact's id is this plus 100. */
    void addContact(int id) {
        database()
                .execSQL(
                        "INSERT INTO raw_contacts(_id, contact_id) VALUES (" + id + ", "
                                + (id + 100) + ")");
    }

    /** A row of data; the kind is the last word of its mimetype. */
    void addData(int id, int part, String kind, String columns, String values) {
        database()
                .execSQL(
                        "INSERT INTO data_rows(_id, raw_contact_id, mimetype, " + columns
                                + ") VALUES (" + id + ", " + part
                                + ", 'vnd.android.cursor.item/" + kind + "', " + values + ")");
    }

    @Override
    public Cursor query(
            Uri uri, String[] columns, String where, String[] arguments, String order) {
        String table = uri.getPathSegments().get(0);
        return database().query(table, columns, within(uri, where), arguments, null, null, order);
    }

    @Override
    public Uri insert(Uri uri, ContentValues values) {
        long id = database().insertOrThrow(stored(uri), null, values);
        if (stored(uri).equals("raw_contacts")) {
            database().execSQL("UPDATE raw_contacts SET contact_id = _id + 100 WHERE _id = " + id);
        }
        return ContentUris.withAppendedId(uri, id);
    }

    @Override
    public int update(Uri uri, ContentValues values, String where, String[] arguments) {
        return database().update(stored(uri), values, translated(uri, where), arguments);
    }

    @Override
    public int delete(Uri uri, String where, String[] arguments) {
        return database().delete(stored(uri), translated(uri, within(uri, where)), arguments);
    }

    /** In one transaction, as the phone's own. */
    @Override
    public ContentProviderResult[] applyBatch(ArrayList<ContentProviderOperation> changes)
            throws OperationApplicationException {
        database().beginTransaction();
        try {
            ContentProviderResult[] results = super.applyBatch(changes);
            database().setTransactionSuccessful();
            return results;
        } finally {
            database().endTransaction();
        }
    }

    private static String stored(Uri uri) {
        String table = uri.getPathSegments().get(0);
        if (table.equals("data")) {
            return "data_rows";
        }
        return table.equals("contacts") ? "raw_contacts" : table;
    }

    /** What names a contact names its one part; without the cast, SQLite compares text. */
    private static String translated(Uri uri, String where) {
        if (where == null) {
            return null;
        }
        return uri.getPathSegments().get(0).equals("contacts")
                ? where.replace("_id=", "CAST(_id+100 AS INTEGER)=")
                : where.replace("contact_id=", "CAST(raw_contact_id+100 AS INTEGER)=");
    }
}
