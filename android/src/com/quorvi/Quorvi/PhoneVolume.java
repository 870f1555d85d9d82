package com.quorvi.Quorvi;

import android.content.Context;
import android.media.AudioManager;
import android.util.Log;

/** A volume of the phone in the PC's steps, of which a phone may have more or fewer. */
final class PhoneVolume {
    private static final String TAG = "Quorvi";

    private final AudioManager audio;
    private final int stream;
    private final int steps;

    /**
     * @param stream one of AudioManager's
     * @param steps the PC's loudest
     */
    PhoneVolume(Context context, int stream, int steps) {
        audio = (AudioManager) context.getSystemService(Context.AUDIO_SERVICE);
        this.stream = stream;
        this.steps = steps;
    }

    int read() {
        return scaled(audio.getStreamVolume(stream), audio.getStreamMaxVolume(stream), steps);
    }

    /** Refused is silence or its end where the owner wants no disturbance, and a step too many. */
    boolean write(int step) {
        if (step < 0 || step > steps) {
            return false;
        }
        try {
            audio.setStreamVolume(
                    stream, scaled(step, steps, audio.getStreamMaxVolume(stream)), 0);
            return true;
        } catch (RuntimeException e) {
            Log.w(TAG, "volume " + stream, e);
            return false;
        }
    }

    /** To the nearest; but what is to be heard stays so. */
    static int scaled(int value, int from, int to) {
        if (value <= 0 || from <= 0) {
            return 0;
        }
        return Math.max(1, (2 * value * to + from) / (2 * from));
    }
}
