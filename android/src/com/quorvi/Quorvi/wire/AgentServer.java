package com.quorvi.Quorvi.wire;

import java.io.File;
import java.io.IOException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.ServerSocket;
import java.net.Socket;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.Iterator;
import java.util.List;
import java.util.Set;

/**
 * Listens on the phone's own loopback address and answers, each connection on a thread of its own.
 * start(), close() and stop() may be called on any thread, start() once.
 */
public final class AgentServer {
    /** Connections that are answered at once; the others wait. */
    public static final int MAX_CONNECTIONS = 8;

    /** How long a peer may send nothing of its request, or take nothing of its reply. */
    public static final int STALL_MILLIS = 30 * 1000;

    private static final int BACKLOG = 50;

    /**
     * The acceptor leaves a closed socket within microseconds; a phone that is busy gets a second. In
     * looks, since a phone that slept in between has not been busy.
     */
    private static final int MAX_LOOKS = 100;

    private static final int LOOK_MILLIS = 10;

    private final AgentConnection connections;
    private final PeerGuard guard;
    private final Listener listener;
    private final StalledConnections stalled;
    private final Set<Socket> served = new HashSet<>();

    /** Of connections. One that has ended stands here until the next begins. */
    private final List<Thread> threads = new ArrayList<>();

    private ServerSocket socket;
    private Thread acceptor;
    private boolean isAccepting;
    private boolean stopping;

    /** @param spoolFolder where replies are kept that are too large for memory */
    public AgentServer(CommandTable table, PeerGuard guard, File spoolFolder, Listener listener) {
        this(table, guard, spoolFolder, listener, STALL_MILLIS);
    }

    AgentServer(
            CommandTable table,
            PeerGuard guard,
            File spoolFolder,
            Listener listener,
            int stallMillis) {
        connections = new AgentConnection(table, spoolFolder);
        this.guard = guard;
        this.listener = listener;
        stalled = new StalledConnections(stallMillis);
    }

    /** @param port 0 for one that is free */
    public void start(int port) throws IOException {
        socket = new ServerSocket();
        try {
            socket.setReuseAddress(true);
            socket.bind(
                    new InetSocketAddress(
                            InetAddress.getByAddress(new byte[] {127, 0, 0, 1}), port),
                    BACKLOG);
        } catch (IOException e) {
            socket.close();
            throw e;
        }
        stalled.start();
        acceptor = new Thread("agent-accept") {
            @Override
            public void run() {
                acceptAll();
            }
        };
        acceptor.start();
    }

    public int port() {
        return socket.getLocalPort();
    }

    /** Frees the port and ends every connection, without waiting for what a command still does. */
    public synchronized void close() {
        stopping = true;
        closeQuietly(socket);
        for (Socket one : served) {
            closeQuietly(one);
        }
        notifyAll();
        waitUntilNobodyAccepts();
    }

    /** The kernel keeps a closed socket, and its port, until the call that waits on it has returned. */
    private void waitUntilNobodyAccepts() {
        try {
            for (int looks = 0; isAccepting && looks < MAX_LOOKS; ++looks) {
                wait(LOOK_MILLIS);
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    /** Closes, and returns when none of the server's threads is left. */
    public void stop() throws InterruptedException {
        close();
        acceptor.join();
        List<Thread> begun; // and no more begin
        synchronized (this) {
            begun = new ArrayList<>(threads);
        }
        for (Thread thread : begun) {
            thread.join();
        }
        stalled.stop();
    }

    private void acceptAll() {
        while (waitForRoom()) {
            Socket connection;
            try {
                connection = accept();
            } catch (IOException e) {
                if (isStopping() || !pauseAfterFailure()) {
                    return;
                }
                continue;
            }
            if (!guard.admits(connection) || !serve(connection)) {
                closeQuietly(connection);
            }
        }
    }

    /** Called by the acceptor, behind waitForRoom(), which says that it accepts. */
    private Socket accept() throws IOException {
        try {
            return socket.accept();
        } finally {
            synchronized (this) {
                isAccepting = false;
                notifyAll();
            }
        }
    }

    /** False when the server is to stop. */
    private synchronized boolean waitForRoom() {
        try {
            while (!stopping && served.size() >= MAX_CONNECTIONS) {
                wait();
            }
        } catch (InterruptedException e) {
            return false;
        }
        isAccepting = !stopping;
        return isAccepting;
    }

    private synchronized boolean isStopping() {
        return stopping;
    }

    /** A phone that is out of descriptors has some again when a connection has ended. */
    private synchronized boolean pauseAfterFailure() {
        try {
            wait(100);
        } catch (InterruptedException e) {
            return false;
        }
        return !stopping;
    }

    private synchronized boolean serve(final Socket connection) {
        if (stopping) {
            return false;
        }
        Thread thread = new Thread("agent-connection") {
            @Override
            public void run() {
                try {
                    answer(connection);
                } finally {
                    end(connection);
                }
            }
        };
        served.add(connection);
        thread.start();
        forgetEndedThreads();
        threads.add(thread);
        return true;
    }

    private void forgetEndedThreads() {
        Iterator<Thread> each = threads.iterator();
        while (each.hasNext()) {
            if (!each.next().isAlive()) {
                each.remove();
            }
        }
    }

    private void answer(final Socket connection) {
        AgentConnection.Watch watch = new AgentConnection.Watch() {
            @Override
            public void moved() {
                stalled.expectSoon(connection);
            }

            @Override
            public void answering() {
                stalled.forget(connection);
            }
        };
        try {
            connection.setTcpNoDelay(true);
            watch.moved();
            AgentCommand command =
                    connections.serve(
                            connection.getInputStream(), connection.getOutputStream(), watch);
            listener.answered(command);
        } catch (MalformedRequest e) {
            listener.failed(e);
        } catch (IOException e) {
            listener.failed(e);
        } catch (RuntimeException e) {
            // What the phone's providers throw costs one connection, not the agent.
            listener.failed(e);
        } catch (OutOfMemoryError e) {
            // So does a record that this phone has no memory for.
            listener.failed(new IOException(e));
        }
    }

    private synchronized void end(Socket connection) {
        stalled.forget(connection);
        closeQuietly(connection);
        served.remove(connection);
        notifyAll();
    }

    private static void closeQuietly(Socket connection) {
        try {
            connection.close();
        } catch (IOException e) {
            // It is closed for us all the same.
        }
    }

    /** On Android 4.1 a ServerSocket is no Closeable yet. */
    private static void closeQuietly(ServerSocket listening) {
        try {
            listening.close();
        } catch (IOException e) {
            // It is closed for us all the same.
        }
    }

    /** Is told what came of each connection, on that connection's thread. */
    public interface Listener {
        void answered(AgentCommand command);

        void failed(Exception why);
    }
}
