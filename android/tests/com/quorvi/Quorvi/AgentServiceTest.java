package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNotNull;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.app.Notification;
import android.app.NotificationChannel;
import android.app.NotificationManager;
import android.content.Context;
import android.content.Intent;
import android.os.Build;
import android.os.Looper;
import android.provider.Settings;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.Wire;

import org.junit.After;
import org.junit.Before;
import org.junit.Test;
import org.robolectric.Robolectric;
import org.robolectric.Shadows;
import org.robolectric.android.controller.ServiceController;
import org.robolectric.annotation.Config;
import org.robolectric.shadows.ShadowService;

import java.io.InputStream;
import java.net.InetAddress;
import java.net.ServerSocket;
import java.net.Socket;
import java.util.concurrent.TimeUnit;

/** The service on its own port: these need a computer, or a network of their own, without an agent. */
@Config(qualifiers = "zh-rCN")
public class AgentServiceTest extends OnPhones {
    private static final int NOTICE = 1;
    private static final String USB_STATE = "android.hardware.usb.action.USB_STATE";

    private final ServiceController<AgentService> service =
            Robolectric.buildService(AgentService.class);
    private boolean isThere;

    @Before
    public void forgetWhatWas() {
        AgentState.PROCESS.answered(false);
        AgentState.PROCESS.show(AgentState.Link.STOPPED);
    }

    @After
    public void end() throws Exception {
        if (isThere) {
            destroy();
        }
        for (Thread thread : Thread.getAllStackTraces().keySet()) {
            if (thread.getName().startsWith("agent-")) {
                thread.join();
            }
        }
    }

    private ShadowService start() {
        service.create().startCommand(0, 1);
        isThere = true;
        idle();
        return Shadows.shadowOf(service.get());
    }

    private void destroy() {
        service.destroy();
        isThere = false;
    }

    private static void idle() {
        Shadows.shadowOf(Looper.getMainLooper()).idle();
    }

    private static NotificationManager notices() {
        return (NotificationManager) phone().getSystemService(Context.NOTIFICATION_SERVICE);
    }

    private static Notification notice() {
        return Shadows.shadowOf(notices()).getNotification(NOTICE);
    }

    private static String textOf(Notification notice, String name) {
        return notice.extras.getCharSequence(name).toString();
    }

    /** Android 4.4 puts the whole of a notice into its text, below what stands there. */
    private static String says() {
        return textOf(notice(), Notification.EXTRA_TEXT).split("\n")[0];
    }

    private static Socket connect() throws Exception {
        return new Socket(InetAddress.getByAddress(new byte[] {127, 0, 0, 1}), Wire.AGENT_PORT);
    }

    /** The version, asked as the PC asks it. */
    private static byte[] askVersion() throws Exception {
        Socket socket = connect();
        try {
            socket.getOutputStream().write(Bytes.u32(AgentCommand.AGENT_VERSION.code));
            byte[] word = new byte[4];
            InputStream in = socket.getInputStream();
            for (int have = 0; have < word.length; ) {
                int count = in.read(word, have, word.length - have);
                assertTrue("no answer", count > 0);
                have += count;
            }
            return word;
        } finally {
            socket.close();
        }
    }

    private static void waitFor(AgentState.Link link) {
        long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(60);
        while (AgentState.PROCESS.link() != link) {
            assertTrue("not " + link, System.nanoTime() < end);
            idle();
            Thread.yield();
        }
        idle();
    }

    private static void plug(boolean isPlugged) {
        phone().sendBroadcast(new Intent(USB_STATE).putExtra("connected", isPlugged));
        idle();
    }

