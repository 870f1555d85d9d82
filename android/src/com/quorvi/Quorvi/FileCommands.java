package com.quorvi.Quorvi;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

/** The files: the root, and each folder. */
final class FileCommands implements CommandGroup {
    private static final String ROOT = "/";

    /** From Android 7 on the root is not to be read, but these of its folders are, where there. */
    private static final String[] KNOWN_IN_ROOT = {
        "/data", "/mnt", "/sdcard", "/storage", "/system", "/vendor",
    };

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.LIST_FILE_ROOTS, AgentCommand.LIST_DIRECTORY};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        if (command == AgentCommand.LIST_FILE_ROOTS) {
            list(new File(ROOT), exchange.reply);
            return;
        }
        exchange.expectOneItem();
        String path = exchange.request.text();
        exchange.request.end();
        list(new File(path), exchange.reply);
    }

    /**
     * The header, which is a record of the folder's parent, then the entries by name. Of what is no
     * folder there is no data; of one that is not to be read, the header alone.
     */
    private static void list(File folder, ReplyWriter reply) throws IOException {
        if (!folder.isAbsolute() || !folder.isDirectory()) {
            return;
        }
        String parent = folder.getParent();
        write(reply, new File(parent == null ? ROOT : parent), true, 0, 0);
        for (File entry : entriesOf(folder)) {
            boolean isFolder = entry.isDirectory();
            write(reply, entry, isFolder, isFolder ? 0 : entry.length(), entry.lastModified());
        }
    }

    private static List<File> entriesOf(File folder) {
        File[] all = folder.listFiles();
        if (all != null) {
            Arrays.sort(all);
            return Arrays.asList(all);
        }
        List<File> known = new ArrayList<>();
        if (folder.getPath().equals(ROOT)) {
            for (String path : KNOWN_IN_ROOT) {
                if (new File(path).exists()) {
                    known.add(new File(path));
                }
            }
        }
        return known;
    }

    private static void write(
            ReplyWriter reply, File file, boolean isFolder, long size, long modified)
            throws IOException {
        reply.flag(isFolder)
                .text(file.getPath())
                .uint64(size)
                .uint64(modified)
                .flag(file.canRead())
                .flag(file.canWrite())
                .flag(file.isHidden());
    }
}
