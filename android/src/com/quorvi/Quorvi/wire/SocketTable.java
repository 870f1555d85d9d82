package com.quorvi.Quorvi.wire;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.Reader;

/** Reads the kernel's table of TCP sockets (/proc/net/tcp): whose socket a connection comes from. */
public final class SocketTable {
    /** Of {@link #userOf}: the table has no such socket. */
    public static final int NOBODY = -1;

    /** Of {@link #userOf}: it has one that is being closed, whose user the kernel may not say any more. */
    public static final int LEAVING = -2;

    private static final int LOCAL_COLUMN = 1;
    private static final int REMOTE_COLUMN = 2;
    private static final int STATE_COLUMN = 3;
    private static final int USER_COLUMN = 7;
    private static final String ESTABLISHED = "01";

    private SocketTable() {}

    /**
     * The user of the socket with these ports on the loopback address; closes nothing.
     *
     * @param localPort the port of the socket that is looked for: the peer's own
     * @param remotePort the port that it is connected to: the agent's
     */
    public static int userOf(Reader table, int localPort, int remotePort) throws IOException {
        BufferedReader lines = new BufferedReader(table);
        for (String line = lines.readLine(); line != null; line = lines.readLine()) {
            String[] columns = line.trim().split("\\s+");
            if (columns.length > USER_COLUMN
                    && isLoopback(columns[LOCAL_COLUMN], localPort)
                    && isLoopback(columns[REMOTE_COLUMN], remotePort)) {
                if (!columns[STATE_COLUMN].equals(ESTABLISHED)) {
                    return LEAVING;
                }
                try {
                    return Integer.parseInt(columns[USER_COLUMN]);
                } catch (NumberFormatException e) {
                    return NOBODY;
                }
            }
        }
        return NOBODY;
    }

    /** The address stands as the machine holds it in memory: 127.0.0.1 is 0100007F on a phone. */
    private static boolean isLoopback(String address, int port) {
        int colon = address.indexOf(':');
        if (colon < 0) {
            return false;
        }
        String host = address.substring(0, colon);
        boolean isMapped = host.equals("0000000000000000FFFF00000100007F");
        return (host.equals("0100007F") || isMapped)
                && address.substring(colon + 1).equals(String.format("%04X", port));
    }
}
