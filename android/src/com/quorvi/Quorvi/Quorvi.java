package com.quorvi.Quorvi;

import android.annotation.TargetApi;
import android.app.Activity;
import android.content.ActivityNotFoundException;
import android.content.Intent;
import android.net.Uri;
import android.os.Build;
import android.os.Bundle;
import android.provider.Settings;
import android.view.View;
import android.widget.Button;
import android.widget.TextView;

import java.util.ArrayList;
import java.util.List;

/** The agent's window: starts and stops it, asks for what it needs, asks whose the PC is. */
public final class Quorvi extends Activity {
    /** The phone's page for it, from Android 6 on. */
    private static final String MANAGE_WRITE_SETTINGS =
            "android.settings.action.MANAGE_WRITE_SETTINGS";

    private final AgentState state = AgentState.PROCESS;
    private final Runnable refresh = new Runnable() {
        @Override
        public void run() {
            runOnUiThread(new Runnable() {
                @Override
                public void run() {
                    show();
                }
            });
        }
    };

    @Override
    protected void onCreate(Bundle saved) {
        super.onCreate(saved);
        setContentView(R.layout.main);
        ((TextView) findViewById(R.id.limits)).setText(Limit.textFor(this));
        answerBy(R.id.allow, true);
        answerBy(R.id.refuse, false);
        findViewById(R.id.stop).setOnClickListener(new View.OnClickListener() {
            @Override
            public void onClick(View button) {
                if (isRunning()) {
                    stopService(new Intent(Quorvi.this, AgentService.class));
                } else {
                    startAgent();
                }
            }
        });
        findViewById(R.id.allow_settings).setOnClickListener(new View.OnClickListener() {
            @Override
            public void onClick(View button) {
                open(MANAGE_WRITE_SETTINGS);
            }
        });
        findViewById(R.id.allow_missing).setOnClickListener(new View.OnClickListener() {
            @Override
            public void onClick(View button) {
                open(Settings.ACTION_APPLICATION_DETAILS_SETTINGS);
            }
        });
        if (saved != null) {
            return; // It's the same window, turned or back: what its owner has stopped stays so.
        }
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.M) {
            askForPermissions();
        }
        startAgent();
    }

    /** The PC starts the activity anew each time that it links. */
    @Override
    protected void onNewIntent(Intent intent) {
        super.onNewIntent(intent);
        startAgent();
    }

    @Override
    protected void onResume() {
        super.onResume();
        state.watch(refresh);
        state.tell(); // The owner may have allowed something meanwhile, which the notice says too.
    }

    @Override
    protected void onPause() {
        state.unwatch(refresh);
        super.onPause();
    }

    /** Of the phone's own pages for this application; the settings' first, where it has no such page. */
    private void open(String page) {
        try {
            startActivity(new Intent(page, Uri.parse("package:" + getPackageName())));
        } catch (ActivityNotFoundException e) {
            startActivity(new Intent(Settings.ACTION_SETTINGS));
        }
    }

    private boolean isRunning() {
        return state.link() != AgentState.Link.STOPPED
                && state.link() != AgentState.Link.PORT_TAKEN;
    }

    private void startAgent() {
        Intent service = new Intent(this, AgentService.class);
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.O) {
            startForegroundService(service);
        } else {
            startService(service);
        }
    }

    private void show() {
        ((TextView) findViewById(R.id.state)).setText(state.link().text);
        ((Button) findViewById(R.id.stop)).setText(isRunning() ? R.string.stop : R.string.start);
        show(R.id.ask, state.asking() != null);
        show(
                R.id.allow_settings,
                Build.VERSION.SDK_INT >= Build.VERSION_CODES.M && !mayWriteSettings());
        String missing = Permissions.missingText(this);
        ((TextView) findViewById(R.id.missing)).setText(missing);
        show(R.id.missing, !missing.isEmpty());
        show(R.id.allow_missing, !missing.isEmpty());
    }

    private void show(int view, boolean isShown) {
        findViewById(view).setVisibility(isShown ? View.VISIBLE : View.GONE);
    }

    @TargetApi(Build.VERSION_CODES.M)
    private boolean mayWriteSettings() {
        return Settings.System.canWrite(this);
    }

    private void answerBy(int button, final boolean isAllowed) {
        findViewById(button).setOnClickListener(new View.OnClickListener() {
            @Override
            public void onClick(View clicked) {
                state.answered(isAllowed);
                if (!isAllowed) {
                    state.show(AgentState.Link.REFUSED);
                }
            }
        });
    }

    @TargetApi(Build.VERSION_CODES.M)
    private void askForPermissions() {
        List<String> missing = new ArrayList<>();
        for (Permissions permission : Permissions.values()) {
            if (permission.isMissing(this)) {
                missing.add(permission.androidName);
            }
        }
        if (!missing.isEmpty()) {
            requestPermissions(missing.toArray(new String[0]), 0);
        }
    }
}
