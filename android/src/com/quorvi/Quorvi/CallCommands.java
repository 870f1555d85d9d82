package com.quorvi.Quorvi;

import android.content.Context;
import android.database.Cursor;
import android.net.Uri;
import android.provider.CallLog.Calls;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;

import java.io.IOException;

/** The call log: the list, the newest first, deleting some, deleting all. */
final class CallCommands implements CommandGroup {
    private static final Uri CALLS = Calls.CONTENT_URI;
    private static final String[] COLUMNS = {
        Calls._ID, Calls.NUMBER, Calls.DATE, Calls.DURATION, Calls.TYPE, Calls.CACHED_NAME,
    };

    private final Provider provider;

    CallCommands(Context context) {
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_CALLS, AgentCommand.DELETE_CALLS, AgentCommand.DELETE_ALL_CALLS,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_CALLS:
                list(exchange);
                break;
            case DELETE_CALLS:
                provider.delete(CALLS, Calls._ID, exchange.ids());
                exchange.done();
                break;
            default:
                deleteAll(exchange);
        }
    }

    private void list(Exchange exchange) throws IOException {
        Cursor calls = provider.rows(CALLS, COLUMNS, null, null, Calls.DATE + " DESC");
        try {
            while (calls.moveToNext()) {
                exchange.reply
                        .uint64(calls.getLong(0))
                        .text(calls.getString(1))
                        .uint64(calls.getLong(2))
                        .uint64(calls.getLong(3))
                        .uint32(calls.getInt(4))
                        .text(calls.getString(5));
            }
        } finally {
            calls.close();
        }
    }

    /**
     * The suite says one item and sends none: kept on purpose, since it has always been the frame
     * (CallCommandsTest.deletingAllSaysOneItemAndHasNone).
     */
    private void deleteAll(Exchange exchange) throws MalformedRequest {
        exchange.expectOneItem();
        exchange.request.end();
        provider.delete(CALLS, null, (String[]) null);
        exchange.done();
    }
}
