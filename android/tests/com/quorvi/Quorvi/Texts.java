package com.quorvi.Quorvi;

import android.view.View;
import android.view.ViewGroup;
import android.widget.TextView;

/** What can be read in a window. */
final class Texts {
    /** Is told of each text. */
    interface Reader {
        void read(TextView text);
    }

    private Texts() {}

    /** The texts that are shown in a view and in what it holds, from top to bottom. */
    static void of(View view, Reader reader) {
        if (view.getVisibility() != View.VISIBLE) {
            return;
        }
        if (view instanceof TextView) {
            reader.read((TextView) view);
        } else if (view instanceof ViewGroup) {
            ViewGroup group = (ViewGroup) view;
            for (int i = 0; i < group.getChildCount(); ++i) {
                of(group.getChildAt(i), reader);
            }
        }
    }
}
