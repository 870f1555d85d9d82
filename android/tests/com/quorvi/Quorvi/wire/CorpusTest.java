package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertFalse;

import java.io.EOFException;
import java.io.File;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Random;

import org.junit.Test;

/** What the suite's own fuzzer found worth keeping, taken as requests, whole and broken. */
public class CorpusTest {
    /** In the corpus of the simulated phone, the first byte of a request to its agent. */
    private static final byte AGENT = 3;

    private static final int REQUESTS = 100 * 1000;
    private static final int SEED = 20;

    private final CommandTable table = new CommandTable(new EchoGroup());

    @Test
    public void aHundredThousandBrokenRequestsLeaveItServing() throws Exception {
        List<byte[]> corpus = corpus();
        Random random = new Random(SEED);
        int malformed = 0;
        for (int i = 0; i < REQUESTS; ++i) {
            byte[] request = mutated(corpus.get(random.nextInt(corpus.size())), random);
            try {
                Asked.reply(table, request);
            } catch (MalformedRequest | EOFException e) {
                ++malformed;
            }
        }
        assertFalse("nothing was broken", malformed < REQUESTS / 10);
        assertArrayEquals(
                Bytes.u32(20), Asked.reply(table, Bytes.u32(AgentCommand.AGENT_VERSION.code)));
    }

    static List<byte[]> corpus() throws Exception {
        List<byte[]> all = new ArrayList<>();
        File[] folders = new File(System.getProperty("agent.corpora")).listFiles();
        for (File folder : folders) {
            for (File file : folder.listFiles()) {
                byte[] bytes = Files.readAllBytes(file.toPath());
                boolean isRequest =
                        folder.getName().equals("fuzz_phone") && bytes.length > 4 && bytes[0] == AGENT;
                if (isRequest) {
                    // Several times, as these come further than what was kept for other readers.
                    for (int i = 0; i < 20; ++i) {
                        all.add(Arrays.copyOfRange(bytes, 1, bytes.length));
                    }
                } else if (bytes.length > 0 && bytes.length < 4096) {
                    all.add(bytes);
                }
            }
        }
        assertFalse("no corpora", all.isEmpty());
        return all;
    }

    static byte[] mutated(byte[] from, Random random) {
        byte[] bytes = Arrays.copyOf(from, random.nextInt(8) == 0 ? random.nextInt(from.length + 1) : from.length);
        for (int i = random.nextInt(4); i > 0 && bytes.length > 0; --i) {
            bytes[random.nextInt(bytes.length)] = (byte) random.nextInt(256);
        }
        return bytes;
    }
}
