package com.quorvi.Quorvi;

import android.net.Uri;

/** What the phone's own browser keeps, as phones before Android 6 show it to others. */
final class BrowserTable {
    /** One table of bookmarks and of addresses that were visited. */
    static final Uri ADDRESSES = Uri.parse("content://browser/bookmarks");

    static final Uri SEARCHES = Uri.parse("content://browser/searches");

    static final String ID = "_id";
    static final String TITLE = "title";
    static final String URL = "url";
    static final String VISITS = "visits";
    /** Milliseconds since 1970; 0: never. */
    static final String LAST_VISIT = "date";

    static final String CREATED = "created";
    static final String IS_BOOKMARK = "bookmark";
    static final String FAVICON = "favicon";
    static final String THUMBNAIL = "thumbnail";

    /** Of the addresses those that are bookmarks. */
    static final String BOOKMARKS = IS_BOOKMARK + "=1";

    private BrowserTable() {}
}
