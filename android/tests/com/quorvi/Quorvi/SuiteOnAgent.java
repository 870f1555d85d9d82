package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.fail;

import android.os.Looper;

import com.quorvi.Quorvi.wire.AgentServer;
import com.quorvi.Quorvi.wire.Wire;

import org.json.JSONArray;
import org.json.JSONObject;
import org.junit.After;
import org.junit.Before;
import org.junit.Rule;
import org.junit.rules.TemporaryFolder;
import org.robolectric.Shadows;

import java.io.File;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.TimeUnit;

/**
 * The agent, whole, listening on its port of this computer, and the suite's command line asking it.
 * Where the command line is says the property agent.quorvictl.
 */
public abstract class SuiteOnAgent extends OnPhones {
    /** Between two looks at what the phone's own thread has to do. */
    private static final int PAUSE_MILLIS = 2;

    @Rule
    public final TemporaryFolder home = new TemporaryFolder();

    private final AgentLog log = new AgentLog();
    private AgentServer agent;

    @Before
    public final void startAgent() throws Exception {
        agent = agentOf(log);
        agent.start(Wire.AGENT_PORT);
    }

    /** Each request of a story had the frame that its command asks for. */
    @After
    public final void stopAgent() throws Exception {
        agent.stop();
        for (Exception failure : log.failures) {
            throw new AssertionError("a request that the agent did not answer", failure);
        }
    }

    /** What the command line prints, read as JSON. */
    final JSONArray list(String... arguments) throws Exception {
        return new JSONArray(ask("", arguments));
    }

    final JSONObject show(String... arguments) throws Exception {
        return new JSONObject(ask("", arguments));
    }

    /** What the command line prints as JSON; it succeeds. */
    final String ask(String input, String... arguments) throws Exception {
        String[] all = Arrays.copyOf(arguments, arguments.length + 1);
        all[arguments.length] = "--json";
        int status = statusOf(input, all);
        assertEquals(arguments[0] + ": " + read(messages()), 0, status);
        return read(output());
    }

    private File output() {
        return new File(home.getRoot(), "output");
    }

    private File messages() {
        return new File(home.getRoot(), "messages");
    }

    /** How the command line ends: 0 is success. */
    final int statusOf(String input, String... arguments) throws Exception {
        List<String> command = new ArrayList<>();
        command.add(System.getProperty("agent.quorvictl"));
        command.addAll(Arrays.asList(arguments));
        ProcessBuilder builder =
                new ProcessBuilder(command).redirectOutput(output()).redirectError(messages());
        builder.environment().put("HOME", home.getRoot().getPath());
        builder.environment().keySet().removeIf(name -> name.startsWith("XDG_"));
        Process process = builder.start();
        try (OutputStream in = process.getOutputStream()) {
            in.write(input.getBytes(StandardCharsets.UTF_8));
        }
        while (!process.waitFor(PAUSE_MILLIS, TimeUnit.MILLISECONDS)) {
            // The phone's own thread, on which it answers some of what the agent asks it.
            Shadows.shadowOf(Looper.getMainLooper()).idle();
        }
        return process.exitValue();
    }

    private static String read(File file) throws Exception {
        return new String(Files.readAllBytes(file.toPath()), StandardCharsets.UTF_8);
    }

    /** The element whose member is that text; null when there is none. */
    static JSONObject pick(JSONArray list, String member, String text) throws Exception {
        for (int i = 0; i < list.length(); ++i) {
            if (list.getJSONObject(i).getString(member).equals(text)) {
                return list.getJSONObject(i);
            }
        }
        return null;
    }

    static JSONObject the(JSONArray list, String member, String text) throws Exception {
        JSONObject found = pick(list, member, text);
        if (found == null) {
            fail("no " + text + " in " + list);
        }
        return found;
    }
}
