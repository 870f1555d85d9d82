package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import android.os.Looper;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.AgentServer;
import com.quorvi.Quorvi.wire.BrokenRequests;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.Leftovers;
import com.quorvi.Quorvi.wire.WholeRequests;

import org.junit.After;
import org.junit.Before;
import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.annotation.Config;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.net.InetAddress;
import java.net.Socket;
import java.net.SocketException;
import java.util.Collections;
import java.util.EnumSet;
import java.util.concurrent.Callable;
import java.util.concurrent.FutureTask;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;

/** Requests of every command, whole and broken, over the wire to all that the agent answers by. */
@Config(sdk = {19, 29})
public class BrokenRequestsTest extends OnPhones {
    private static final int REQUESTS = 2000;

    /** After so many the JVM has opened what it opens once. */
    private static final int FIRST_REQUESTS = 500;

    private static final int MAX_SILENCE_MILLIS = 60 * 1000;

    /** Between two looks at what the phone's own thread has to do. */
    private static final int PAUSE_MILLIS = 2;

    private final AgentLog log = new AgentLog();
    private AgentServer agent;

    @Before
    public void start() throws Exception {
        ContactsProvider book = new ContactsProvider();
        install("com.android.contacts", book);
        book.addContact(1);
        book.addData(10, 1, "name", "data1", "'联系人'");
        MessageCommandsTest.Messages messages = new MessageCommandsTest.Messages();
        install("sms", messages);
        messages.add("thread_id, address, date, body, type", "101, '95588', 1000, '余额', 1");
        BookmarkCommandsTest.browser();
        agent = agentOf(log);
        agent.start(0);
    }

    @After
    public void stop() throws Exception {
        agent.stop();
    }

    @Test
    public void brokenRequestsOfEveryCommandLeaveTheAgentAsItWas() throws Exception {
        askEveryCommand();
        BrokenRequests broken = BrokenRequests.ofEveryCommand();
        send(broken, FIRST_REQUESTS);
        int threads = Leftovers.threads();
        int descriptors = Leftovers.descriptors();
        send(broken, REQUESTS - FIRST_REQUESTS);
        for (Exception failure : log.failures) {
            if (failure instanceof RuntimeException) {
                throw new AssertionError("what is broken was not found to be", failure);
            }
        }
        int failed = log.failures.size();
        assertTrue("so few were broken: " + failed, failed > REQUESTS / 10);
        assertTrue("so many were broken: " + failed, failed < REQUESTS * 9 / 10);

        askEveryCommand();
        Leftovers.expectAtMost(threads, Leftovers::threads);
        Leftovers.expectAtMost(descriptors, Leftovers::descriptors);
        agent.stop();
        assertEquals(0, Leftovers.threads());
        assertEquals(0, phone().getCacheDir().list().length);
    }

    private void askEveryCommand() throws Exception {
        log.answered.clear();
        log.failures.clear();
        whileThePhoneRuns(() -> {
            for (byte[] request : WholeRequests.all().values()) {
                ask(request);
            }
            return null;
        });
        assertEquals(Collections.emptyList(), log.failures);
        assertEquals(EnumSet.allOf(AgentCommand.class), log.answered);
        assertArrayEquals(
                Bytes.u32(20),
                whileThePhoneRuns(() -> ask(Bytes.u32(AgentCommand.AGENT_VERSION.code))));
    }

    private void send(BrokenRequests broken, int count) throws Exception {
        whileThePhoneRuns(() -> {
            for (int i = 0; i < count; ++i) {
                ask(broken.next());
            }
            return null;
        });
    }

    /** On another thread, as the phone answers some of what the agent asks it on this one. */
    private static <T> T whileThePhoneRuns(Callable<T> work) throws Exception {
        FutureTask<T> task = new FutureTask<>(work);
        new Thread(task).start();
        while (true) {
            try {
                return task.get(PAUSE_MILLIS, TimeUnit.MILLISECONDS);
            } catch (TimeoutException e) {
                Shadows.shadowOf(Looper.getMainLooper()).idle();
            }
        }
    }

    /** All that comes back, to the end of the connection, which may be its reset. */
    private byte[] ask(byte[] request) throws IOException {
        ByteArrayOutputStream reply = new ByteArrayOutputStream();
        byte[] block = new byte[64 * 1024];
        InetAddress loopback = InetAddress.getByAddress(new byte[] {127, 0, 0, 1});
        try (Socket socket = new Socket(loopback, agent.port())) {
            socket.setSoTimeout(MAX_SILENCE_MILLIS);
            socket.getOutputStream().write(request);
            socket.shutdownOutput();
            InputStream in = socket.getInputStream();
            for (int count = in.read(block); count > 0; count = in.read(block)) {
                reply.write(block, 0, count);
            }
        } catch (SocketException e) {
            return reply.toByteArray();
        }
        return reply.toByteArray();
    }
}
