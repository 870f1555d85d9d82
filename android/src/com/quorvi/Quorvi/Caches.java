package com.quorvi.Quorvi;

import android.content.pm.ApplicationInfo;
import android.content.pm.IPackageDataObserver;
import android.content.pm.IPackageStatsObserver;
import android.content.pm.PackageManager;
import android.os.Build;
import android.util.Log;

import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;

/**
 * The caches of the phone's applications. Until Android 5.1 an application could see how large each
 * is and have all of them emptied, never one alone. Any thread but the window's.
 */
@SuppressWarnings("deprecation") // what replaces these came when it was shut
class Caches {
    /** The phone looks at one application after the other; some have hundreds. */
    private static final int SCAN_SECONDS = 20;

    private static final int EMPTYING_SECONDS = 20;
    private static final String TAG = "Quorvi";

    private final PackageManager packages;

    Caches(PackageManager packages) {
        this.packages = packages;
    }

    /** Whether this phone lets the agent at its caches at all. */
    boolean areOpen() {
        return Build.VERSION.SDK_INT < Build.VERSION_CODES.M;
    }

    /** By package, in bytes; without those that are empty, or that the phone was too slow to tell. */
    Map<String, Long> sizes() {
        List<ApplicationInfo> all = packages.getInstalledApplications(0);
        Scan scan = new Scan(all.size());
        for (ApplicationInfo one : all) {
            try {
                packages.getPackageSizeInfo(one.packageName, scan);
            } catch (RuntimeException e) {
                Log.w(TAG, one.packageName + " is not to be measured", e);
                scan.skip();
            }
        }
        scan.await();
        return scan.sizes();
    }

    /** Empties all of them. */
    void empty() {
        final CountDownLatch emptied = new CountDownLatch(1);
        try {
            // More than any phone has free: that takes every cache there is.
            packages.freeStorageAndNotify(Long.MAX_VALUE, new IPackageDataObserver.Stub() {
                @Override
                public void onRemoveCompleted(String name, boolean succeeded) {
                    emptied.countDown();
                }
            });
            emptied.await(EMPTYING_SECONDS, TimeUnit.SECONDS);
        } catch (RuntimeException e) {
            Log.w(TAG, "caches are not to be emptied", e);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    /** Gathers what the phone tells on a thread of its own. */
    private static final class Scan extends IPackageStatsObserver.Stub {
        private final CountDownLatch left;
        private final Map<String, Long> sizes = new HashMap<>();

        Scan(int applications) {
            left = new CountDownLatch(applications);
        }

        @Override
        public void onGetStatsCompleted(android.content.pm.PackageStats stats, boolean succeeded) {
            if (succeeded && stats != null) {
                long bytes = stats.cacheSize + stats.externalCacheSize;
                if (bytes > 0) {
                    synchronized (this) {
                        sizes.put(stats.packageName, bytes);
                    }
                }
            }
            left.countDown();
        }

        void skip() {
            left.countDown();
        }

        void await() {
            try {
                left.await(SCAN_SECONDS, TimeUnit.SECONDS);
            } catch (InterruptedException e) {
                Thread.currentThread().interrupt();
            }
        }

        synchronized Map<String, Long> sizes() {
            return new HashMap<>(sizes);
        }
    }
}
