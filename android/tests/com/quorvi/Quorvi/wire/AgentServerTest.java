package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import java.io.IOException;
import java.io.InputStream;
import java.net.ConnectException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.NetworkInterface;
import java.net.ServerSocket;
import java.net.Socket;
import java.net.SocketException;
import java.net.SocketTimeoutException;
import java.net.UnknownHostException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;

import org.junit.After;
import org.junit.Test;

public class AgentServerTest {
    private static final int SHORT_MILLIS = 200;
    private static final int LONG_MILLIS = 60 * 1000;
    private static final InetAddress LOOPBACK = loopback(1);

    private final BlockingQueue<Object> events = new LinkedBlockingQueue<>();
    private final List<Socket> opened = new ArrayList<>();
    private AgentServer server;
    private volatile boolean isAdmitted = true;

    @After
    public void end() throws Exception {
        for (Socket socket : opened) {
            socket.close();
        }
        server.stop();
    }

    @Test
    public void answersAndCloses() throws Exception {
        start(LONG_MILLIS);
        Socket socket = connect();
        socket.getOutputStream().write(Bytes.u32(AgentCommand.AGENT_VERSION.code));
        assertArrayEquals(Bytes.u32(20), everything(socket));
        assertEquals(AgentCommand.AGENT_VERSION, event());
    }

    @Test
    public void aMalformedRequestClosesItsConnectionAndNothingElse() throws Exception {
        start(LONG_MILLIS);
        Socket waiting = connect();
        waiting.getOutputStream().write(0x00);
        Socket malformed = connect();
        malformed.getOutputStream().write(Bytes.u32(0xFFFFFFFFL));
        assertEquals(0, everything(malformed).length);
        assertTrue(event() instanceof MalformedRequest);
        waiting.getOutputStream().write(Bytes.of(0x0D, 0x46, 0x73));
        assertArrayEquals(Bytes.u32(20), everything(waiting));
    }

    @Test
    public void aRequestThatStallsIsCut() throws Exception {
        start(SHORT_MILLIS);
        Socket socket = connect();
        socket.getOutputStream().write(0x00);
        assertEquals(0, everything(socket).length);
        assertTrue(event() instanceof IOException);
    }

    @Test
    public void aReplyThatNobodyTakesIsCut() throws Exception {
        start(SHORT_MILLIS);
        Socket socket = new Socket();
        opened.add(socket);
        // Of a peer that doesn't read the kernel keeps no more; otherwise it may be all eight megabytes.
        socket.setReceiveBufferSize(4096);
        socket.connect(new InetSocketAddress(LOOPBACK, server.port()));
        socket.getOutputStream().write(Bytes.u32(AgentCommand.LIST_CONTACTS.code));
        assertTrue(event() instanceof IOException);
    }

    @Test
    public void aPeerThatIsNotAdmittedGetsNothing() throws Exception {
        isAdmitted = false;
        start(LONG_MILLIS);
        Socket socket = connect();
        assertEquals(0, everything(socket).length);
        isAdmitted = true;
        Socket next = connect();
        next.getOutputStream().write(Bytes.u32(AgentCommand.AGENT_VERSION.code));
        assertArrayEquals(Bytes.u32(20), everything(next));
    }

    @Test
    public void theNinthConnectionWaitsForARoom() throws Exception {
        start(LONG_MILLIS);
        for (int i = 0; i < AgentServer.MAX_CONNECTIONS; ++i) {
            connect();
        }
        Socket ninth = connect();
        ninth.getOutputStream().write(Bytes.u32(AgentCommand.AGENT_VERSION.code));
        ninth.setSoTimeout(SHORT_MILLIS);
        assertThrows(SocketTimeoutException.class, () -> ninth.getInputStream().read());
        ninth.setSoTimeout(LONG_MILLIS);
        opened.get(0).close();
        assertArrayEquals(Bytes.u32(20), everything(ninth));
    }

    @Test
    public void listensOnLoopbackOnly() throws Exception {
        start(LONG_MILLIS);
        // Of the interfaces themselves: what the computer's name leads to is anybody's guess.
        for (NetworkInterface one : Collections.list(NetworkInterface.getNetworkInterfaces())) {
            for (InetAddress address : Collections.list(one.getInetAddresses())) {
                if (!address.equals(LOOPBACK)) {
                    assertThrows(SocketException.class, () -> new Socket(address, server.port()));
                }
            }
        }
        assertThrows(ConnectException.class, () -> new Socket(loopback(2), server.port()));
    }

