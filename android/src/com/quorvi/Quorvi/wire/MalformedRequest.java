package com.quorvi.Quorvi.wire;

/** A request that no peer of ours sends. It costs the peer its connection, and nothing else. */
public final class MalformedRequest extends Exception {
    private static final long serialVersionUID = 1;

    public MalformedRequest(String what) {
        super(what);
    }
}
