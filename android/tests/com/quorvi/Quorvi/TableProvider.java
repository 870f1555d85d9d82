package com.quorvi.Quorvi;

import android.content.ContentProvider;
import android.content.ContentUris;
import android.content.ContentValues;
import android.database.Cursor;
import android.database.sqlite.SQLiteDatabase;
import android.net.Uri;

/** A phone's database of one table; a number at the end of an address names one row. */
class TableProvider extends ContentProvider {
    static final String TABLE = "rows";

    private final SQLiteDatabase database = SQLiteDatabase.create(null);

    /** @param columns as SQLite declares them; _id is there already */
    TableProvider(String columns) {
        database.execSQL(
                "CREATE TABLE " + TABLE + "(_id INTEGER PRIMARY KEY AUTOINCREMENT, " + columns + ")");
    }

    SQLiteDatabase database() {
        return database;
    }

    /** A row as the phone's owner put it there; values as SQL writes them. */
    void add(String columns, String values) {
        database.execSQL("INSERT INTO " + TABLE + "(" + columns + ") VALUES (" + values + ")");
    }

    /** What a query of one value says. */
    String value(String query) {
        Cursor cursor = database.rawQuery(query, null);
        try {
            return cursor.moveToFirst() ? cursor.getString(0) : null;
        } finally {
            cursor.close();
        }
    }

    int count() {
        return Integer.parseInt(value("SELECT COUNT(*) FROM " + TABLE));
    }

    @Override
    public boolean onCreate() {
        return true;
    }

    @Override
    public Cursor query(
            Uri uri, String[] columns, String where, String[] arguments, String order) {
        return database.query(TABLE, columns, within(uri, where), arguments, null, null, order);
    }

    @Override
    public Uri insert(Uri uri, ContentValues values) {
        return ContentUris.withAppendedId(uri, database.insertOrThrow(TABLE, null, values));
    }

    @Override
    public int update(Uri uri, ContentValues values, String where, String[] arguments) {
        return database.update(TABLE, values, within(uri, where), arguments);
    }

    @Override
    public int delete(Uri uri, String where, String[] arguments) {
        return database.delete(TABLE, within(uri, where), arguments);
    }

    @Override
    public String getType(Uri uri) {
        return null;
    }

    String within(Uri uri, String where) {
        String last = uri.getLastPathSegment();
        if (last == null || !last.matches("\\d+")) {
            return where;
        }
        return idColumn(uri) + "=" + last + (where == null ? "" : " AND (" + where + ")");
    }

    /** Which column the number at the end of this address is of. */
    String idColumn(Uri uri) {
        return "_id";
    }
}
