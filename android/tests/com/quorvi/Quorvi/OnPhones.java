package com.quorvi.Quorvi;

import android.app.AppOpsManager;
import android.app.Application;
import android.content.ContentProvider;
import android.content.Context;
import android.content.pm.ProviderInfo;
import android.os.Process;

import com.quorvi.Quorvi.wire.AgentServer;
import com.quorvi.Quorvi.wire.Asked;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.CommandTable;

import org.junit.After;
import org.junit.runner.RunWith;
import org.robolectric.RobolectricTestRunner;
import org.robolectric.RuntimeEnvironment;
import org.robolectric.Shadows;
import org.robolectric.annotation.Config;
import org.robolectric.shadows.ShadowContentResolver;

import java.util.ArrayList;
import java.util.List;

/** A test on Android itself: each runs on 4.4, 6, 10 and 14. */
@RunWith(RobolectricTestRunner.class)
@Config(sdk = {19, 23, 29, 34}, shadows = Radio.class)
public abstract class OnPhones {
    private static final List<TableProvider> INSTALLED = new ArrayList<>();

    @After
    public final void closeDatabases() {
        for (TableProvider provider : INSTALLED) {
            provider.database().close();
        }
        INSTALLED.clear();
    }

    static Application phone() {
        return RuntimeEnvironment.getApplication();
    }

    /** From now on the phone has this database. */
    static void install(String authority, ContentProvider provider) {
        ProviderInfo info = new ProviderInfo();
        info.authority = authority;
        provider.attachInfo(phone(), info);
        if (provider instanceof TableProvider) {
            INSTALLED.add((TableProvider) provider);
        }
        ShadowContentResolver.registerProviderInternal(authority, provider);
    }

    /** The whole agent, which admits everybody and is not started yet. */
    static AgentServer agentOf(AgentLog log) {
        return new AgentServer(
                Commands.of(phone()), connection -> true, phone().getCacheDir(), log);
    }

    /** As it is from Android 6 on until the owner has been on the page for it. */
    static void forbidSettings() {
        AppOpsManager operations =
                (AppOpsManager) phone().getSystemService(Context.APP_OPS_SERVICE);
        Shadows.shadowOf(operations)
                .setMode(
                        AppOpsManager.OPSTR_WRITE_SETTINGS,
                        Process.myUid(),
                        phone().getPackageName(),
                        AppOpsManager.MODE_ERRORED);
    }

    static byte[] ask(CommandGroup group, byte[] request) throws Exception {
        return Asked.reply(new CommandTable(group), request);
    }
}
