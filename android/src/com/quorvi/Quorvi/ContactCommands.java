package com.quorvi.Quorvi;

import android.content.ContentProviderOperation;
import android.content.ContentUris;
import android.content.ContentValues;
import android.content.Context;
import android.database.Cursor;
import android.provider.ContactsContract.CommonDataKinds.Phone;
import android.provider.ContactsContract.CommonDataKinds.Photo;
import android.provider.ContactsContract.Contacts;
import android.provider.ContactsContract.Data;
import android.provider.ContactsContract.Groups;
import android.provider.ContactsContract.RawContacts;

import com.quorvi.Quorvi.ContactFields.Field;
import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.IOException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;

/** Contacts: the list with photos, one contact whole, adding, changing by difference, deleting. */
@SuppressWarnings("deprecation") // phones up to Android 9 count contacts, and later ones say 0
final class ContactCommands implements CommandGroup {
    /** So many photos are in memory at once. */
    private static final int PHOTOS_AT_ONCE = 100;

    private static final String[] LIST_COLUMNS = {
        Contacts._ID,
        Contacts.DISPLAY_NAME,
        Contacts.STARRED,
        Contacts.LAST_TIME_CONTACTED,
        Contacts.PHOTO_ID,
    };

    private final Provider provider;

    ContactCommands(Context context) {
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_CONTACTS,
            AgentCommand.READ_CONTACT,
            AgentCommand.ADD_CONTACT,
            AgentCommand.UPDATE_CONTACT,
            AgentCommand.DELETE_CONTACTS,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_CONTACTS:
                list(exchange.reply);
                break;
            case READ_CONTACT:
                exchange.expectOneItem();
                long contact = exchange.request.id();
                exchange.request.end();
                read(contact, exchange.reply);
                break;
            case ADD_CONTACT:
                exchange.expectOneItem();
                add(ContactChange.readNew(exchange.request));
                exchange.done();
                break;
            case UPDATE_CONTACT:
                exchange.expectOneItem();
                update(exchange.request.id(), ContactChange.readUpdate(exchange.request));
                exchange.done();
                break;
            default:
                for (long id : exchange.ids()) {
                    provider.delete(
                            ContentUris.withAppendedId(Contacts.CONTENT_URI, id),
                            null,
                            (String[]) null);
                }
                exchange.done();
        }
    }

    private void list(ReplyWriter reply) throws IOException {
        Map<Long, String> numbers = firstNumbers();
        Cursor contacts =
                provider.rows(
                        Contacts.CONTENT_URI, LIST_COLUMNS, null, null, "sort_key, " + Contacts._ID);
        try {
            Map<Long, byte[]> photos = new HashMap<>();
            for (int listed = 0; contacts.moveToNext(); ++listed) {
                if (listed % PHOTOS_AT_ONCE == 0) {
                    int row = contacts.getPosition();
                    photos = photosFrom(contacts);
                    contacts.moveToPosition(row);
                }
                long id = contacts.getLong(0);
                // The second id is the first's again; no reader uses it.
                reply.uint64(id)
                        .uint64(id)
                        .text(contacts.getString(1))
                        .flag(contacts.getInt(2) == 1)
                        .text(numbers.get(id))
                        .uint64(contacts.getLong(3))
                        .uint32(0)
                        .optionalPicture(photos.get(contacts.getLong(4)));
            }
        } finally {
            contacts.close();
        }
    }

    /** By contact, the number that its owner calls it by, else the one that was put in first. */
    private Map<Long, String> firstNumbers() {
        Map<Long, String> numbers = new HashMap<>();
        String[] columns = {Data.CONTACT_ID, Phone.NUMBER};
        String[] kind = {Phone.CONTENT_ITEM_TYPE};
        Cursor rows =
                provider.rows(
                        Data.CONTENT_URI,
                        columns,
                        Data.MIMETYPE + "=?",
                        kind,
                        Data.IS_SUPER_PRIMARY + " DESC, " + Data._ID);
        try {
            while (rows.moveToNext()) {
                if (!numbers.containsKey(rows.getLong(0))) {
                    numbers.put(rows.getLong(0), rows.getString(1));
                }
            }
        } finally {
            rows.close();
        }
        return numbers;
    }

    /** By row, the photos of the contacts from here on; moves the cursor. */
    private Map<Long, byte[]> photosFrom(Cursor contacts) {
        StringBuilder some = new StringBuilder();
        for (int i = 0; i < PHOTOS_AT_ONCE && !contacts.isAfterLast(); ++i) {
            if (!contacts.isNull(4)) {
                some.append(some.length() == 0 ? "" : ",").append(contacts.getLong(4));
            }
            contacts.moveToNext();
        }
        Map<Long, byte[]> photos = new HashMap<>();
        if (some.length() == 0) {
            return photos;
        }
        Cursor rows =
                provider.rows(
                        Data.CONTENT_URI,
                        new String[] {Data._ID, Photo.PHOTO},
                        Data._ID + " IN (" + some + ")",
                        null,
                        null);
        try {
            while (rows.moveToNext()) {
                photos.put(rows.getLong(0), rows.getBlob(1));
            }
        } finally {
            rows.close();
        }
        return photos;
    }

    /** A contact that is gone has no data. */
    private void read(long contact, ReplyWriter reply) throws IOException {
        String[] columns = {
            Contacts.STARRED, Contacts.LAST_TIME_CONTACTED, Contacts.TIMES_CONTACTED,
        };
        String[] id = {Long.toString(contact)};
        Cursor row =
                provider.rows(Contacts.CONTENT_URI, columns, Contacts._ID + "=?", id, null);
        try {
            if (!row.moveToFirst()) {
                return;
            }
            reply.uint64(contact)
                    .flag(row.getInt(0) == 1)
                    .uint64(row.getLong(1))
                    .uint64(row.getLong(2));
        } finally {
            row.close();
        }
        writePhoto(contact, reply);
        reply.flag(false); // the structured field, which the phone does not have
        for (Field field : ContactFields.TEXTS) {
            writeText(contact, field, reply);
        }
        for (Field field : ContactFields.LISTS) {
            writeList(contact, field, reply);
        }
    }

    private Cursor rowsOf(long contact, String kind, String... columns) {
        return provider.rows(
                Data.CONTENT_URI,
                columns,
                Data.CONTACT_ID + "=? AND " + Data.MIMETYPE + "=?",
                new String[] {Long.toString(contact), kind},
                Data._ID);
    }

    private void writePhoto(long contact, ReplyWriter reply) throws IOException {
        Cursor rows = rowsOf(contact, Photo.CONTENT_ITEM_TYPE, Data._ID, Photo.PHOTO);
        try {
            boolean hasPhoto = rows.moveToFirst() && !rows.isNull(1);
            reply.flag(hasPhoto);
            if (hasPhoto) {
                byte[] photo = rows.getBlob(1);
                reply.uint64(rows.getLong(0)).uint32(photo.length).raw(photo);
            }
        } finally {
            rows.close();
        }
    }

    private void writeText(long contact, Field field, ReplyWriter reply) throws IOException {
        Cursor rows = rowsOf(contact, field.kind, Data._ID, field.text);
        try {
            boolean isThere = rows.moveToFirst();
            reply.flag(isThere);
            if (isThere) {
                reply.uint64(rows.getLong(0)).uint32(0).text(rows.getString(1));
            }
        } finally {
            rows.close();
        }
    }

    private void writeList(long contact, Field field, ReplyWriter reply) throws IOException {
        boolean isGroups = field == ContactFields.GROUPS;
        Cursor rows =
                rowsOf(
                        contact,
                        field.kind,
                        Data._ID,
                        field.type,
                        isGroups ? field.type : field.text);
        List<Item> items = new ArrayList<>();
        try {
            while (rows.moveToNext()) {
                items.add(
                        new Item(
                                rows.getLong(0),
                                rows.getInt(1),
                                isGroups ? titleOf(rows.getLong(1)) : rows.getString(2)));
            }
        } finally {
            rows.close();
        }
        // Not the rows that the phone counted: one may have gone since.
        reply.uint32(items.size());
        for (Item item : items) {
            reply.uint64(item.id).uint32(item.type).text(item.text);
        }
    }

    /** One of a contact's numbers, addresses and so on. */
    private static final class Item {
        final long id;
        final int type;
        final String text;

        Item(long id, int type, String text) {
            this.id = id;
            this.type = type;
            this.text = text;
        }
    }

    /** Empty for a group that is gone. */
    private String titleOf(long group) {
        Cursor row =
                provider.rows(
                        Groups.CONTENT_URI,
                        new String[] {Groups.TITLE},
                        Groups._ID + "=?",
                        new String[] {Long.toString(group)},
                        null);
        try {
            return row.moveToFirst() ? row.getString(0) : "";
        } finally {
            row.close();
        }
    }

    private void add(ContactChange change) {
        ArrayList<ContentProviderOperation> changes = new ArrayList<>();
        changes.add(
                ContentProviderOperation.newInsert(RawContacts.CONTENT_URI)
                        .withValue(RawContacts.STARRED, change.isFavourite ? 1 : 0)
                        .withValue(RawContacts.ACCOUNT_TYPE, null)
                        .withValue(RawContacts.ACCOUNT_NAME, null)
                        .build());
        for (ContactChange.Row row : change.rows) {
            changes.add(
                    ContentProviderOperation.newInsert(Data.CONTENT_URI)
                            .withValueBackReference(Data.RAW_CONTACT_ID, 0)
                            .withValues(row.values())
                            .build());
        }
        provider.apply(RawContacts.CONTENT_URI, changes);
    }

    /** A contact that is gone stays so. */
    private void update(long contact, ContactChange change) {
        Long raw = rawContactOf(contact);
        if (raw == null) {
            return;
        }
        ArrayList<ContentProviderOperation> changes = new ArrayList<>();
        changes.add(
                ContentProviderOperation.newUpdate(Contacts.CONTENT_URI)
                        .withValue(Contacts.STARRED, change.isFavourite ? 1 : 0)
                        .withSelection(
                                Contacts._ID + "=?", new String[] {Long.toString(contact)})
                        .build());
        String ofContact = " AND " + Data.CONTACT_ID + "=" + contact;
        for (String kind : change.clearedKinds) {
            changes.add(
                    ContentProviderOperation.newDelete(Data.CONTENT_URI)
                            .withSelection(Data.MIMETYPE + "=?" + ofContact, new String[] {kind})
                            .build());
        }
        for (ContactChange.Row row : change.rows) {
            String[] id = {Long.toString(row.id), row.field.kind};
            String where = Data._ID + "=? AND " + Data.MIMETYPE + "=?" + ofContact;
            switch (row.operation) {
                case ADD:
                    changes.add(
                            ContentProviderOperation.newInsert(Data.CONTENT_URI)
                                    .withValues(row.values())
                                    .withValue(Data.RAW_CONTACT_ID, raw)
                                    .build());
                    break;
                case REMOVE:
                    changes.add(
                            ContentProviderOperation.newDelete(Data.CONTENT_URI)
                                    .withSelection(where, id)
                                    .build());
                    break;
                case UPDATE:
                    ContentValues changed = row.values();
                    changed.remove(Data.MIMETYPE);
                    changes.add(
                            ContentProviderOperation.newUpdate(Data.CONTENT_URI)
                                    .withValues(changed)
                                    .withSelection(where, id)
                                    .build());
                    break;
                default:
                    break;
            }
        }
        provider.apply(Contacts.CONTENT_URI, changes);
    }

    /** The part of the contact that takes new rows: of several accounts the one that was first. */
    private Long rawContactOf(long contact) {
        Cursor rows =
                provider.rows(
                        RawContacts.CONTENT_URI,
                        new String[] {RawContacts._ID},
                        RawContacts.CONTACT_ID + "=? AND " + RawContacts.DELETED + "=0",
                        new String[] {Long.toString(contact)},
                        RawContacts._ID);
        try {
            return rows.moveToFirst() ? rows.getLong(0) : null;
        } finally {
            rows.close();
        }
    }
}
