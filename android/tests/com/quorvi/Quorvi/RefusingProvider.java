package com.quorvi.Quorvi;

import android.content.ContentProvider;
import android.content.ContentValues;
import android.database.Cursor;
import android.net.Uri;

/** A database that the phone's owner has not allowed the agent. */
final class RefusingProvider extends ContentProvider {
    @Override
    public boolean onCreate() {
        return true;
    }

    @Override
    public Cursor query(Uri uri, String[] columns, String where, String[] values, String order) {
        throw new SecurityException("Permission Denial: reading");
    }

    @Override
    public Uri insert(Uri uri, ContentValues values) {
        throw new SecurityException("Permission Denial: writing");
    }

    @Override
    public int update(Uri uri, ContentValues values, String where, String[] arguments) {
        throw new SecurityException("Permission Denial: writing");
    }

    @Override
    public int delete(Uri uri, String where, String[] arguments) {
        throw new SecurityException("Permission Denial: writing");
    }

    @Override
    public String getType(Uri uri) {
        return null;
    }
}
