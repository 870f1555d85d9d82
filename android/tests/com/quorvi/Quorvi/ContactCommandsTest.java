package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Before;
import org.junit.Test;

public class ContactCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] NONE = Bytes.u32(0);
    private static final byte[] ADD = Bytes.u32(0);
    private static final byte[] REMOVE = Bytes.u32(1);
    private static final byte[] UPDATE = Bytes.u32(2);
    private static final byte[] LEAVE = Bytes.u32(3);

    /** The id of a row that is not on the phone yet. */
    private static final byte[] NEW_ROW = Bytes.u64(-1);

    private final ContactsProvider book = new ContactsProvider();

    @Before
    public void fill() {
        install("com.android.contacts", book);
        book.addContact(1);
        book.addData(11, 1, "name", "data1", "'张三'");
        book.addData(12, 1, "phone_v2", "data1, data2", "'110', 2");
        book.addData(13, 1, "phone_v2", "data1, data2, is_super_primary", "'120', 1, 1");
        book.addData(14, 1, "photo", "data15", "x'FFD8'");
        book.addData(15, 1, "group_membership", "data1", "5");
        book.addData(16, 1, "im", "data1, data2, data5", "'12345', 3, 4");
        book.addData(17, 1, "note", "data1", "'同学'");
        book.database().execSQL("INSERT INTO groups(_id, title) VALUES (5, '同事')");
        book.database()
                .execSQL(
                        "UPDATE raw_contacts SET starred = 1, last_time_contacted = 9000,"
                                + " times_contacted = 7");
    }

    @Test
    public void listsByName() throws Exception {
        book.addContact(2);
        book.addData(21, 2, "name", "data1", "'Ann'");
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(102), // contact
                        Bytes.u64(102), // second id
                        Bytes.text("Ann"), // name
                        Bytes.u32(0), // no favourite
                        Bytes.text(""), // no number
                        Bytes.u64(0), // never contacted
                        Bytes.u32(0), // reserved
                        Bytes.u32(0), // no photo
                        Bytes.u64(101),
                        Bytes.u64(101),
                        Bytes.text("张三"),
                        Bytes.u32(1),
                        Bytes.text("120"), // the number that its owner calls it by
                        Bytes.u64(9000),
                        Bytes.u32(0),
                        Bytes.u32(1), // a photo
                        Bytes.u64(2), // its length
                        0xFF, 0xD8),
                ask(Bytes.u32(AgentCommand.LIST_CONTACTS.code)));
    }

    @Test
    public void listsMoreContactsThanPhotosAreKeptAtOnce() throws Exception {
        for (int i = 2; i <= 250; ++i) {
            book.addContact(i);
            book.addData(1000 + i, i, "photo", "data15", "x'0102'");
        }
        byte[] reply = ask(Bytes.u32(AgentCommand.LIST_CONTACTS.code));
        int record = 8 + 8 + 4 + 4 + 4 + 8 + 4 + 4 + 8 + 2;
        assertEquals(8 + 250 * record + "张三".getBytes("UTF-8").length + "120".length(), reply.length);
    }

    @Test
    public void anEmptyBookIsNoData() throws Exception {
        book.database().execSQL("UPDATE raw_contacts SET deleted = 1");
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_CONTACTS.code)));
    }

    @Test
    public void aBookThatIsNotAllowedIsNoData() throws Exception {
        install("com.android.contacts", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_CONTACTS.code)));
        assertArrayEquals(NO_DATA, ask(read(101)));
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.DELETE_CONTACTS, 1, Bytes.u32(101))));
    }

    @Test
    public void readsAContactWhole() throws Exception {
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(101), // contact
                        Bytes.u32(1), // favourite
                        Bytes.u64(9000), // last contact
                        Bytes.u64(7), // times contacted
                        Bytes.u32(1), // a photo
                        Bytes.u64(14), // its row
                        Bytes.u32(2), // its length
                        0xFF, 0xD8,
                        NONE, // structured
                        Bytes.u32(1), Bytes.u64(11), NONE, Bytes.text("张三"), // name
                        NONE, // nickname
                        Bytes.u32(1), Bytes.u64(17), NONE, Bytes.text("同学"), // note
                        Bytes.u32(2), // phones
                        Bytes.u64(12), Bytes.u32(2), Bytes.text("110"),
                        Bytes.u64(13), Bytes.u32(1), Bytes.text("120"),
                        Bytes.u32(1), // groups
                        Bytes.u64(15), Bytes.u32(5), Bytes.text("同事"),
                        NONE, // e-mails
                        Bytes.u32(1), // instant messages: the type is the protocol
                        Bytes.u64(16), Bytes.u32(4), Bytes.text("12345"),
                        NONE, // websites
                        NONE, // addresses
                        NONE), // organisations
                ask(read(101)));
    }

    @Test
    public void aContactThatIsGoneIsNoData() throws Exception {
        assertArrayEquals(NO_DATA, ask(read(999)));
    }

    @Test
    public void addsAContactWithItsRows() throws Exception {
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.ADD_CONTACT,
                        1,
                        Bytes.u32(1), // favourite
                        NONE, // structured
                        Bytes.u32(1), Bytes.u64(0), NONE, Bytes.text("李四"), // name
                        NONE, // nickname
                        NONE, // note
                        Bytes.u32(1), Bytes.u64(0), Bytes.u32(2), Bytes.text("138"), // phones
                        NONE, // groups
                        NONE, // e-mails
                        NONE, // instant messages
                        NONE, // websites
                        NONE, // addresses
                        Bytes.u32(1), Bytes.u64(0), Bytes.u32(1), Bytes.text("厂"))));
        assertEquals("1", book.value("SELECT starred FROM raw_contacts WHERE _id = 2"));
        assertEquals("李四", book.value("SELECT display_name FROM contacts WHERE _id = 102"));
        assertEquals(
                "138 2",
                book.value(
                        "SELECT data1 || ' ' || data2 FROM data WHERE contact_id = 102"
                                + " AND mimetype LIKE '%/phone_v2'"));
        assertEquals(
                "厂",
                book.value(
                        "SELECT data1 FROM data WHERE contact_id = 102"
                                + " AND mimetype LIKE '%/organization'"));
    }

    @Test
    public void changesByDifference() throws Exception {
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.UPDATE_CONTACT,
                        1,
                        Bytes.u32(101),
                        NONE, // no favourite any more
                        NONE, // structured
                        Bytes.u32(1), Bytes.u64(11), UPDATE, NONE, Bytes.text("张三丰"), // name
                        Bytes.u32(1), NEW_ROW, ADD, NONE, Bytes.text("三哥"), // nickname
                        NONE, // the note was cleared
                        Bytes.u32(3), // phones
                        Bytes.u64(12), REMOVE, Bytes.u32(2), Bytes.text("110"),
                        Bytes.u64(13), LEAVE, Bytes.u32(1), Bytes.text("999"),
                        NEW_ROW, ADD, Bytes.u32(3), Bytes.text("8812345"),
                        Bytes.u32(1), Bytes.u64(15), REMOVE, Bytes.u32(5), Bytes.text("同事"),
                        NONE,
                        NONE,
                        NONE,
                        NONE,
                        NONE)));
        assertEquals("0", book.value("SELECT starred FROM raw_contacts"));
        assertEquals("张三丰", book.value("SELECT data1 FROM data_rows WHERE _id = 11"));
        assertEquals("三哥", book.value("SELECT data1 FROM data WHERE mimetype LIKE '%/nickname'"));
        assertNull(book.value("SELECT _id FROM data WHERE mimetype LIKE '%/note'"));
        assertNull(book.value("SELECT _id FROM data WHERE _id = 12"));
        assertEquals("120", book.value("SELECT data1 FROM data WHERE _id = 13"));
        assertEquals("3", book.value("SELECT data2 FROM data WHERE data1 = '8812345'"));
        assertNull(book.value("SELECT _id FROM data WHERE _id = 15"));
        assertEquals("12345", book.value("SELECT data1 FROM data WHERE _id = 16"));
    }

    @Test
    public void aChangeThatFailsInTheMiddleChangesNothing() throws Exception {
        book.database()
                .execSQL(
                        "CREATE TRIGGER full BEFORE INSERT ON data_rows"
                                + " BEGIN SELECT RAISE(ABORT, 'the disk is full'); END");
        ask(Bytes.frame(
                AgentCommand.UPDATE_CONTACT,
                1,
                Bytes.u32(101),
                NONE, // no favourite any more
                NONE, // structured
                Bytes.u32(1), Bytes.u64(11), UPDATE, NONE, Bytes.text("张三丰"), // name
                NONE, // nickname
                NONE, // the note was cleared
                Bytes.u32(2), // phones
                Bytes.u64(12), REMOVE, Bytes.u32(2), Bytes.text("110"),
                NEW_ROW, ADD, Bytes.u32(3), Bytes.text("8812345"),
                NONE, NONE, NONE, NONE, NONE, NONE));
        assertEquals("1", book.value("SELECT starred FROM raw_contacts"));
        assertEquals("张三", book.value("SELECT data1 FROM data_rows WHERE _id = 11"));
        assertEquals("7", book.value("SELECT COUNT(*) FROM data_rows"));
    }

    @Test
    public void aRowOfAnotherContactIsNotChanged() throws Exception {
        book.addContact(2);
        book.addData(21, 2, "name", "data1", "'Ann'");
        ask(Bytes.frame(
                AgentCommand.UPDATE_CONTACT,
                1,
                Bytes.u32(101),
                NONE,
                NONE,
                Bytes.u32(1), Bytes.u64(21), UPDATE, NONE, Bytes.text("Bob"),
                NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE));
        assertEquals("Ann", book.value("SELECT data1 FROM data_rows WHERE _id = 21"));
    }

    @Test
    public void changingAContactThatIsGoneChangesNothingAndIsDone() throws Exception {
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.UPDATE_CONTACT,
                        1,
                        Bytes.u32(999),
                        NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE, NONE)));
        assertEquals("7", book.value("SELECT COUNT(*) FROM data_rows"));
    }

    @Test
    public void aBrokenChangeChangesNothing() throws Exception {
        byte[] cleared = Bytes.of(Bytes.u32(101), NONE, NONE, NONE, NONE, NONE);
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.UPDATE_CONTACT, 1, cleared)));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(
                        AgentCommand.UPDATE_CONTACT,
                        1,
                        cleared,
                        Bytes.u32(1), Bytes.u64(12), Bytes.u32(4), NONE, Bytes.text("x"),
                        NONE, NONE, NONE, NONE, NONE, NONE)));
        assertEquals("7", book.value("SELECT COUNT(*) FROM data_rows"));
    }

    @Test
    public void deletesWhatIsNamed() throws Exception {
        book.addContact(2);
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.DELETE_CONTACTS, 2, Bytes.u32(101), Bytes.u32(999))));
        assertEquals("1", book.value("SELECT COUNT(*) FROM raw_contacts"));
        assertEquals("2", book.value("SELECT _id FROM raw_contacts"));
    }

    private static byte[] read(long contact) {
        return Bytes.frame(AgentCommand.READ_CONTACT, 1, Bytes.u32(contact));
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new ContactCommands(phone()), request);
    }
}
