package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import org.junit.After;
import org.junit.Before;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;

import java.io.File;
import java.net.InetAddress;
import java.net.ServerSocket;
import java.net.Socket;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.concurrent.atomic.AtomicInteger;

public class AdbGuardTest {
    private static final int LONG_MILLIS = 60 * 1000;
    private static final int SHELL = 2000;
    private static final int AN_APPLICATION = 10087;

    @Rule
    public final TemporaryFolder kernel = new TemporaryFolder();

    private final AtomicInteger asked = new AtomicInteger();
    private ServerSocket agent;
    private Socket peer;
    private Socket connection;

    @Before
    public void connect() throws Exception {
        agent = new ServerSocket(0, 1, InetAddress.getByAddress(new byte[] {127, 0, 0, 1}));
        peer = new Socket(agent.getInetAddress(), agent.getLocalPort());
        connection = agent.accept();
    }

    @After
    public void end() throws Exception {
        peer.close();
        connection.close();
        agent.close();
    }

    @Test
    public void adbsDaemonIsAdmittedAndNobodyAsked() throws Exception {
        assertTrue(guard(LONG_MILLIS, tableOf(SHELL)).admits(connection));
        assertTrue(guard(LONG_MILLIS, tableOf(0)).admits(connection));
        assertEquals(0, asked.get());
    }

    @Test
    public void anotherApplicationOfThePhoneIsNotAdmittedAndNobodyAsked() throws Exception {
        assertFalse(guard(LONG_MILLIS, tableOf(AN_APPLICATION)).admits(connection));
        assertEquals(0, asked.get());
    }

    @Test
    public void aPeerThatHasClosedAlreadyIsNotAdmittedAndNobodyAsked() throws Exception {
        assertFalse(guard(LONG_MILLIS, tableOf(0, "05"), emptyTable()).admits(connection));
        assertEquals(0, asked.get());
    }

    @Test
    public void thePeerMayStandInTheSecondTable() throws Exception {
        assertTrue(guard(LONG_MILLIS, noTable(), tableOf(SHELL)).admits(connection));
        assertFalse(guard(LONG_MILLIS, emptyTable(), tableOf(AN_APPLICATION)).admits(connection));
        assertEquals(0, asked.get());
    }

    @Test
    public void aPhoneThatShowsNoTableHasItsOwnerAskedOnce() throws Exception {
        AdbGuard[] guard = {null};
        guard[0] = new AdbGuard(
                () -> {
                    asked.incrementAndGet();
                    guard[0].answer(true);
                },
                new String[] {noTable()},
                LONG_MILLIS);
        assertTrue(guard[0].admits(connection));
        assertTrue(guard[0].admits(connection));
        assertEquals(1, asked.get());
    }

    @Test
    public void anEmptyTableSaysNothingOfThePeer() throws Exception {
        AdbGuard guard = guard(LONG_MILLIS, emptyTable());
        guard.answer(true);
        assertTrue(guard.admits(connection));
    }

    @Test
    public void whomTheOwnerRefusesIsNotAskedAboutAgain() throws Exception {
        AdbGuard guard = guard(LONG_MILLIS, noTable());
        guard.answer(false);
        assertFalse(guard.admits(connection));
        assertEquals(0, asked.get());
    }

    @Test
    public void anOwnerWhoIsAwayAdmitsNobodyUntilTheAnswer() throws Exception {
        AdbGuard guard = guard(1, noTable());
        assertFalse(guard.admits(connection));
        assertFalse(guard.admits(connection));
        assertEquals(2, asked.get());
        guard.answer(true);
        assertTrue(guard.admits(connection));
        assertEquals(2, asked.get());
    }

    private AdbGuard guard(int answerMillis, String... tables) {
        return new AdbGuard(asked::incrementAndGet, tables, answerMillis);
    }

    private String noTable() {
        return new File(kernel.getRoot(), "none").getPath();
    }

    private String emptyTable() throws Exception {
        return kernel.newFile().getPath();
    }

    /** The kernel's table, in which the peer's end belongs to that user. */
    private String tableOf(int user) throws Exception {
        return tableOf(user, "01");
    }

    private String tableOf(int user, String state) throws Exception {
        File table = kernel.newFile();
        String line =
                String.format(
                        "   0: 0100007F:%04X 0100007F:%04X %s 00000000:00000000 00:00000000"
                                + " 00000000 %d 0 4711 1\n",
                        peer.getLocalPort(), agent.getLocalPort(), state, user);
        Files.write(table.toPath(), line.getBytes(StandardCharsets.US_ASCII));
        return table.getPath();
    }
}
