package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;

import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;

import java.io.File;
import java.nio.file.Files;
import java.util.Arrays;

public class FileCommandsTest extends OnPhones {
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] YES = Bytes.u32(1);
    private static final byte[] NO = Bytes.u32(0);

    @Rule
    public final TemporaryFolder card = new TemporaryFolder();

    @Test
    public void listsAFoldersParentThenItsEntriesByName() throws Exception {
        File folder = card.newFolder("DCIM");
        File photo = new File(folder, "b.jpg");
        Files.write(photo.toPath(), new byte[] {1, 2, 3});
        assertTrue(photo.setLastModified(1300000000000L));
        File hidden = new File(folder, ".thumbnails");
        assertTrue(hidden.mkdir());
        assertTrue(hidden.setLastModified(1300000061000L));
        assertArrayEquals(
                Bytes.payload(
                        YES, // the header: a folder
                        Bytes.text(card.getRoot().getPath()), // the parent
                        Bytes.u64(0),
                        Bytes.u64(0),
                        YES,
                        YES,
                        NO,
                        YES, // a folder
                        Bytes.text(hidden.getPath()),
                        Bytes.u64(0), // of no size
                        Bytes.u64(1300000061000L), // changed, milliseconds since 1970
                        YES, // readable
                        YES, // writable
                        YES, // hidden
                        NO, // a file
                        Bytes.text(photo.getPath()),
                        Bytes.u64(3),
                        Bytes.u64(1300000000000L),
                        YES,
                        YES,
                        NO),
                list(folder.getPath()));
    }

    @Test
    public void anEmptyFolderHasItsHeader() throws Exception {
        File folder = card.newFolder("空");
        assertEquals(
                1, records(list(folder.getPath()), card.getRoot().getPath()));
    }

    @Test
    public void separatorsAtTheEndMakeNoDifference() throws Exception {
        File folder = card.newFolder("a");
        assertArrayEquals(list(folder.getPath()), list(folder.getPath() + "//"));
    }

    @Test
    public void whatIsNoFolderIsNoData() throws Exception {
        File file = card.newFile("a.txt");
        assertArrayEquals(NO_DATA, list(file.getPath()));
        assertArrayEquals(NO_DATA, list(file.getPath() + "/none"));
        assertArrayEquals(NO_DATA, list(""));
        assertArrayEquals(NO_DATA, list("android"));
    }

    @Test
    public void theRootIsItsOwnParent() throws Exception {
        byte[] reply =
                ask(new FileCommands(), Bytes.u32(AgentCommand.LIST_FILE_ROOTS.code));
        byte[] header = Bytes.of(YES, Bytes.text("/"), Bytes.u64(0), Bytes.u64(0));
        assertArrayEquals(header, Arrays.copyOfRange(reply, 8, 8 + header.length));
        assertArrayEquals(reply, list("/"));
    }

    /** How many records of folders with this path the reply holds and nothing else. */
    private static int records(byte[] reply, String path) {
        int length = 4 + 4 + Bytes.of(path).length + 8 + 8 + 4 + 4 + 4;
        assertEquals(0, (reply.length - 8) % length);
        return (reply.length - 8) / length;
    }

    private static byte[] list(String path) throws Exception {
        return ask(
                new FileCommands(),
                Bytes.frame(AgentCommand.LIST_DIRECTORY, 1, Bytes.text(path)));
    }
}
