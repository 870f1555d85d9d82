package com.quorvi.Quorvi;

import android.content.ContentUris;
import android.content.ContentValues;
import android.content.Context;
import android.database.Cursor;
import android.net.Uri;
import android.os.Build;
import android.provider.ContactsContract.PhoneLookup;
import android.telephony.SmsManager;
import android.util.Log;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;

import java.io.IOException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/** Messages: the conversations, one of them whole, sending, deleting. */
final class MessageCommands implements CommandGroup {
    /** Before Android 4.4 these had no public names, but the same words. */
    static final Uri MESSAGES = Uri.parse("content://sms");

    private static final Uri SENT = Uri.parse("content://sms/sent");
    private static final Uri CONVERSATIONS = Uri.parse("content://sms/conversations");
    private static final String ID = "_id";
    private static final String THREAD = "thread_id";
    private static final String ADDRESS = "address";
    private static final String DATE = "date";
    private static final String BODY = "body";
    private static final String TYPE = "type";
    private static final String[] COLUMNS = {ID, THREAD, ADDRESS, DATE, BODY, TYPE};

    private static final int TYPE_INCOMING = 1;
    /** A draft has no address yet, and is no message to the PC. */
    private static final String NO_DRAFT = TYPE + "<>3";

    private static final int INCOMING = 1;
    private static final int OUTGOING = 2;

    /** What the reserved words of the wire hold; no reader looks at them. */
    private static final int RESERVED = -1;

    private static final String TAG = "Quorvi";

    private final Provider provider;

    MessageCommands(Context context) {
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_CONVERSATIONS,
            AgentCommand.READ_CONVERSATION,
            AgentCommand.SEND_MESSAGE,
            AgentCommand.DELETE_CONVERSATION,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_CONVERSATIONS:
                list(exchange);
                break;
            case READ_CONVERSATION:
                read(exchange);
                break;
            case SEND_MESSAGE:
                send(exchange);
                break;
            default:
                delete(exchange);
        }
    }

    /** Of each conversation its last message, the newest first. */
    private void list(Exchange exchange) throws IOException {
        Set<Long> seen = new HashSet<>();
        Map<String, String> names = new HashMap<>();
        Cursor messages = provider.rows(MESSAGES, COLUMNS, NO_DRAFT, null, DATE + " DESC, _id DESC");
        try {
            while (messages.moveToNext()) {
                if (!seen.add(messages.getLong(1))) {
                    continue;
                }
                String number = messages.isNull(2) ? "" : messages.getString(2);
                if (!names.containsKey(number)) {
                    names.put(number, nameOf(number));
                }
                exchange.reply
                        .uint64(messages.getLong(1))
                        .text(names.get(number))
                        .text(number)
                        .uint64(messages.getLong(3))
                        .uint32(RESERVED)
                        .uint32(RESERVED)
                        .text(messages.getString(4));
            }
        } finally {
            messages.close();
        }
    }

    /** The name of the contact with this number; without one, the number. */
    private String nameOf(String number) {
        if (number.isEmpty()) {
            return number;
        }
        Uri uri = Uri.withAppendedPath(PhoneLookup.CONTENT_FILTER_URI, Uri.encode(number));
        Cursor contact =
                provider.rows(uri, new String[] {PhoneLookup.DISPLAY_NAME}, null, null, null);
        try {
            return contact.moveToFirst() && !contact.isNull(0) ? contact.getString(0) : number;
        } finally {
            contact.close();
        }
    }

    /** The oldest message first. */
    private void read(Exchange exchange) throws IOException, MalformedRequest {
        String[] thread = {Long.toString(exchange.request.id())};
        Cursor messages =
                provider.rows(
                        MESSAGES,
                        COLUMNS,
                        THREAD + "=? AND " + NO_DRAFT,
                        thread,
                        DATE + ", _id");
        try {
            while (messages.moveToNext()) {
                exchange.reply
                        .uint64(messages.getLong(0))
                        .uint32(messages.getInt(5) == TYPE_INCOMING ? INCOMING : OUTGOING)
                        .text(messages.getString(2))
                        .uint64(messages.getLong(3))
                        .uint32(RESERVED)
                        .text(messages.getString(4))
                        .uint32(RESERVED);
            }
        } finally {
            messages.close();
        }
    }

    private void send(Exchange exchange) throws MalformedRequest {
        List<String> numbers = new ArrayList<>();
        for (long i = 0; i < exchange.items; ++i) {
            numbers.add(exchange.request.text());
        }
        String text = exchange.request.text();
        exchange.request.end();
        for (String number : numbers) {
            sendTo(number, text);
        }
        exchange.done();
    }

    @SuppressWarnings("deprecation") // the one that is not came with Android 12
    private void sendTo(String number, String text) {
        SmsManager manager = SmsManager.getDefault();
        try {
            manager.sendMultipartTextMessage(
                    number, null, manager.divideMessage(text), null, null);
        } catch (RuntimeException e) {
            // Without the permission, without a number, without a text, without a radio.
            Log.w(TAG, "a message was not sent", e);
            return;
        }
        if (Build.VERSION.SDK_INT < Build.VERSION_CODES.KITKAT) {
            // From 4.4 on the phone keeps what is sent by itself.
            ContentValues sent = new ContentValues();
            sent.put(ADDRESS, number);
            sent.put(BODY, text);
            sent.put(DATE, System.currentTimeMillis());
            provider.insert(SENT, sent);
        }
    }

    /** From Android 4.4 on only the phone's chosen application for messages may: nothing goes. */
    private void delete(Exchange exchange) throws MalformedRequest {
        exchange.expectOneItem();
        long thread = exchange.request.id();
        exchange.request.end();
        provider.delete(ContentUris.withAppendedId(CONVERSATIONS, thread), null, (String[]) null);
        exchange.done();
    }
}
