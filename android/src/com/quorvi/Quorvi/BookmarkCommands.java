package com.quorvi.Quorvi;

import android.content.ContentValues;
import android.content.Context;
import android.database.Cursor;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;
import com.quorvi.Quorvi.wire.RequestReader;

import java.io.IOException;

/**
 * The bookmarks of the phone's own browser: listing, adding, changing, deleting. From Android 6 on
 * there is no browser that shows others its bookmarks.
 */
final class BookmarkCommands implements CommandGroup {
    private final Provider provider;

    BookmarkCommands(Context context) {
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_BOOKMARKS,
            AgentCommand.ADD_BOOKMARK,
            AgentCommand.UPDATE_BOOKMARK,
            AgentCommand.DELETE_BOOKMARKS,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_BOOKMARKS:
                list(exchange.reply);
                break;
            case ADD_BOOKMARK:
                exchange.expectOneItem();
                ContentValues added = read(exchange.request);
                added.put(BrowserTable.IS_BOOKMARK, 1);
                added.put(BrowserTable.CREATED, System.currentTimeMillis());
                added.put(BrowserTable.LAST_VISIT, 0);
                exchange.doneOrRefused(provider.insert(BrowserTable.ADDRESSES, added) != null);
                break;
            case UPDATE_BOOKMARK:
                exchange.expectOneItem();
                String id = Long.toString(exchange.request.id());
                // An address in the history has no place in the PC's list, whatever its id.
                String where = BrowserTable.ID + "=? AND " + BrowserTable.BOOKMARKS;
                ContentValues changed = read(exchange.request);
                exchange.doneOrRefused(
                        provider.update(BrowserTable.ADDRESSES, changed, where, id) > 0);
                break;
            default:
                for (long bookmark : exchange.ids()) {
                    provider.delete(
                            BrowserTable.ADDRESSES,
                            BrowserTable.ID + "=? AND " + BrowserTable.BOOKMARKS,
                            Long.toString(bookmark));
                }
                exchange.done();
        }
    }

    private void list(ReplyWriter reply) throws IOException {
        String[] columns = {
            BrowserTable.ID,
            BrowserTable.TITLE,
            BrowserTable.URL,
            BrowserTable.VISITS,
            BrowserTable.LAST_VISIT,
            BrowserTable.FAVICON,
            BrowserTable.THUMBNAIL,
        };
        Cursor bookmarks =
                provider.rows(
                        BrowserTable.ADDRESSES,
                        columns,
                        BrowserTable.BOOKMARKS,
                        null,
                        BrowserTable.ID);
        try {
            while (bookmarks.moveToNext()) {
                reply.uint64(bookmarks.getLong(0))
                        .text(bookmarks.getString(1))
                        .text(bookmarks.getString(2))
                        .uint32(bookmarks.getInt(3))
                        .uint64(bookmarks.getLong(4))
                        .optionalPicture(bookmarks.getBlob(5))
                        .optionalPicture(bookmarks.getBlob(6));
            }
        } finally {
            bookmarks.close();
        }
    }

    private static ContentValues read(RequestReader request) throws MalformedRequest {
        ContentValues values = new ContentValues();
        values.put(BrowserTable.VISITS, request.uint32());
        values.put(BrowserTable.TITLE, request.text());
        values.put(BrowserTable.URL, request.text());
        request.end();
        return values;
    }
}
