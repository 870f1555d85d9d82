package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Before;
import org.junit.Test;

public class GroupCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] NO_GROUP = Bytes.u64(-1);

    private final ContactsProvider book = new ContactsProvider();

    @Before
    public void fill() {
        install("com.android.contacts", book);
        addGroup("1, '同事', NULL, NULL, 1, 0");
        addGroup("2, '家人', 'li@example.com', 'com.example', 0, 0");
        addGroup("3, '旧友', NULL, NULL, 1, 1"); // deleted
    }

    private void addGroup(String values) {
        book.database()
                .execSQL(
                        "INSERT INTO groups(_id, title, account_name, account_type, group_visible,"
                                + " deleted) VALUES (" + values + ")");
    }

    @Test
    public void listsWhatIsNotDeleted() throws Exception {
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(1), // group
                        Bytes.text("同事"), // title
                        Bytes.text("手机"), // no account
                        Bytes.u32(1), // visible
                        Bytes.u64(2),
                        Bytes.text("家人"),
                        Bytes.text("li@example.com"), // account
                        Bytes.u32(0)), // hidden
                ask(Bytes.u32(AgentCommand.LIST_GROUPS.code)));
    }

    @Test
    public void listsTheNames() throws Exception {
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(1), Bytes.text("同事"), // group, title
                        Bytes.u64(2), Bytes.text("家人")),
                ask(Bytes.u32(AgentCommand.LIST_GROUP_NAMES.code)));
    }

    @Test
    public void aTitleThatIsNullIsEmptyAndNotAbsent() throws Exception {
        book.database().execSQL("UPDATE groups SET title = NULL WHERE _id = 1");
        book.database().execSQL("UPDATE groups SET deleted = 1 WHERE _id = 2");
        assertArrayEquals(
                Bytes.payload(Bytes.u64(1), Bytes.text("")),
                ask(Bytes.u32(AgentCommand.LIST_GROUP_NAMES.code)));
    }

    @Test
    public void aMemberStandsWithEachNumberInEachGroup() throws Exception {
        addPerson(1, "张三", "110", "120");
        join(51, 1, 2);
        join(52, 1, 1);
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(2), Bytes.text("张三"), Bytes.text("110"), // group, name, number
                        Bytes.u64(1), Bytes.text("张三"), Bytes.text("110"),
                        Bytes.u64(2), Bytes.text("张三"), Bytes.text("120"),
                        Bytes.u64(1), Bytes.text("张三"), Bytes.text("120")),
                ask(Bytes.u32(AgentCommand.LIST_GROUP_MEMBERS.code)));
    }

    @Test
    public void whoIsInNoGroupOrInADeletedOneStandsUnderNone() throws Exception {
        addPerson(1, "张三", "110");
        addPerson(2, "李四", "119");
        join(51, 2, 3);
        assertArrayEquals(
                Bytes.payload(
                        NO_GROUP, Bytes.text("张三"), Bytes.text("110"),
                        NO_GROUP, Bytes.text("李四"), Bytes.text("119")),
                ask(Bytes.u32(AgentCommand.LIST_GROUP_MEMBERS.code)));
    }

    @Test
    public void whoIsTwiceInAGroupStandsOnce() throws Exception {
        addPerson(1, "张三", "110");
        join(51, 1, 1);
        join(52, 1, 1);
        assertArrayEquals(
                Bytes.payload(Bytes.u64(1), Bytes.text("张三"), Bytes.text("110")),
                ask(Bytes.u32(AgentCommand.LIST_GROUP_MEMBERS.code)));
    }

    @Test
    public void contactsWithoutANumberAreNoMembers() throws Exception {
        addPerson(1, "张三");
        join(51, 1, 1);
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_GROUP_MEMBERS.code)));
    }

    @Test
    public void addsAGroupOfThePhone() throws Exception {
        assertArrayEquals(
                DONE, ask(Bytes.frame(AgentCommand.ADD_GROUP, 1, Bytes.text("同学"))));
        assertEquals(
                "同学|1|0",
                book.value(
                        "SELECT title || '|' || group_visible || '|' || deleted FROM groups"
                                + " WHERE _id = 4 AND account_name IS NULL"));
    }

    @Test
    public void renamesAGroup() throws Exception {
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.RENAME_GROUP, 1, Bytes.u32(2), Bytes.text("家"))));
        assertEquals("同事,家,旧友", titles());
    }

    @Test
    public void renamingAGroupThatIsGoneRenamesNoneAndIsDone() throws Exception {
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.RENAME_GROUP, 1, Bytes.u32(99), Bytes.text("家"))));
        assertEquals("同事,家人,旧友", titles());
    }

    @Test
    public void deletesGroupsAndNoContacts() throws Exception {
        addPerson(1, "张三", "110");
        join(51, 1, 1);
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.DELETE_GROUPS, 2, Bytes.u32(1), Bytes.u32(99))));
        assertEquals("家人,旧友", titles());
        assertEquals("1", book.value("SELECT COUNT(*) FROM raw_contacts WHERE deleted = 0"));
    }

    @Test
    public void aBrokenRequestChangesNothing() throws Exception {
        byte[] tooLong = Bytes.of(Bytes.u32(9), "同");
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.ADD_GROUP, 1, tooLong)));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.RENAME_GROUP, 1, Bytes.u32(1), tooLong)));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.DELETE_GROUPS, 2, Bytes.u32(1))));
        assertEquals("同事,家人,旧友", titles());
    }

    @Test
    public void groupsThatAreNotAllowedAreNoData() throws Exception {
        install("com.android.contacts", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_GROUPS.code)));
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_GROUP_MEMBERS.code)));
        assertArrayEquals(
                DONE, ask(Bytes.frame(AgentCommand.ADD_GROUP, 1, Bytes.text("同学"))));
    }

    private void addPerson(int id, String name, String... numbers) {
        book.addContact(id);
        book.addData(10 * id, id, "name", "data1", "'" + name + "'");
        for (int i = 0; i < numbers.length; ++i) {
            book.addData(10 * id + 1 + i, id, "phone_v2", "data1", "'" + numbers[i] + "'");
        }
    }

    private void join(int row, int person, int group) {
        book.addData(row, person, "group_membership", "data1", Integer.toString(group));
    }

    private String titles() {
        return book.value("SELECT group_concat(title, ',') FROM (SELECT title FROM groups ORDER BY _id)");
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new GroupCommands(phone()), request);
    }
}
