package com.quorvi.Quorvi;

import java.util.ArrayList;
import java.util.List;

/** What the activity and the notification show of the agent. Any thread. */
final class AgentState {
    enum Link {
        STOPPED(R.string.stopped),
        PORT_TAKEN(R.string.port_taken),
        WAITING(R.string.waiting),
        /** By the owner, until the agent is started anew. */
        REFUSED(R.string.refused),
        CONNECTED(R.string.connected);

        final int text;

        Link(int text) {
            this.text = text;
        }
    }

    /** The one of this process: the system makes activities and services, and hands them nothing. */
    static final AgentState PROCESS = new AgentState();

    private final List<Runnable> watchers = new ArrayList<>();
    private Link link = Link.STOPPED;
    private AdbGuard asking;

    synchronized Link link() {
        return link;
    }

    /** The guard that waits for the owner's answer; null when none does. */
    synchronized AdbGuard asking() {
        return asking;
    }

    void show(Link next) {
        synchronized (this) {
            if (link == next) {
                return;
            }
            link = next;
        }
        tell();
    }

    /** Asks nothing that the owner has answered by now: a request may come on its way to here. */
    void ask(AdbGuard guard) {
        if (guard.isAnswered()) {
            return;
        }
        synchronized (this) {
            asking = guard;
        }
        tell();
    }

    void answered(boolean isAllowed) {
        AdbGuard guard;
        synchronized (this) {
            guard = asking;
            asking = null;
        }
        if (guard != null) {
            guard.answer(isAllowed);
        }
        tell();
    }

    /** @param watcher is run on the thread on which the change happened */
    synchronized void watch(Runnable watcher) {
        watchers.add(watcher);
    }

    synchronized void unwatch(Runnable watcher) {
        watchers.remove(watcher);
    }

    /** Has all that is shown looked at again. */
    void tell() {
        List<Runnable> all;
        synchronized (this) {
            all = new ArrayList<>(watchers);
        }
        for (Runnable watcher : all) {
            watcher.run();
        }
    }
}
