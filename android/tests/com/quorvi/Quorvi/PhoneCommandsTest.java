package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import android.Manifest;
import android.app.ActivityManager;
import android.content.Context;
import android.content.ContextWrapper;
import android.content.Intent;
import android.content.pm.PackageInfo;
import android.net.wifi.WifiManager;
import android.os.BatteryManager;
import android.os.Build;
import android.os.SystemClock;
import android.provider.Settings;
import android.telephony.TelephonyManager;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;

import org.junit.Before;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;
import org.robolectric.Shadows;
import org.robolectric.shadows.ShadowEnvironment;
import org.robolectric.shadows.ShadowTelephonyManager;
import org.robolectric.util.ReflectionHelpers;

import java.io.File;
import java.nio.file.Files;

@SuppressWarnings("deprecation")
public class PhoneCommandsTest extends OnPhones {
    private static final byte[] ON = Bytes.u32(1);
    private static final byte[] OFF = Bytes.u32(0);
    private static final long MEGABYTE = 1024 * 1024;

    @Rule
    public final TemporaryFolder kernel = new TemporaryFolder();

    private ShadowTelephonyManager telephony;
    private PhoneFacts facts;
    private CpuName cpu;

    @Before
    public void fill() throws Exception {
        ReflectionHelpers.setStaticField(Build.class, "MANUFACTURER", "Aurora");
        ReflectionHelpers.setStaticField(Build.class, "MODEL", "S2");
        telephony =
                Shadows.shadowOf(
                        (TelephonyManager) phone().getSystemService(Context.TELEPHONY_SERVICE));
        facts = new PhoneFacts(phone(), new Disk(612 * MEGABYTE, 1096 * MEGABYTE));
        cpu = new CpuName(
                write("cpuinfo", "processor\t: 0\nProcessor\t: ARMv7 Processor rev 2 (v7l)\n"),
                write("frequency", "1000000\n"));
    }

    private File write(String name, String text) throws Exception {
        File file = kernel.newFile(name);
        Files.write(file.toPath(), Bytes.of(text));
        return file;
    }

    /** A disk of that size. */
    private static final class Disk extends File {
        private static final long serialVersionUID = 1;
        private final long free;
        private final long whole;

        Disk(long free, long whole) {
            super("/data");
            this.free = free;
            this.whole = whole;
        }

        @Override
        public long getUsableSpace() {
            return free;
        }

        @Override
        public long getTotalSpace() {
            return whole;
        }
    }

