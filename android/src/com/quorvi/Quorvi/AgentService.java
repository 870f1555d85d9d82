package com.quorvi.Quorvi;

import android.annotation.TargetApi;
import android.app.Notification;
import android.app.NotificationChannel;
import android.app.NotificationManager;
import android.app.PendingIntent;
import android.app.Service;
import android.content.BroadcastReceiver;
import android.content.Context;
import android.content.Intent;
import android.content.IntentFilter;
import android.database.ContentObserver;
import android.os.Build;
import android.os.Handler;
import android.os.IBinder;
import android.os.Looper;
import android.provider.Settings;
import android.util.Log;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.AgentServer;
import com.quorvi.Quorvi.wire.Wire;

import java.io.IOException;

/**
 * Keeps the agent's socket open while the owner does something else with the phone. Ends when the
 * cable is unplugged or debugging is switched off, and when the owner says so.
 */
public final class AgentService extends Service {
    private static final String TAG = "Quorvi";
    private static final String CHANNEL = "link";
    private static final int NOTICE = 1;

    /** Sticky, and not among the documented actions; the phone says by it whether a PC is there. */
    private static final String USB_STATE = "android.hardware.usb.action.USB_STATE";

    /** Settings.Global, where it stands from Android 4.2 on, has the same word. */
    private static final String ADB_ENABLED = "adb_enabled";

    /** Of debugging without a cable, a switch of its own from Android 11 on. */
    private static final String ADB_WIFI_ENABLED = "adb_wifi_enabled";

    private final AgentState state = AgentState.PROCESS;
    private final AdbGuard guard = new AdbGuard(new AdbGuard.Owner() {
        @Override
        public void ask() {
            whileRunning(new Runnable() {
                @Override
                public void run() {
                    state.ask(guardOfThis());
                }
            });
        }
    });
    private final Runnable showState = new Runnable() {
        @Override
        public void run() {
            whileRunning(new Runnable() {
                @Override
                public void run() {
                    notifyOwner();
                }
            });
        }
    };
    private final Handler windowsThread = new Handler(Looper.getMainLooper());
    private boolean hasEnded;
    private AgentServer server;
    private boolean wasPlugged;

    private final BroadcastReceiver usb = new BroadcastReceiver() {
        @Override
        public void onReceive(Context context, Intent intent) {
            boolean isPlugged = intent.getBooleanExtra("connected", false);
            if (wasPlugged && !isPlugged) {
                stopSelf();
            }
            wasPlugged = isPlugged;
        }
    };

    private final ContentObserver debugging =
            new ContentObserver(windowsThread) {
                @Override
                public void onChange(boolean isOwnChange) {
                    if (!isDebugged()) {
                        stopSelf();
                    }
                }
            };

    private boolean isDebugged() {
        return Settings.Secure.getInt(getContentResolver(), ADB_ENABLED, 1) != 0
                || Build.VERSION.SDK_INT >= Build.VERSION_CODES.R && isDebuggedWithoutCable();
    }

    private boolean isDebuggedWithoutCable() {
        try {
            return Settings.Global.getInt(getContentResolver(), ADB_WIFI_ENABLED, 0) != 0;
        } catch (RuntimeException e) {
            Log.w(TAG, ADB_WIFI_ENABLED + " is not to be read", e);
            return false;
        }
    }

    private AdbGuard guardOfThis() {
        return guard;
    }

    /**
     * Does it on the window's thread, and not at all once the service has ended: a connection may still
     * be ending then, and a notice that it put up would stay.
     */
    private void whileRunning(final Runnable what) {
        windowsThread.post(new Runnable() {
            @Override
            public void run() {
                if (!hasEnded) {
                    what.run();
                }
            }
        });
    }

    @Override
    public void onCreate() {
        super.onCreate();
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.O) {
            makeChannel();
        }
        startForeground(NOTICE, notice());
        registerReceiver(usb, new IntentFilter(USB_STATE));
        getContentResolver()
                .registerContentObserver(
                        Settings.Secure.getUriFor(ADB_ENABLED), false, debugging);
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.R) {
            getContentResolver()
                    .registerContentObserver(
                            Settings.Global.getUriFor(ADB_WIFI_ENABLED), false, debugging);
        }
        state.watch(showState);
        AgentServer starting =
                new AgentServer(Commands.of(this), guard, getCacheDir(), new Listener());
        try {
            starting.start(Wire.AGENT_PORT);
            server = starting;
            state.show(AgentState.Link.WAITING);
        } catch (IOException e) {
            Log.e(TAG, "port " + Wire.AGENT_PORT, e);
            state.show(AgentState.Link.PORT_TAKEN);
            stopSelf();
        }
    }

    @Override
    public int onStartCommand(Intent intent, int flags, int startId) {
        return START_NOT_STICKY;
    }

    @Override
    public void onDestroy() {
        hasEnded = true;
        state.unwatch(showState);
        unregisterReceiver(usb);
        getContentResolver().unregisterContentObserver(debugging);
        state.answered(false);
        guard.answer(false);
        if (server != null) {
            final AgentServer ending = server;
            // At once, since the owner may start it again at once and then the port must be free.
            ending.close();
            // A provider may take its time with the last request; the window's thread doesn't wait.
            new Thread("agent-stop") {
                @Override
                public void run() {
                    try {
                        ending.stop();
                    } catch (InterruptedException e) {
                        Thread.currentThread().interrupt();
                    }
                }
            }.start();
            state.show(AgentState.Link.STOPPED);
        }
        super.onDestroy();
    }

    @Override
    public IBinder onBind(Intent intent) {
        return null;
    }

    private void notifyOwner() {
        NotificationManager manager =
                (NotificationManager) getSystemService(Context.NOTIFICATION_SERVICE);
        manager.notify(NOTICE, notice());
    }

    private Notification notice() {
        String text = getString(state.asking() != null ? R.string.ask_pc : state.link().text);
        StringBuilder whole = new StringBuilder(text);
        for (String more : new String[] {Permissions.missingText(this), Limit.textFor(this)}) {
            whole.append(more.isEmpty() ? "" : "\n" + more);
        }
        int flags = PendingIntent.FLAG_UPDATE_CURRENT;
        if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.M) {
            flags |= PendingIntent.FLAG_IMMUTABLE;
        }
        return builder()
                .setSmallIcon(R.drawable.notice)
                .setContentTitle(getString(R.string.name))
                .setContentText(text)
                .setStyle(new Notification.BigTextStyle().bigText(whole))
                .setContentIntent(
                        PendingIntent.getActivity(this, 0, new Intent(this, Quorvi.class), flags))
                .setOngoing(true)
                .build();
    }

    @SuppressWarnings("deprecation") // there are no channels before Android 8
    private Notification.Builder builder() {
        return Build.VERSION.SDK_INT >= Build.VERSION_CODES.O
                ? new Notification.Builder(this, CHANNEL)
                : new Notification.Builder(this);
    }

    @TargetApi(Build.VERSION_CODES.O)
    private void makeChannel() {
        NotificationManager manager =
                (NotificationManager) getSystemService(Context.NOTIFICATION_SERVICE);
        manager.createNotificationChannel(
                new NotificationChannel(
                        CHANNEL,
                        getString(R.string.notice_channel),
                        NotificationManager.IMPORTANCE_LOW));
    }

    private final class Listener implements AgentServer.Listener {
        @Override
        public void answered(AgentCommand command) {
            whileRunning(new Runnable() {
                @Override
                public void run() {
                    state.show(AgentState.Link.CONNECTED);
                }
            });
        }

        @Override
        public void failed(Exception why) {
            Log.w(TAG, "a request", why);
        }
    }
}
