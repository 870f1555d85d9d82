package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.EOFException;
import java.io.FilterInputStream;
import java.io.IOException;
import java.io.InputStream;

import org.junit.Test;

public class AgentConnectionTest {
    private final CommandTable table = new CommandTable(new EchoGroup());

    @Test
    public void aBareRequestIsFourBytes() throws Exception {
        assertArrayEquals(
                Bytes.of(0x00, 0x00, 0x00, 0x14), // the acknowledge word: version 20
                Asked.reply(
                        table,
                        Bytes.of(0x00, 0x0D, 0x46, 0x73))); // 870003
    }

    @Test
    public void aFramedRequestHasTotalAndCount() throws Exception {
        assertArrayEquals(
                Bytes.of(
                        0x00, 0x00, 0x00, 0x0C, // length: leading word and one u64
                        0x51, 0x56, 0x4C, 0x57, // leading word, which nobody reads
                        0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFE), // the id, unsigned
                Asked.reply(
                        table,
                        Bytes.of(
                                0x00, 0x0D, 0x46, 0xD6, // 870102
                                0x00, 0x00, 0x00, 0x10, // total
                                0x00, 0x00, 0x00, 0x01, // item count
                                0xFF, 0xFF, 0xFF, 0xFE))); // contact id
    }

    @Test
    public void aRequestOnSeveralObjectsNamesEach() throws Exception {
        assertArrayEquals(
                Bytes.payload(Bytes.u64(7), Bytes.u64(8)),
                Asked.reply(
                        table,
                        Bytes.of(
                                0x00, 0x0D, 0x47, 0x9F, // 870303
                                0x00, 0x00, 0x00, 0x14, // total
                                0x00, 0x00, 0x00, 0x02, // item count
                                0x00, 0x00, 0x00, 0x07, // id
                                0x00, 0x00, 0x00, 0x08))); // id
    }

    @Test
    public void aConversationIsCodeAndId() throws Exception {
        assertArrayEquals(
                Bytes.payload(0x00, 0x00, 0x00, 0x0C),
                Asked.reply(
                        table,
                        Bytes.of(
                                0x00, 0x0D, 0x47, 0x3A, // 870202
                                0x00, 0x00, 0x00, 0x0C))); // conversation id
    }

    @Test
    public void runningAnApplicationHasTheCountInFrontOfTheTotal() throws Exception {
        assertArrayEquals(
                Bytes.payload(Bytes.text("com.x")),
                Asked.reply(
                        table,
                        Bytes.of(
                                0x00, 0x0D, 0x49, 0x95, // 870805
                                0x00, 0x00, 0x00, 0x01, // count
                                0x00, 0x00, 0x00, 0x15, // total
                                0x00, 0x00, 0x00, 0x05, // length of the name
                                "com.x")));
    }

    @Test
    public void cleaningHasThreeFlagBytesInFrontOfTheNames() throws Exception {
        assertArrayEquals(
                Bytes.payload(Bytes.u32(1), Bytes.u32(0), Bytes.u32(1), Bytes.text("a")),
                Asked.reply(
                        table,
                        Bytes.of(
                                0x00, 0x0D, 0x4C, 0xB2, // 871602
                                0x00, 0x00, 0x00, 0x14, // total
                                0x00, 0x00, 0x00, 0x01, // count of names
                                0x01, // browser searches
                                0x00, // browser history
                                0x01, // market searches
                                0x00, 0x00, 0x00, 0x01, // length of the name
                                "a")));
    }

    @Test
    public void nothingToListIsTheMarkAlone() throws Exception {
        assertArrayEquals(
                Bytes.of(0x07, 0x5B, 0xCD, 0x17),
                Asked.reply(table, Bytes.u32(AgentCommand.LIST_CALLS.code)));
    }

    @Test
    public void aRequestMayComeByteByByte() throws Exception {
        final byte[] request = Bytes.frame(AgentCommand.READ_CONTACT, 1, Bytes.u32(3));
        InputStream drops = new ByteArrayInputStream(request) {
            @Override
            public synchronized int read(byte[] to, int offset, int count) {
                return super.read(to, offset, Math.min(count, 1));
            }
        };
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        AgentCommand command =
                new AgentConnection(table, Asked.temporary())
                        .serve(drops, out, Asked.NOBODY_WATCHES);
        assertEquals(AgentCommand.READ_CONTACT, command);
        assertArrayEquals(Bytes.payload(Bytes.u64(3)), out.toByteArray());
    }

