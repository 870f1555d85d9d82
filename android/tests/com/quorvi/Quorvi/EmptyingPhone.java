package com.quorvi.Quorvi;

import android.content.pm.IPackageDataObserver;
import android.content.pm.PackageInfo;
import android.os.Handler;
import android.os.Looper;
import android.os.RemoteException;

import org.robolectric.annotation.Implementation;
import org.robolectric.annotation.Implements;
import org.robolectric.shadows.ShadowApplicationPackageManager;

/** Empties all caches when it is asked for room, as phones up to Android 5.1. */
@SuppressWarnings("deprecation")
@Implements(className = "android.app.ApplicationPackageManager", isInAndroidSdk = false)
public final class EmptyingPhone extends ShadowApplicationPackageManager {
    @Override
    @Implementation
    protected void freeStorageAndNotify(long bytes, IPackageDataObserver observer) {
        for (PackageInfo one : getInstalledPackages(0)) {
            addPackage(one, new android.content.pm.PackageStats(one.packageName));
        }
        new Handler(Looper.getMainLooper()).post(() -> {
            try {
                observer.onRemoveCompleted(null, true);
            } catch (RemoteException e) {
                throw new IllegalStateException(e);
            }
        });
    }
}
