package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.util.Arrays;

import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;

public class ReplyWriterTest {
    @Rule
    public final TemporaryFolder folder = new TemporaryFolder();

    @Test
    public void integersAreBigEndian() throws Exception {
        ReplyWriter reply = writer();
        reply.uint32(0x01020304).uint64(0x05060708090A0B0CL);
        assertArrayEquals(
                Bytes.of(
                        0x00, 0x00, 0x00, 0x10, // length
                        0x51, 0x56, 0x4C, 0x57, // leading word
                        0x01, 0x02, 0x03, 0x04, // u32
                        0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C), // u64
                sent(reply));
    }

    @Test
    public void aTextsLengthCountsBytes() throws Exception {
        ReplyWriter reply = writer();
        reply.text("张");
        assertArrayEquals(
                Bytes.payload(
                        0x00, 0x00, 0x00, 0x03, // length
                        0xE5, 0xBC, 0xA0), // 张
                sent(reply));
    }

    @Test
    public void anEmptyTextIsNotAnAbsentOne() throws Exception {
        ReplyWriter reply = writer();
        reply.text("").text(null).absentText();
        assertArrayEquals(
                Bytes.payload(
                        0x00, 0x00, 0x00, 0x00, // empty
                        0x00, 0x00, 0x00, 0x00, // null, which counts as empty
                        0x0D, 0xF0, 0xAD, 0xBA), // absent
                sent(reply));
    }

    @Test
    public void aCharacterOutsideTheBasicPlaneIsFourBytes() throws Exception {
        ReplyWriter reply = writer();
        reply.text("😀");
        assertArrayEquals(
                Bytes.payload(Bytes.u32(4), 0xF0, 0x9F, 0x98, 0x80), sent(reply));
    }

    @Test
    public void aPictureHasALengthOf64Bits() throws Exception {
        ReplyWriter reply = writer();
        reply.picture(new byte[] {9}).picture(null);
        assertArrayEquals(Bytes.payload(Bytes.u64(1), 9, Bytes.u64(0)), sent(reply));
    }

    @Test
    public void aPictureThatMayBeMissingHasAFlagInFront() throws Exception {
        ReplyWriter reply = writer();
        reply.optionalPicture(new byte[] {9}).optionalPicture(null);
        assertArrayEquals(
                Bytes.payload(Bytes.u32(1), Bytes.u64(1), 9, Bytes.u32(0)), sent(reply));
    }

    @Test
    public void aReplyWithoutAnythingIsNoData() throws Exception {
        assertArrayEquals(Bytes.of(0x07, 0x5B, 0xCD, 0x17), sent(writer()));
    }

    @Test
    public void aLengthThatReadsAsNoDataIsPadded() {
        assertTrue(ReplyWriter.isLengthReserved(123456791));
        assertFalse(ReplyWriter.isLengthReserved(123456790));
        assertFalse(ReplyWriter.isLengthReserved(123456792));
    }

    @Test
    public void aLargeReplyGoesThroughAFileThatHasNoName() throws Exception {
        byte[] block = new byte[100 * 1000];
        Arrays.fill(block, (byte) 7);
        ReplyWriter reply = writer();
        for (int i = 0; i < 30; ++i) {
            reply.raw(block);
        }
        assertEquals(1, openFiles());
        assertEquals(0, namedFiles());
        byte[] all = sent(reply);
        assertEquals(4 + 4 + 30 * block.length, all.length);
        assertArrayEquals(Bytes.u32(4 + 30 * block.length), Arrays.copyOf(all, 4));
        for (int i = 8; i < all.length; ++i) {
            assertEquals(7, all[i]);
        }
        reply.close();
        assertEquals(0, openFiles());
        assertEquals(0, namedFiles());
    }

    @Test
    public void aReplyThatIsGivenUpLeavesNoFile() throws Exception {
        ReplyWriter reply = writer();
        reply.raw(new byte[3 * Spool.MEMORY_BYTES]);
        assertEquals(1, openFiles());
        assertEquals(0, namedFiles());
        reply.close();
        assertEquals(0, openFiles());
        assertEquals(0, namedFiles());
    }

    private ReplyWriter writer() {
        return new ReplyWriter(folder.getRoot());
    }

    private int namedFiles() {
        return folder.getRoot().list().length;
    }

    /** Files of the folder that this process has open, by whatever name they had. */
    private int openFiles() throws Exception {
        int count = 0;
        for (File descriptor : new File("/proc/self/fd").listFiles()) {
            count += file(descriptor).startsWith(folder.getRoot().getCanonicalPath()) ? 1 : 0;
        }
        return count;
    }

    private static String file(File descriptor) throws IOException {
        try {
            return Files.readSymbolicLink(descriptor.toPath()).toString();
        } catch (NoSuchFileException e) {
            return ""; // the one that the folder was listed by
        }
    }

    private static byte[] sent(ReplyWriter reply) throws Exception {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        reply.sendTo(out, Asked.NOBODY_WATCHES);
        return out.toByteArray();
    }
}
