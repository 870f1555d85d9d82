package com.quorvi.Quorvi;

import android.content.ContentValues;
import android.provider.ContactsContract.Data;

import com.quorvi.Quorvi.ContactFields.Field;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.RequestReader;

import java.util.ArrayList;
import java.util.List;

/** What a request makes of a contact, read whole before anything of it is done. */
final class ContactChange {
    boolean isFavourite;
    final List<Row> rows = new ArrayList<>();

    /** Fields whose text was cleared: the phone drops them. */
    final List<String> clearedKinds = new ArrayList<>();

    /** In the order of the numbers on the wire. */
    enum Operation {
        ADD,
        REMOVE,
        UPDATE,
        LEAVE
    }

    static final class Row {
        final Field field;
        final Operation operation;
        final long id;
        final int type;
        final String text;

        Row(Field field, Operation operation, long id, int type, String text) {
            this.field = field;
            this.operation = operation;
            this.id = id;
            this.type = type;
            this.text = text;
        }

        ContentValues values() {
            ContentValues values = new ContentValues();
            values.put(Data.MIMETYPE, field.kind);
            if (field.text != null) {
                values.put(field.text, text);
            }
            if (field.type != null) {
                values.put(field.type, type);
            }
            return values;
        }
    }

    private ContactChange() {}

    /** A new contact: of each row eight bytes for an id, which it has not, a type, a text. */
    static ContactChange readNew(RequestReader request) throws MalformedRequest {
        ContactChange change = new ContactChange();
        change.isFavourite = request.flag();
        change.passStructured(request);
        for (Field field : ContactFields.TEXTS) {
            if (request.flag()) {
                change.addNew(field, request);
            }
        }
        for (Field field : ContactFields.LISTS) {
            for (long left = request.id(); left > 0; --left) {
                change.addNew(field, request);
            }
        }
        request.end();
        return change;
    }

    /** The difference to what the phone has. */
    static ContactChange readUpdate(RequestReader request) throws MalformedRequest {
        ContactChange change = new ContactChange();
        change.isFavourite = request.flag();
        change.passStructured(request);
        for (Field field : ContactFields.TEXTS) {
            if (request.flag()) {
                change.addChanged(field, request);
            } else {
                change.clearedKinds.add(field.kind);
            }
        }
        for (Field field : ContactFields.LISTS) {
            for (long left = request.id(); left > 0; --left) {
                change.addChanged(field, request);
            }
        }
        request.end();
        return change;
    }

    /** The PC sends it back as it found it, and the phone does not have it. */
    private void passStructured(RequestReader request) throws MalformedRequest {
        if (request.flag()) {
            request.text();
        }
    }

    private void addNew(Field field, RequestReader request) throws MalformedRequest {
        long id = request.uint64();
        int type = request.uint32();
        rows.add(new Row(field, Operation.ADD, id, type, request.text()));
    }

    private void addChanged(Field field, RequestReader request) throws MalformedRequest {
        long id = request.uint64();
        int operation = request.uint32();
        if (operation < 0 || operation >= Operation.values().length) {
            throw new MalformedRequest("operation " + operation);
        }
        int type = request.uint32();
        rows.add(new Row(field, Operation.values()[operation], id, type, request.text()));
    }
}
