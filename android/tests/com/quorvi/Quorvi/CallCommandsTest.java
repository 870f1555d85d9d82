package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Test;

public class CallCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);

    private TableProvider calls() {
        TableProvider calls =
                new TableProvider("number TEXT, date INTEGER, duration INTEGER, type INTEGER, name TEXT");
        install("call_log", calls);
        return calls;
    }

    private static void addThree(TableProvider calls) {
        calls.add("number, date, duration, type, name", "'110', 1000, 60, 1, '张三'");
        calls.add("number, date, duration, type, name", "'120', 3000, 0, 3, NULL");
        calls.add("number, date, duration, type, name", "NULL, 2000, 5, 2, ''");
    }

    @Test
    public void listsTheNewestFirst() throws Exception {
        addThree(calls());
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(2), // id
                        Bytes.text("120"), // number
                        Bytes.u64(3000), // date
                        Bytes.u64(0), // duration
                        Bytes.u32(3), // type: missed
                        Bytes.text(""), // no name is an empty one
                        Bytes.u64(3),
                        Bytes.text(""), // the caller showed no number
                        Bytes.u64(2000),
                        Bytes.u64(5),
                        Bytes.u32(2),
                        Bytes.text(""),
                        Bytes.u64(1),
                        Bytes.text("110"),
                        Bytes.u64(1000),
                        Bytes.u64(60),
                        Bytes.u32(1),
                        Bytes.text("张三")),
                ask(AgentCommand.LIST_CALLS));
    }

    @Test
    public void noCallsAreNoData() throws Exception {
        calls();
        assertArrayEquals(NO_DATA, ask(AgentCommand.LIST_CALLS));
    }

    @Test
    public void aLogThatIsNotAllowedIsNoData() throws Exception {
        install("call_log", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(AgentCommand.LIST_CALLS));
        assertArrayEquals(
                DONE, ask(Bytes.frame(AgentCommand.DELETE_CALLS, 1, Bytes.u32(1))));
    }

    @Test
    public void deletesWhatIsNamed() throws Exception {
        TableProvider calls = calls();
        addThree(calls);
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(AgentCommand.DELETE_CALLS, 3, Bytes.u32(1), Bytes.u32(3), Bytes.u32(99))));
        assertEquals(1, calls.count());
        assertEquals("2", calls.value("SELECT _id FROM rows"));
    }

    @Test
    public void deletesMoreThanOneSelectionTakes() throws Exception {
        TableProvider calls = calls();
        byte[] ids = {};
        for (int i = 1; i <= 1201; ++i) {
            calls.add("number, date", "'1', " + i);
            ids = Bytes.of(ids, Bytes.u32(i));
        }
        ask(Bytes.frame(AgentCommand.DELETE_CALLS, 1201, ids));
        assertEquals(0, calls.count());
    }

    @Test
    public void deletingNoneDeletesNone() throws Exception {
        TableProvider calls = calls();
        addThree(calls);
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.DELETE_CALLS, 0)));
        assertEquals(3, calls.count());
    }

    @Test
    public void deletingAllSaysOneItemAndHasNone() throws Exception {
        TableProvider calls = calls();
        addThree(calls);
        assertArrayEquals(
                DONE,
                ask(Bytes.of(
                        0x00, 0x0D, 0x47, 0xA0, // 870304
                        0x00, 0x00, 0x00, 0x0C, // total
                        0x00, 0x00, 0x00, 0x01))); // item count
        assertEquals(0, calls.count());
    }

    @Test
    public void aBrokenFrameDeletesNothing() throws Exception {
        TableProvider calls = calls();
        addThree(calls);
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.DELETE_CALLS, 2, Bytes.u32(1))));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.DELETE_ALL_CALLS, 1, 0)));
        assertEquals(3, calls.count());
    }

    private static byte[] ask(AgentCommand command) throws Exception {
        return ask(Bytes.u32(command.code));
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new CallCommands(phone()), request);
    }
}
