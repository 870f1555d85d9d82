package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import android.database.Cursor;
import android.database.MatrixCursor;
import android.net.Uri;
import android.telephony.SmsManager;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Before;
import org.junit.Test;
import org.robolectric.shadow.api.Shadow;
import org.robolectric.shadows.ShadowSmsManager;

public class MessageCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] RESERVED = Bytes.u32(-1);

    /** As the phone's own: conversations/n are the messages of thread n. */
    static final class Messages extends TableProvider {
        Messages() {
            super("thread_id INTEGER, address TEXT, date INTEGER, body TEXT, type INTEGER");
        }

        @Override
        String idColumn(Uri uri) {
            return uri.getPath().startsWith("/conversations/") ? "thread_id" : "_id";
        }
    }

    /** Knows one number. */
    private static final class Contacts extends TableProvider {
        Contacts() {
            super("display_name TEXT");
        }

        @Override
        public Cursor query(
                Uri uri, String[] columns, String where, String[] arguments, String order) {
            MatrixCursor found = new MatrixCursor(new String[] {"display_name"});
            if (uri.toString().equals("content://com.android.contacts/phone_lookup/138%2F1")) {
                found.addRow(new Object[] {"张三"});
            }
            return found;
        }
    }

    /** The phone's one way to send outlives a test. */
    @Before
    public void forgetWhatWasSent() {
        radio().clearLastSentMultipartTextMessageParams();
    }

    private Messages messages() {
        Messages messages = new Messages();
        install("sms", messages);
        install("com.android.contacts", new Contacts());
        messages.add("thread_id, address, date, body, type", "7, '138/1', 1000, '在吗', 1");
        messages.add("thread_id, address, date, body, type", "7, '138/1', 4000, '在', 2");
        messages.add("thread_id, address, date, body, type", "9, '10086', 2000, NULL, 1");
        messages.add("thread_id, address, date, body, type", "9, NULL, 9000, 'draft', 3");
        return messages;
    }

    @Test
    public void listsOfEachConversationTheLastMessageTheNewestFirst() throws Exception {
        messages();
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(7), // conversation id
                        Bytes.text("张三"), // name
                        Bytes.text("138/1"), // number
                        Bytes.u64(4000), // date
                        RESERVED,
                        RESERVED,
                        Bytes.text("在"), // text
                        Bytes.u64(9),
                        Bytes.text("10086"), // nobody's number is its name
                        Bytes.text("10086"),
                        Bytes.u64(2000),
                        RESERVED,
                        RESERVED,
                        Bytes.text("")),
                ask(Bytes.u32(AgentCommand.LIST_CONVERSATIONS.code)));
    }

    @Test
    public void readsAConversationTheOldestFirst() throws Exception {
        messages();
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(1), // message id
                        Bytes.u32(1), // incoming
                        Bytes.text("138/1"), // address
                        Bytes.u64(1000), // date
                        RESERVED,
                        Bytes.text("在吗"), // text
                        RESERVED,
                        Bytes.u64(2),
                        Bytes.u32(2), // outgoing
                        Bytes.text("138/1"), // of the other party all the same
                        Bytes.u64(4000),
                        RESERVED,
                        Bytes.text("在"),
                        RESERVED),
                ask(Bytes.of(Bytes.u32(AgentCommand.READ_CONVERSATION.code), Bytes.u32(7))));
    }

    @Test
    public void aConversationThatIsGoneIsNoData() throws Exception {
        messages();
        assertArrayEquals(
                NO_DATA,
                ask(Bytes.of(Bytes.u32(AgentCommand.READ_CONVERSATION.code), Bytes.u32(8))));
    }

    @Test
    public void messagesThatAreNotAllowedAreNoData() throws Exception {
        install("sms", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_CONVERSATIONS.code)));
    }

    @Test
    public void deletesAConversation() throws Exception {
        Messages messages = messages();
        assertArrayEquals(
                DONE, ask(Bytes.frame(AgentCommand.DELETE_CONVERSATION, 1, Bytes.u32(7))));
        assertEquals("0", messages.value("SELECT COUNT(*) FROM rows WHERE thread_id = 7"));
        assertEquals("2", messages.value("SELECT COUNT(*) FROM rows WHERE thread_id = 9"));
    }

    @Test
    public void aPhoneThatLetsNobodyDeleteKeepsThemAndSaysDone() throws Exception {
        install("sms", new RefusingProvider());
        assertArrayEquals(
                DONE, ask(Bytes.frame(AgentCommand.DELETE_CONVERSATION, 1, Bytes.u32(7))));
    }

    @Test
    public void sendsToEachNumber() throws Exception {
        messages();
        ask(Bytes.frame(
                AgentCommand.SEND_MESSAGE,
                2,
                Bytes.text("110"),
                Bytes.text("138"),
                Bytes.text("路上有点堵")));
        ShadowSmsManager.TextMultipartParams last = sent();
        assertEquals("138", last.getDestinationAddress());
        assertEquals("路上有点堵", last.getParts().get(0));
    }

    @Test
    public void aMessageThatBreaksOffIsNotSent() throws Exception {
        messages();
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.SEND_MESSAGE, 2, Bytes.text("110"), Bytes.text("x"))));
        assertEquals(null, sent());
    }

    @Test
    public void aMessageToNoNumberIsSaidDoneAndNotSent() throws Exception {
        messages();
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(AgentCommand.SEND_MESSAGE, 1, Bytes.text(""), Bytes.text("x"))));
        assertEquals(null, sent());
    }

    private static ShadowSmsManager.TextMultipartParams sent() {
        return radio().getLastSentMultipartTextMessageParams();
    }

    @SuppressWarnings("deprecation") // the agent's own way
    private static ShadowSmsManager radio() {
        return Shadow.extract(SmsManager.getDefault());
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new MessageCommands(phone()), request);
    }
}