    @Test
    public void stoppingEndsWhatIsOpen() throws Exception {
        start(LONG_MILLIS);
        Socket socket = connect();
        socket.getOutputStream().write(0x00);
        server.stop();
        assertEquals(0, everything(socket).length);
        assertThrows(ConnectException.class, this::connect);
    }

    /** An owner who ends the agent and starts it again at once gets its port. */
    @Test
    public void aClosedServerHasFreedItsPort() throws Exception {
        for (int i = 0; i < 200; ++i) {
            start(LONG_MILLIS);
            if (i % 2 == 0) {
                ask(); // by then somebody accepts, which is when the port is kept longest
            }
            int port = server.port();
            server.close();
            new ServerSocket(port, 1, LOOPBACK).close();
            server.stop();
        }
    }

    /** Also of a connection whose end the peer has seen, and whose thread is about to end. */
    @Test
    public void aStoppedServerHasNoThreadLeft() throws Exception {
        for (int i = 0; i < 200; ++i) {
            start(LONG_MILLIS);
            ask();
            server.stop();
            assertEquals("round " + i, 0, Leftovers.threads());
        }
    }

    @Test
    public void aThousandSessionsLeaveNoThreadAndNoDescriptor() throws Exception {
        start(LONG_MILLIS);
        ask();
        int threads = Leftovers.threads();
        int descriptors = Leftovers.descriptors();
        for (int i = 0; i < 1000; ++i) {
            ask();
        }
        Leftovers.expectAtMost(threads, Leftovers::threads);
        Leftovers.expectAtMost(descriptors, Leftovers::descriptors);
        server.stop();
        assertEquals(0, Leftovers.threads());
    }

    @Test
    public void brokenRequestsAndPeersThatGoLeaveNoThreadAndNoDescriptor() throws Exception {
        start(LONG_MILLIS);
        ask();
        int threads = Leftovers.threads();
        int descriptors = Leftovers.descriptors();
        BrokenRequests requests = new BrokenRequests();
        for (int i = 0; i < 500; ++i) {
            try (Socket socket = connect()) {
                socket.getOutputStream().write(requests.next());
                socket.shutdownOutput();
                socket.getInputStream().read(); // and goes, whatever else would come
            } catch (SocketException e) {
                continue; // the agent closed it before all was sent
            }
        }
        ask();
        Leftovers.expectAtMost(threads, Leftovers::threads);
        Leftovers.expectAtMost(descriptors, Leftovers::descriptors);
    }

    private void ask() throws Exception {
        Socket socket = connect();
        try {
            socket.getOutputStream().write(Bytes.u32(AgentCommand.AGENT_VERSION.code));
            assertArrayEquals(Bytes.u32(20), everything(socket));
        } finally {
            socket.close();
        }
    }

    private void start(int stallMillis) throws IOException {
        server =
                new AgentServer(
                        new CommandTable(new EchoGroup()),
                        connection -> isAdmitted,
                        Asked.temporary(),
                        new AgentServer.Listener() {
                            @Override
                            public void answered(AgentCommand command) {
                                events.add(command);
                            }

                            @Override
                            public void failed(Exception why) {
                                events.add(why);
                            }
                        },
                        stallMillis);
        server.start(0);
    }

    private Socket connect() throws IOException {
        Socket socket = new Socket(LOOPBACK, server.port());
        opened.add(socket);
        return socket;
    }

    /** Of the addresses 127.0.0.x, of which each is loopback. */
    private static InetAddress loopback(int last) {
        try {
            return InetAddress.getByAddress(new byte[] {127, 0, 0, (byte) last});
        } catch (UnknownHostException e) {
            throw new AssertionError(e);
        }
    }

    private Object event() throws InterruptedException {
        return events.poll(LONG_MILLIS, TimeUnit.MILLISECONDS);
    }

    /** All bytes to the end of the connection, which may be its reset. */
    private static byte[] everything(Socket socket) throws IOException {
        InputStream in = socket.getInputStream();
        byte[] all = {};
        try {
            for (int next = in.read(); next >= 0; next = in.read()) {
                all = Bytes.of(all, next);
            }
        } catch (SocketException e) {
            return all;
        }
        return all;
    }
}
