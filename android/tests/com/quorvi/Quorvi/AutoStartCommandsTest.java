package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertTrue;

import android.content.ComponentName;
import android.content.Intent;
import android.content.IntentFilter;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageInfo;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;

import org.junit.Test;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowPackageManager;

public class AutoStartCommandsTest extends OnPhones {
    private static final byte[] RESERVED = Bytes.u32(0);

    private static void installApplication(String name, String label) {
        PackageInfo info = new PackageInfo();
        info.packageName = name;
        info.applicationInfo = new ApplicationInfo();
        info.applicationInfo.packageName = name;
        info.applicationInfo.nonLocalizedLabel = label;
        packages().installPackage(info);
    }

    private static void listen(String name, String receiver, IntentFilter filter) {
        ComponentName component = new ComponentName(name, name + receiver);
        packages().addReceiverIfNotPresent(component);
        packages().addIntentFilterForReceiver(component, filter);
    }

    private static ShadowPackageManager packages() {
        return Shadows.shadowOf(phone().getPackageManager());
    }

    @Test
    public void aPhoneOnWhichNothingStartsIsNoData() throws Exception {
        assertArrayEquals(Bytes.u32(0x075BCD17), list());
    }

    @Test
    public void listsApplicationByApplicationTheEventsInOrder() throws Exception {
        installApplication("com.example.b", "乙");
        installApplication("com.example.a", "甲");
        listen("com.example.b", ".Start", new IntentFilter(Intent.ACTION_BOOT_COMPLETED));
        listen("com.example.a", ".Screen", new IntentFilter(Intent.ACTION_SCREEN_ON));
        IntentFilter power = new IntentFilter(Intent.ACTION_AIRPLANE_MODE_CHANGED);
        power.addAction(Intent.ACTION_BOOT_COMPLETED);
        listen("com.example.a", ".Power", power);
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u32(1), // event: started
                        Bytes.text("甲"),
                        Bytes.text("com.example.a"),
                        RESERVED,
                        Bytes.u32(3), // event: aeroplane mode
                        Bytes.text("甲"),
                        Bytes.text("com.example.a"),
                        RESERVED,
                        Bytes.u32(43), // event: the screen goes on
                        Bytes.text("甲"),
                        Bytes.text("com.example.a"),
                        RESERVED,
                        Bytes.u32(1),
                        Bytes.text("乙"),
                        Bytes.text("com.example.b"),
                        RESERVED),
                list());
    }

    @Test
    public void findsWhoListensForWhatComesWithAnAddress() throws Exception {
        installApplication("com.example.a", "甲");
        IntentFilter added = new IntentFilter(Intent.ACTION_PACKAGE_ADDED);
        added.addDataScheme("package");
        listen("com.example.a", ".Added", added);
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u32(33),
                        Bytes.text("甲"),
                        Bytes.text("com.example.a"),
                        RESERVED),
                list());
    }

    @Test
    public void twoReceiversForOneEventAreOneRecord() throws Exception {
        installApplication("com.example.a", "甲");
        listen("com.example.a", ".One", new IntentFilter(Intent.ACTION_BOOT_COMPLETED));
        listen("com.example.a", ".Two", new IntentFilter(Intent.ACTION_BOOT_COMPLETED));
        byte[] reply = list();
        assertTrue(reply.length == 8 + 4 + 4 + 3 + 4 + "com.example.a".length() + 4);
    }

    private static byte[] list() throws Exception {
        return ask(
                new AutoStartCommands(phone()), Bytes.u32(AgentCommand.LIST_AUTO_START.code));
    }
}
