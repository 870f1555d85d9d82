package com.quorvi.Quorvi;

import android.content.pm.ApplicationInfo;
import android.content.pm.PackageManager;
import android.graphics.Bitmap;
import android.graphics.Canvas;
import android.graphics.drawable.Drawable;

import java.io.ByteArrayOutputStream;

/** An application's picture, as the PC's lists show it. */
final class AppIcon {
    /** Pixels; the PC shows it smaller, or this large on a sharp screen. */
    private static final int SIDE = 72;

    private static final int LOSSLESS = 100;

    private AppIcon() {}

    /** PNG; null when the application's picture can't be had. */
    static byte[] of(PackageManager packages, ApplicationInfo application) {
        try {
            Drawable drawable = packages.getApplicationIcon(application);
            Bitmap bitmap = Bitmap.createBitmap(SIDE, SIDE, Bitmap.Config.ARGB_8888);
            drawable.setBounds(0, 0, SIDE, SIDE);
            drawable.draw(new Canvas(bitmap));
            ByteArrayOutputStream png = new ByteArrayOutputStream();
            bitmap.compress(Bitmap.CompressFormat.PNG, LOSSLESS, png);
            bitmap.recycle();
            return png.toByteArray();
        } catch (RuntimeException e) {
            // A picture that the application bears and the phone can't read.
            return null;
        } catch (OutOfMemoryError e) {
            // One of many more pixels than the phone has memory for.
            return null;
        }
    }

    static boolean isSystem(ApplicationInfo application) {
        return (application.flags & ApplicationInfo.FLAG_SYSTEM) != 0;
    }
}