    @Test
    public void bytesBehindTheFrameAreNotItsOwn() throws Exception {
        byte[] request = Bytes.frame(AgentCommand.READ_CONTACT, 1, Bytes.u32(3));
        assertArrayEquals(
                Bytes.payload(Bytes.u64(3)), Asked.reply(table, Bytes.of(request, "more")));
    }

    @Test
    public void aConnectionThatEndsBehindItsReplyWasAnswered() throws Exception {
        byte[] request = Bytes.u32(AgentCommand.AGENT_VERSION.code);
        InputStream closed = new FilterInputStream(new ByteArrayInputStream(request)) {
            @Override
            public int available() throws IOException {
                throw new IOException("closed");
            }
        };
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        assertEquals(
                AgentCommand.AGENT_VERSION,
                new AgentConnection(table, Asked.temporary())
                        .serve(closed, out, Asked.NOBODY_WATCHES));
        assertArrayEquals(Bytes.u32(20), out.toByteArray());
    }

    @Test
    public void aCodeOutsideTheTableIsMalformed() {
        assertMalformed(Bytes.u32(870005));
    }

    @Test
    public void aCommandThatNobodyAnswersIsMalformed() {
        assertMalformed(Bytes.u32(AgentCommand.LIST_ALARMS.code));
    }

    @Test
    public void aTotalShorterThanItsHeaderIsMalformed() {
        assertMalformed(
                Bytes.of(Bytes.u32(AgentCommand.READ_CONTACT.code), Bytes.u32(11), Bytes.u32(1)));
    }

    @Test
    public void aTotalBeyondTheLimitIsMalformedBeforeItsBytesCome() {
        assertMalformed(
                Bytes.of(
                        Bytes.u32(AgentCommand.READ_CONTACT.code),
                        Bytes.u32(RequestForm.MAX_REQUEST_BYTES + 1),
                        Bytes.u32(1)));
        assertMalformed(
                Bytes.of(
                        Bytes.u32(AgentCommand.READ_CONTACT.code),
                        Bytes.u32(0xFFFFFFFFL),
                        Bytes.u32(1)));
    }

    @Test
    public void aFrameThatEndsBeforeItsFieldsIsMalformed() {
        assertMalformed(Bytes.frame(AgentCommand.READ_CONTACT, 1));
        assertMalformed(Bytes.frame(AgentCommand.DELETE_CALLS, 2, Bytes.u32(7)));
    }

    @Test
    public void aFrameLongerThanItsFieldsIsMalformed() {
        assertMalformed(Bytes.frame(AgentCommand.DELETE_CALLS, 1, Bytes.u32(7), 0));
    }

    @Test
    public void aCountThatNoFrameHoldsIsMalformedAndCostsNoMemory() {
        assertMalformed(Bytes.frame(AgentCommand.DELETE_CALLS, -1, Bytes.u32(7)));
    }

    @Test
    public void aTextLongerThanItsFrameIsMalformed() {
        assertMalformed(
                Bytes.of(
                        Bytes.u32(AgentCommand.RUN_APPLICATION.code),
                        Bytes.u32(1),
                        Bytes.u32(21),
                        Bytes.u32(0x7FFFFFFF),
                        "com.x"));
    }

    @Test
    public void severalItemsForASingleObjectAreMalformed() {
        assertMalformed(Bytes.frame(AgentCommand.READ_CONTACT, 2, Bytes.u32(7)));
    }

    @Test
    public void aRequestThatBreaksOffHasNoReply() {
        assertThrows(EOFException.class, () -> Asked.reply(table, Bytes.of(0x00, 0x0D)));
        assertThrows(
                EOFException.class,
                () -> Asked.reply(
                        table,
                        Bytes.of(
                                Bytes.u32(AgentCommand.READ_CONTACT.code),
                                Bytes.u32(16),
                                Bytes.u32(1))));
    }

    private void assertMalformed(byte[] request) {
        assertThrows(MalformedRequest.class, () -> Asked.reply(table, request));
    }
}
