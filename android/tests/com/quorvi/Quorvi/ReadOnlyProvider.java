package com.quorvi.Quorvi;

import android.content.ContentProvider;
import android.content.ContentValues;
import android.net.Uri;

/** A database in which nothing can be changed. */
abstract class ReadOnlyProvider extends ContentProvider {
    @Override
    public boolean onCreate() {
        return true;
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