    @Test
    public void theSummaryIsCodeLevelAndModel() throws Exception {
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u32(1), // client code
                        Bytes.u32(Build.VERSION.SDK_INT), // API level
                        Bytes.text("Aurora S2")), // model
                ask(AgentCommand.DEVICE_SUMMARY));
    }

    @Test
    public void aModelThatBearsItsMakersNameDoesNotBearItTwice() throws Exception {
        ReflectionHelpers.setStaticField(Build.class, "MODEL", "AURORA Y5");
        assertEquals("AURORA Y5", PhoneCommands.model());
    }

    @Test
    public void theVersionIsTheWord() throws Exception {
        PackageInfo agent = new PackageInfo();
        agent.packageName = phone().getPackageName();
        agent.versionCode = 20;
        Shadows.shadowOf(phone().getPackageManager()).installPackage(agent);
        assertArrayEquals(Bytes.u32(20), ask(AgentCommand.AGENT_VERSION));
    }

    @Test
    public void tellsAllOfThePhoneInOneRecord() throws Exception {
        boolean tellsWho = Build.VERSION.SDK_INT < Build.VERSION_CODES.Q;
        Shadows.shadowOf(phone()).grantPermissions(Manifest.permission.READ_PHONE_STATE);
        telephony.setDeviceId("355402041234567");
        telephony.setSubscriberId("460002512345678");
        telephony.setReadPhoneStatePermission(tellsWho);
        telephony.setNetworkOperatorName("中国移动");
        telephony.setNetworkType(TelephonyManager.NETWORK_TYPE_EDGE);
        battery(41, 50);
        memory(300 * MEGABYTE, 341 * MEGABYTE);
        ShadowEnvironment.setExternalStorageState("removed");
        Settings.System.putInt(phone().getContentResolver(), "screen_brightness", 112);
        Settings.System.putInt(phone().getContentResolver(), "accelerometer_rotation", 1);
        SettingCommandsTest.turnGps(true);
        WifiManager wifi = (WifiManager) phone().getSystemService(Context.WIFI_SERVICE);
        wifi.setWifiEnabled(true);
        Shadows.shadowOf(wifi.getConnectionInfo()).setSSID("Aurora_5G");
        Shadows.shadowOf(wifi.getConnectionInfo()).setLinkSpeed(72);
        assertArrayEquals(
                Bytes.payload(
                        Bytes.text("Aurora S2"), // model
                        Bytes.u64(SystemClock.elapsedRealtime()), // milliseconds since it started
                        Bytes.text("Android " + Build.VERSION.RELEASE), // system version
                        Bytes.text(tellsWho ? "355402041234567" : ""), // IMEI
                        Bytes.text(tellsWho ? "460002512345678" : ""), // IMSI
                        Bytes.text("320 x 470"), // resolution
                        Bytes.text("82"), // battery, percent
                        Bytes.text("ARMv7 Processor rev 2 (v7l) 1.0 GHz"), // CPU
                        Bytes.text("300 MB / 341 MB"), // RAM
                        Bytes.text("612 MB / 1.07 GB"), // ROM
                        Bytes.text(""), // no card
                        ON, // GPS
                        OFF, // Bluetooth
                        ON, // WiFi
                        ON, // gravity sensor
                        Bytes.text(tellsWho ? "中国移动 (EDGE)" : "中国移动"), // mobile network
                        Bytes.text("Aurora_5G (72 Mbps)"), // WiFi network
                        Bytes.u32(112)), // brightness
                ask(AgentCommand.SYSTEM_INFORMATION));
    }

    private static void battery(int level, int scale) {
        phone().sendStickyBroadcast(
                new Intent(Intent.ACTION_BATTERY_CHANGED)
                        .putExtra(BatteryManager.EXTRA_LEVEL, level)
                        .putExtra(BatteryManager.EXTRA_SCALE, scale));
    }

    private static void memory(long free, long whole) {
        ActivityManager.MemoryInfo memory = new ActivityManager.MemoryInfo();
        memory.availMem = free;
        memory.totalMem = whole;
        Shadows.shadowOf((ActivityManager) phone().getSystemService(Context.ACTIVITY_SERVICE))
                .setMemoryInfo(memory);
    }

    @Test
    public void aPhoneThatDoesNotTellWhoItIsLeavesTheTextsEmpty() {
        telephony.setDeviceId("355402041234567");
        telephony.setReadPhoneStatePermission(false);
        assertEquals("", facts.imei());
        assertEquals("", facts.imsi());
    }

    @Test
    public void aTabletWithoutANetworkLeavesTheTextsEmpty() {
        telephony.setNetworkOperatorName(null);
        assertEquals("", facts.mobileNetwork());
        Shadows.shadowOf(wifiInfo()).setLinkSpeed(-1);
        assertEquals("", facts.wifiNetwork());
    }

    @Test
    public void aTabletWithoutARadioLeavesTheTextsEmpty() {
        Context tablet = new ContextWrapper(phone()) {
            @Override
            public Object getSystemService(String name) {
                return name.equals(TELEPHONY_SERVICE) ? null : super.getSystemService(name);
            }
        };
        PhoneFacts ofTablet = new PhoneFacts(tablet, new File("/"));
        assertEquals("", ofTablet.mobileNetwork());
        assertEquals("", ofTablet.imei());
        assertEquals("", ofTablet.imsi());
    }

    @Test
    public void aNetworkOfAKindThatIsNotKnownBearsItsOperatorAlone() {
        telephony.setNetworkOperatorName("中国移动");
        telephony.setNetworkType(99);
        assertEquals("中国移动", facts.mobileNetwork());
    }

    @Test
    public void aWiFiWhoseNameIsNotToldIsConnected() {
        Shadows.shadowOf(wifiInfo()).setSSID("<unknown ssid>");
        Shadows.shadowOf(wifiInfo()).setLinkSpeed(72);
        assertEquals("已连接 (72 Mbps)", facts.wifiNetwork());
    }

    private static android.net.wifi.WifiInfo wifiInfo() {
        return ((WifiManager) phone().getSystemService(Context.WIFI_SERVICE)).getConnectionInfo();
    }

    @Test
    public void sizesFromAGigabyteOnAreGigabytes() {
        assertEquals(
                "1023 MB / 1.00 GB", PhoneFacts.spaceText(1024 * MEGABYTE - 1, 1024 * MEGABYTE));
        assertEquals("0 MB / 7.39 GB", PhoneFacts.spaceText(0, 7570 * MEGABYTE));
    }

    @Test
    public void aMountedCardIsTold() {
        ShadowEnvironment.setExternalStorageState("mounted");
        assertEquals(true, facts.card().matches("\\d.* [MG]B / \\d.* [MG]B"));
    }

    @Test
    public void theProcessorsModelStandsInFrontOfWhatItIsMadeFor() throws Exception {
        assertEquals(
                "Cortex-A55",
                new CpuName(
                                write("a", "Hardware : board\nmodel name : Cortex-A55\n"),
                                new File("/none"))
                        .text());
        assertEquals(
                "board", new CpuName(write("b", "Hardware : board\n"), new File("/none")).text());
    }

    @Test
    public void aKernelThatShowsNothingLeavesTheProcessorEmpty() throws Exception {
        assertEquals("", new CpuName(new File("/none"), new File("/none")).text());
        assertEquals("", new CpuName(write("a", ""), write("b", "no number")).text());
    }

    private byte[] ask(AgentCommand command) throws Exception {
        return ask(
                new PhoneCommands(phone(), new PhoneSwitches(phone()), facts, cpu),
                Bytes.u32(command.code));
    }
}
