package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertEquals;

import java.io.StringReader;

import org.junit.Test;

public class SocketTableTest {
    private static final String HEAD =
            "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid\n";
    /** The agent's own end, which belongs to the agent. */
    private static final String AGENTS_END =
            "   0: 0100007F:C549 0100007F:9C40 01 00000000:00000000 00:00000000 00000000 10123\n";

    private static final int PEER_PORT = 0x9C40;
    private static final int AGENT_PORT = 0xC549;

    @Test
    public void findsTheUserOfThePeersEnd() throws Exception {
        assertEquals(2000, user(HEAD + AGENTS_END + peer("0100007F", "01", "2000")));
        assertEquals(0, user(HEAD + peer("0100007F", "01", "0")));
        assertEquals(10087, user(HEAD + peer("0100007F", "01", "10087")));
    }

    @Test
    public void anAddressMappedIntoTheLongerFormCounts() throws Exception {
        assertEquals(2000, user(HEAD + peer("0000000000000000FFFF00000100007F", "01", "2000")));
    }

    @Test
    public void theAgentsOwnEndIsNotThePeers() throws Exception {
        assertEquals(SocketTable.NOBODY, user(HEAD + AGENTS_END));
    }

    @Test
    public void aSocketThatWaitsForItsEndIsLeavingWhoeverItIsSaidToBe() throws Exception {
        // Closed, and then the kernel gives it to root; closed by half, and still its user's.
        assertEquals(SocketTable.LEAVING, user(HEAD + peer("0100007F", "06", "0")));
        assertEquals(SocketTable.LEAVING, user(HEAD + peer("0100007F", "05", "10087")));
    }

    @Test
    public void anAddressOutsideThePhoneIsNotThePeers() throws Exception {
        assertEquals(SocketTable.NOBODY, user(HEAD + peer("0101A8C0", "01", "0")));
    }

    @Test
    public void linesThatAreNoneArePassedOver() throws Exception {
        assertEquals(SocketTable.NOBODY, user(""));
        assertEquals(
                2000, user("x\n\n1: a b 01 e f g h\n" + peer("0100007F", "01", "2000")));
        assertEquals(SocketTable.NOBODY, user(peer("0100007F", "01", "nobody")));
    }

    private static String peer(String host, String state, String user) {
        return "   1: " + host + ":9C40 " + host + ":C549 " + state
                + " 00000000:00000000 00:00000000 00000000 " + user + " 0 4711 1\n";
    }

    private static int user(String table) throws Exception {
        return SocketTable.userOf(new StringReader(table), PEER_PORT, AGENT_PORT);
    }
}
