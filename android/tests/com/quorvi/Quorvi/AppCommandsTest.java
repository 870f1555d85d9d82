package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.content.ComponentName;
import android.content.Intent;
import android.content.IntentFilter;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageInfo;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;

import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowPackageManager;

import java.io.File;
import java.nio.ByteBuffer;
import java.nio.file.Files;
import java.util.Arrays;

public class AppCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] REFUSED = Bytes.u32(0);
    private static final byte[] RESERVED = Bytes.u32(0);

    @Rule
    public final TemporaryFolder card = new TemporaryFolder();

    private void installExample(int flags) throws Exception {
        File file = card.newFile("base.apk");
        Files.write(file.toPath(), new byte[1234]);
        PackageInfo info = new PackageInfo();
        info.packageName = "com.example.chat";
        info.versionName = "1.2";
        info.firstInstallTime = 1300000000000L;
        info.applicationInfo = new ApplicationInfo();
        info.applicationInfo.packageName = info.packageName;
        info.applicationInfo.nonLocalizedLabel = "聊天";
        info.applicationInfo.sourceDir = file.getPath();
        info.applicationInfo.flags = flags;
        packages().installPackage(info);
    }

    private static ShadowPackageManager packages() {
        return Shadows.shadowOf(phone().getPackageManager());
    }

    @Test
    public void withoutAnyApplicationARecordSaysSo() throws Exception {
        // The agent itself is installed, and leaves itself out.
        for (PackageInfo one : phone().getPackageManager().getInstalledPackages(0)) {
            if (!one.packageName.equals(phone().getPackageName())) {
                packages().removePackage(one.packageName);
            }
        }
        assertArrayEquals(
                Bytes.payload(
                        RESERVED,
                        0x0D, 0xF0, 0xAD, 0xBA), // the name is absent
                ask(Bytes.u32(AgentCommand.LIST_APPLICATIONS.code)));
    }

    @Test
    public void listsAnApplicationWithItsPicture() throws Exception {
        installExample(0);
        byte[] head =
                Bytes.of(
                        RESERVED,
                        Bytes.text("聊天"), // name
                        Bytes.text("com.example.chat"), // package
                        Bytes.text("1.2"), // version
                        Bytes.u32(0), // no part of the system
                        Bytes.u64(1234)); // size of its file
        byte[] tail =
                Bytes.of(
                        Bytes.text(card.getRoot().getPath() + "/base.apk"),
                        RESERVED,
                        Bytes.u64(1300000000000L)); // installed
        byte[] reply = ask(Bytes.u32(AgentCommand.LIST_APPLICATIONS.code));
        int at = find(reply, head);
        assertTrue("no record", at > 0);
        int pictureBytes = (int) ByteBuffer.wrap(reply).getLong(at + head.length);
        int picture = at + head.length + 8;
        assertArrayEquals(
                tail,
                Arrays.copyOfRange(
                        reply, picture + pictureBytes, picture + pictureBytes + tail.length));
    }

    @Test
    public void aPartOfTheSystemSaysSo() throws Exception {
        installExample(ApplicationInfo.FLAG_SYSTEM);
        byte[] head = Bytes.of(Bytes.text("1.2"), Bytes.u32(1));
        assertTrue(find(ask(Bytes.u32(AgentCommand.LIST_APPLICATIONS.code)), head) > 0);
    }

    @Test
    public void startsAnApplication() throws Exception {
        installExample(0);
        ComponentName main = new ComponentName("com.example.chat", "com.example.chat.Main");
        packages().addActivityIfNotPresent(main);
        IntentFilter filter = new IntentFilter(Intent.ACTION_MAIN);
        filter.addCategory(Intent.CATEGORY_LAUNCHER);
        packages().addIntentFilterForActivity(main, filter);
        assertArrayEquals(DONE, ask(run("com.example.chat")));
        Intent started = Shadows.shadowOf(phone()).getNextStartedActivity();
        assertEquals(main, started.getComponent());
    }

    @Test
    public void whatIsNotInstalledIsRefused() throws Exception {
        assertArrayEquals(REFUSED, ask(run("com.example.none")));
        assertNull(Shadows.shadowOf(phone()).getNextStartedActivity());
    }

    private static byte[] run(String name) {
        return Bytes.of(
                Bytes.u32(AgentCommand.RUN_APPLICATION.code),
                Bytes.u32(1), // the count in front of the total
                Bytes.u32(16 + name.length()),
                Bytes.text(name));
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new AppCommands(phone()), request);
    }

    private static int find(byte[] all, byte[] part) {
        for (int at = 0; at + part.length <= all.length; ++at) {
            if (Arrays.equals(part, Arrays.copyOfRange(all, at, at + part.length))) {
                return at;
            }
        }
        return -1;
    }
}
