package com.quorvi.Quorvi.wire;

import static org.junit.Assert.assertFalse;

import java.io.EOFException;
import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Random;

/** Requests of the suite's own fuzz corpora, some of them broken further: the same ones each time. */
public final class BrokenRequests {
    /** In the corpus of the simulated phone, the first byte of a request to its agent. */
    private static final byte AGENT = 3;

    private static final int SEED = 20;

    private final List<byte[]> corpus;
    private final Random random = new Random(SEED);

    BrokenRequests() throws IOException {
        corpus = corpus();
    }

    /** One of them in two is made of a whole request, of every command as often. */
    public static BrokenRequests ofEveryCommand() throws IOException {
        BrokenRequests requests = new BrokenRequests();
        List<byte[]> whole = new ArrayList<>(WholeRequests.all().values());
        for (int i = requests.corpus.size(); i > 0; i -= whole.size()) {
            requests.corpus.addAll(whole);
        }
        return requests;
    }

    /** Asks a table as many; returns how many of them it found malformed. */
    public static int send(CommandTable table, int count) throws IOException {
        BrokenRequests requests = new BrokenRequests();
        int malformed = 0;
        for (int i = 0; i < count; ++i) {
            try {
                Asked.reply(table, requests.next());
            } catch (MalformedRequest | EOFException e) {
                ++malformed;
            }
        }
        return malformed;
    }

    public byte[] next() {
        return mutated(corpus.get(random.nextInt(corpus.size())), random);
    }

    private static List<byte[]> corpus() throws IOException {
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

    private static byte[] mutated(byte[] from, Random random) {
        int length = random.nextInt(8) == 0 ? random.nextInt(from.length + 1) : from.length;
        byte[] bytes = Arrays.copyOf(from, length);
        for (int i = random.nextInt(4); i > 0 && bytes.length > 0; --i) {
            bytes[random.nextInt(bytes.length)] = (byte) random.nextInt(256);
        }
        return bytes;
    }
}
