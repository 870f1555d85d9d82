package com.quorvi.Quorvi;

import android.content.Context;
import android.content.pm.PackageManager;
import android.os.Build;
import android.os.SystemClock;

import com.quorvi.Quorvi.PhoneSwitches.Switch;
import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.IOException;

/** The phone itself: what it is, which version the agent has, and all of its state in one record. */
final class PhoneCommands implements CommandGroup {
    /** What the agent answers as the kind of client it serves. */
    private static final int CLIENT_CODE = 1;

    private final Context context;
    private final PhoneSwitches switches;
    private final PhoneFacts facts;
    private final CpuName cpu;

    PhoneCommands(Context context, PhoneSwitches switches, PhoneFacts facts, CpuName cpu) {
        this.context = context;
        this.switches = switches;
        this.facts = facts;
        this.cpu = cpu;
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.DEVICE_SUMMARY,
            AgentCommand.AGENT_VERSION,
            AgentCommand.SYSTEM_INFORMATION,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange) throws IOException {
        switch (command) {
            case AGENT_VERSION:
                exchange.reply.word(version());
                break;
            case DEVICE_SUMMARY:
                exchange.reply.uint32(CLIENT_CODE).uint32(Build.VERSION.SDK_INT).text(model());
                break;
            default:
                writeInformation(exchange.reply);
        }
    }

    private void writeInformation(ReplyWriter reply) throws IOException {
        reply.text(model())
                .uint64(SystemClock.elapsedRealtime())
                .text("Android " + Build.VERSION.RELEASE)
                .text(facts.imei())
                .text(facts.imsi())
                .text(facts.resolution())
                .text(facts.battery())
                .text(cpu.text())
                .text(facts.ram())
                .text(facts.rom())
                .text(facts.card())
                .flag(switches.isOn(Switch.GPS))
                .flag(switches.isOn(Switch.BLUETOOTH))
                .flag(switches.isOn(Switch.WIFI))
                .flag(switches.isOn(Switch.GRAVITY))
                .text(facts.mobileNetwork())
                .text(facts.wifiNetwork())
                .uint32(facts.brightness());
    }

    /** The manufacturer's name in front, unless the model bears it already. */
    static String model() {
        boolean isNamed = Build.MODEL.toLowerCase().startsWith(Build.MANUFACTURER.toLowerCase());
        return isNamed ? Build.MODEL : Build.MANUFACTURER + " " + Build.MODEL;
    }

    @SuppressWarnings("deprecation") // the number is small, and the longer one came with Android 9
    private int version() throws IOException {
        try {
            return context.getPackageManager()
                    .getPackageInfo(context.getPackageName(), 0)
                    .versionCode;
        } catch (PackageManager.NameNotFoundException e) {
            throw new IOException(e);
        }
    }
}
