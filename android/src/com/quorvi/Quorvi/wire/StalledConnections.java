package com.quorvi.Quorvi.wire;

import java.io.IOException;
import java.net.Socket;
import java.util.HashMap;
import java.util.Iterator;
import java.util.Map;

/** Closes connections that don't move on for a time. A thread of its own; any thread may call. */
final class StalledConnections {
    private static final long NANOS_PER_MILLI = 1000 * 1000;

    private final long limitNanos;
    private final Map<Socket, Long> deadlines = new HashMap<>();
    private Thread thread;

    StalledConnections(int limitMillis) {
        limitNanos = limitMillis * NANOS_PER_MILLI;
    }

    synchronized void start() {
        thread = new Thread("agent-stalled") {
            @Override
            public void run() {
                watch();
            }
        };
        thread.start();
    }

    void stop() throws InterruptedException {
        Thread ended;
        synchronized (this) {
            ended = thread;
            thread = null;
            notifyAll();
        }
        if (ended != null) {
            ended.join();
        }
    }

    /** From now on this connection has the whole time again. */
    synchronized void expectSoon(Socket connection) {
        deadlines.put(connection, System.nanoTime() + limitNanos);
        notifyAll();
    }

    /** The connection may take the time that it needs, or is gone. */
    synchronized void forget(Socket connection) {
        deadlines.remove(connection);
    }

    private synchronized void watch() {
        try {
            while (thread == Thread.currentThread()) {
                long next = closeOverdue();
                if (next == Long.MAX_VALUE) {
                    wait();
                } else {
                    wait(Math.max(1, next / NANOS_PER_MILLI));
                }
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    /** Nanoseconds to the next deadline; Long.MAX_VALUE when there is none. */
    private long closeOverdue() {
        long now = System.nanoTime();
        long next = Long.MAX_VALUE;
        Iterator<Map.Entry<Socket, Long>> each = deadlines.entrySet().iterator();
        while (each.hasNext()) {
            Map.Entry<Socket, Long> one = each.next();
            long left = one.getValue() - now;
            if (left > 0) {
                next = Math.min(next, left);
                continue;
            }
            each.remove();
            try {
                one.getKey().close();
            } catch (IOException e) {
                // It is closed for us all the same.
            }
        }
        return next;
    }
}
