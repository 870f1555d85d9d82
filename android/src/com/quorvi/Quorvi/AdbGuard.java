package com.quorvi.Quorvi;

import com.quorvi.Quorvi.wire.PeerGuard;
import com.quorvi.Quorvi.wire.SocketTable;

import java.io.FileReader;
import java.io.IOException;
import java.io.Reader;
import java.net.Socket;

/**
 * Admits adb's daemon and nobody else of this phone. Whose a connection is stands in the kernel's
 * table of sockets; a phone that doesn't show that table (from Android 10 on) has its owner asked,
 * once: a guard is made each time that the agent starts, and the agent ends when the cable goes.
 */
final class AdbGuard implements PeerGuard {
    private static final int ROOT = 0;
    private static final int SHELL = 2000;

    /** How long a connection waits for the owner; the PC waits that long too. */
    private static final int ANSWER_MILLIS = 25 * 1000;

    private final String[] tables;
    private final Owner owner;
    private final int answerMillis;
    private Answer answer = Answer.NONE;

    private enum Answer {
        NONE,
        ALLOWED,
        REFUSED
    }

    AdbGuard(Owner owner) {
        this(owner, new String[] {"/proc/net/tcp", "/proc/net/tcp6"}, ANSWER_MILLIS);
    }

    /** @param tables the files that say whose a socket is */
    AdbGuard(Owner owner, String[] tables, int answerMillis) {
        this.owner = owner;
        this.tables = tables.clone();
        this.answerMillis = answerMillis;
    }

    @Override
    public boolean admits(Socket connection) {
        for (String table : tables) {
            try {
                int user = userOf(connection, table);
                if (user == SocketTable.LEAVING) {
                    return false; // Who has gone takes no reply, and the owner isn't troubled.
                }
                if (user != SocketTable.NOBODY) {
                    return user == ROOT || user == SHELL;
                }
            } catch (IOException e) {
                // The next table may be shown.
            }
        }
        // A table that is shown and does not have the socket, or a table without any socket, as
        // some phones show it, says nothing about the peer.
        return askOwner();
    }

    /** The owner's answer. Any thread. */
    synchronized void answer(boolean isAllowed) {
        answer = isAllowed ? Answer.ALLOWED : Answer.REFUSED;
        notifyAll();
    }

    synchronized boolean isAnswered() {
        return answer != Answer.NONE;
    }

    private static int userOf(Socket connection, String table) throws IOException {
        Reader reader = new FileReader(table);
        try {
            return SocketTable.userOf(reader, connection.getPort(), connection.getLocalPort());
        } finally {
            reader.close();
        }
    }

    private boolean askOwner() {
        synchronized (this) {
            if (answer != Answer.NONE) {
                return answer == Answer.ALLOWED;
            }
        }
        owner.ask();
        return waitForAnswer();
    }

    private synchronized boolean waitForAnswer() {
        long end = System.nanoTime() + answerMillis * 1000000L;
        try {
            while (answer == Answer.NONE) {
                long left = (end - System.nanoTime()) / 1000000L;
                if (left <= 0) {
                    return false;
                }
                wait(left);
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
        return answer == Answer.ALLOWED;
    }

    /** Is asked on the phone's screen; answer() tells what the owner said. */
    interface Owner {
        void ask();
    }
}
