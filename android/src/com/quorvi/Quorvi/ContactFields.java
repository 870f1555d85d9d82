package com.quorvi.Quorvi;

import android.provider.ContactsContract.CommonDataKinds.Email;
import android.provider.ContactsContract.CommonDataKinds.GroupMembership;
import android.provider.ContactsContract.CommonDataKinds.Im;
import android.provider.ContactsContract.CommonDataKinds.Nickname;
import android.provider.ContactsContract.CommonDataKinds.Note;
import android.provider.ContactsContract.CommonDataKinds.Organization;
import android.provider.ContactsContract.CommonDataKinds.Phone;
import android.provider.ContactsContract.CommonDataKinds.StructuredName;
import android.provider.ContactsContract.CommonDataKinds.StructuredPostal;
import android.provider.ContactsContract.CommonDataKinds.Website;
import android.provider.ContactsContract.Data;

/**
 * What the wire tells of a contact, and where the phone keeps it: the kind of the data row, the
 * column of the text and the column of the type.
 */
final class ContactFields {
    /** Of each a contact has one or none; in the order of the wire. */
    static final Field[] TEXTS = {
        new Field(StructuredName.CONTENT_ITEM_TYPE, StructuredName.DISPLAY_NAME, null),
        new Field(Nickname.CONTENT_ITEM_TYPE, Nickname.NAME, null),
        new Field(Note.CONTENT_ITEM_TYPE, Note.NOTE, null),
    };

    /** Of a group the type is the group's id, and the text its title, which is kept elsewhere. */
    static final Field GROUPS =
            new Field(GroupMembership.CONTENT_ITEM_TYPE, null, GroupMembership.GROUP_ROW_ID);

    /** Of each a contact has any number; in the order of the wire. */
    static final Field[] LISTS = {
        new Field(Phone.CONTENT_ITEM_TYPE, Phone.NUMBER, Phone.TYPE),
        GROUPS,
        new Field(Email.CONTENT_ITEM_TYPE, Data.DATA1, Email.TYPE),
        new Field(Im.CONTENT_ITEM_TYPE, Im.DATA, Im.PROTOCOL),
        new Field(Website.CONTENT_ITEM_TYPE, Website.URL, Website.TYPE),
        new Field(
                StructuredPostal.CONTENT_ITEM_TYPE,
                StructuredPostal.FORMATTED_ADDRESS,
                StructuredPostal.TYPE),
        new Field(Organization.CONTENT_ITEM_TYPE, Organization.COMPANY, Organization.TYPE),
    };

    private ContactFields() {}

    static final class Field {
        final String kind;
        final String text; // null: none
        final String type; // null: none

        Field(String kind, String text, String type) {
            this.kind = kind;
            this.text = text;
            this.type = type;
        }
    }
}