    @Test
    public void staysInFrontByANoticeThatSaysWhatItIsAndDoes() {
        Notification notice = start().getLastForegroundNotification();
        assertNotNull(notice);
        assertEquals("奎维掌上工坊", textOf(notice, Notification.EXTRA_TITLE));
        assertTrue((notice.flags & Notification.FLAG_ONGOING_EVENT) != 0);
        assertNotNull(notice.contentIntent);
        assertEquals(phone().getString(R.string.waiting), says());
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void theNoticeListsWhatThisPhoneDoesNotAllow() {
        start();
        String text = textOf(notice(), Notification.EXTRA_BIG_TEXT);
        assertTrue(text, text.contains("在这部手机上，电脑不能："));
        assertTrue(text, text.contains("删除短信"));
        assertEquals(text, Build.VERSION.SDK_INT >= 29, text.contains("读取 IMEI 和 IMSI"));
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void theNoticeSaysWhatItsOwnerHasNotAllowed() {
        start();
        String text = textOf(notice(), Notification.EXTRA_BIG_TEXT);
        assertTrue(text, text.contains("您还没有允许：联系人、短信"));
        for (Permissions permission : Permissions.values()) {
            Shadows.shadowOf(phone()).grantPermissions(permission.androidName);
        }
        AgentState.PROCESS.tell(); // as the window does when it comes back to the front
        idle();
        text = textOf(notice(), Notification.EXTRA_BIG_TEXT);
        assertFalse(text, text.contains("您还没有允许"));
    }

    @Test
    @Config(sdk = {29, 34})
    public void fromAndroid8OnTheNoticeHasAQuietChannelWithAName() {
        start();
        NotificationChannel channel = notices().getNotificationChannel(notice().getChannelId());
        assertEquals("与电脑的连接", channel.getName().toString());
        assertEquals(NotificationManager.IMPORTANCE_LOW, channel.getImportance());
    }

    @Test
    @Config(qualifiers = "en")
    public void aPhoneInEnglishIsToldInEnglish() {
        start();
        assertEquals("Quorvi", textOf(notice(), Notification.EXTRA_TITLE));
    }

    @Test
    public void aPcThatAskedIsShownAsConnected() throws Exception {
        start();
        assertArrayEquals(Bytes.u32(20), askVersion());
        waitFor(AgentState.Link.CONNECTED);
        assertEquals("已与电脑连接。", says());
    }

    @Test
    public void theNoticeAsksWhosePcItIs() {
        start();
        AgentState.PROCESS.ask(new AdbGuard(() -> {}, new String[0], 1));
        idle();
        assertEquals(phone().getString(R.string.ask_pc), says());
        AgentState.PROCESS.answered(true);
        idle();
        assertEquals(phone().getString(R.string.waiting), says());
    }

    @Test
    public void endsWhenTheCableIsUnplugged() {
        ShadowService shadow = start();
        plug(true);
        assertFalse(shadow.isStoppedBySelf());
        plug(false);
        assertTrue(shadow.isStoppedBySelf());
    }

    @Test
    public void aPhoneWithoutACableIsNotUnplugged() {
        ShadowService shadow = start();
        plug(false);
        assertFalse(shadow.isStoppedBySelf());
    }

    @Test
    public void endsWhenDebuggingIsSwitchedOff() {
        ShadowService shadow = start();
        debugging(1);
        assertFalse(shadow.isStoppedBySelf());
        debugging(0);
        assertTrue(shadow.isStoppedBySelf());
    }

    @Test
    @Config(sdk = 34)
    public void fromAndroid11OnDebuggingWithoutACableKeepsIt() {
        ShadowService shadow = start();
        debuggingWithoutCable(1);
        debugging(0);
        assertFalse(shadow.isStoppedBySelf());
        debuggingWithoutCable(0);
        assertTrue(shadow.isStoppedBySelf());
    }

    private static void debuggingWithoutCable(int on) {
        Settings.Global.putInt(phone().getContentResolver(), "adb_wifi_enabled", on);
        phone().getContentResolver()
                .notifyChange(Settings.Global.getUriFor("adb_wifi_enabled"), null);
        idle();
    }

    private static void debugging(int on) {
        Settings.Global.putInt(phone().getContentResolver(), "adb_enabled", on);
        Settings.Secure.putInt(phone().getContentResolver(), "adb_enabled", on);
        phone().getContentResolver()
                .notifyChange(Settings.Secure.getUriFor("adb_enabled"), null);
        idle();
    }

    @Test
    public void anEndedServiceFreesItsPortAtOnceAndSaysSo() throws Exception {
        start();
        destroy();
        new ServerSocket(Wire.AGENT_PORT, 1, InetAddress.getByAddress(new byte[] {127, 0, 0, 1}))
                .close();
        assertEquals(AgentState.Link.STOPPED, AgentState.PROCESS.link());
    }

    @Test
    public void anEndedServicePutsUpNoNoticeAnyMore() {
        start();
        AgentState.PROCESS.show(AgentState.Link.CONNECTED); // its notice is still on its way
        destroy();
        notices().cancelAll();
        idle();
        assertNull(notice());
    }

    @Test
    public void aPortThatAnotherProgramHasIsToldAndTheServiceEnds() throws Exception {
        ServerSocket other =
                new ServerSocket(
                        Wire.AGENT_PORT, 1, InetAddress.getByAddress(new byte[] {127, 0, 0, 1}));
        try {
            assertTrue(start().isStoppedBySelf());
            assertEquals(AgentState.Link.PORT_TAKEN, AgentState.PROCESS.link());
        } finally {
            other.close();
        }
    }
}
