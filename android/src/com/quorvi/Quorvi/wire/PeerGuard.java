package com.quorvi.Quorvi.wire;

import java.net.Socket;

/** Says who may use the agent. Asked once for each connection, on the thread that accepts them. */
public interface PeerGuard {
    boolean admits(Socket connection);
}
