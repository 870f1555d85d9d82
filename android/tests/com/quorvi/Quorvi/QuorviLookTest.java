package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import android.graphics.Bitmap;
import android.graphics.Canvas;
import android.os.Build;
import android.os.Looper;
import android.text.Layout;
import android.view.View;
import android.widget.TextView;

import org.junit.Test;
import org.robolectric.Robolectric;
import org.robolectric.RuntimeEnvironment;
import org.robolectric.Shadows;
import org.robolectric.android.controller.ActivityController;
import org.robolectric.annotation.Config;
import org.robolectric.annotation.GraphicsMode;

import java.io.File;
import java.io.FileOutputStream;

/** The agent's window as a narrow phone lays it out, with Android's own fonts. */
@GraphicsMode(GraphicsMode.Mode.NATIVE)
@Config(sdk = {29, 34})
public class QuorviLookTest extends OnPhones {
    private static final int LOSSLESS = 100;

    /** A phone of 320 dp across, and how much larger than usual its owner has letters. */
    private static void hold(String language, float letters) {
        RuntimeEnvironment.setQualifiers(language + "-w320dp-h640dp-xhdpi");
        RuntimeEnvironment.setFontScale(letters);
    }

    @Test
    public void noTextIsCutInChinese() throws Exception {
        hold("zh-rCN", 1);
        look("zh");
    }

    @Test
    public void noTextIsCutInEnglish() throws Exception {
        hold("en-rUS", 1);
        look("en");
    }

    @Test
    public void noTextIsCutWithLargeLetters() throws Exception {
        hold("zh-rCN", 1.3f);
        look("zh-large");
    }

    /** The window at its fullest: it asks about a PC, and leads to the pages for permissions and for settings. */
    private void look(String name) throws Exception {
        forbidSettings();
        AgentState.PROCESS.ask(new AdbGuard(() -> {}, new String[0], 1));
        AgentState.PROCESS.show(AgentState.Link.PORT_TAKEN); // its longest sentence
        ActivityController<Quorvi> window = Robolectric.buildActivity(Quorvi.class).setup();
        Shadows.shadowOf(Looper.getMainLooper()).idle();
        try {
            View content = window.get().findViewById(android.R.id.content);
            assertEquals(640, content.getWidth());
            int[] texts = {0};
            Texts.of(content, text -> {
                ++texts[0];
                assertIsWhole(text, content);
            });
            assertEquals(10, texts[0]);
            picture(window.get().getWindow().getDecorView(), name);
        } finally {
            window.pause().stop().destroy();
            AgentState.PROCESS.answered(false);
            AgentState.PROCESS.show(AgentState.Link.STOPPED);
        }
    }

    private static void assertIsWhole(TextView text, View content) {
        String words = text.getText().toString();
        Layout layout = text.getLayout();
        int width = text.getWidth() - text.getCompoundPaddingLeft() - text.getCompoundPaddingRight();
        int height = text.getHeight() - text.getCompoundPaddingTop() - text.getCompoundPaddingBottom();
        for (int line = 0; line < layout.getLineCount(); ++line) {
            assertEquals(words, 0, layout.getEllipsisCount(line));
            assertTrue(words, layout.getLineMax(line) <= width);
        }
        assertTrue(words, layout.getHeight() <= height);
        int[] at = new int[2];
        text.getLocationInWindow(at);
        assertTrue(words, at[0] >= 0 && at[0] + text.getWidth() <= content.getWidth());
    }

    /** To be looked at: into the folder that the property agent.pictures names. */
    private static void picture(View view, String name) throws Exception {
        String folder = System.getProperty("agent.pictures");
        if (folder == null) {
            return;
        }
        Bitmap bitmap =
                Bitmap.createBitmap(view.getWidth(), view.getHeight(), Bitmap.Config.ARGB_8888);
        view.draw(new Canvas(bitmap));
        File file = new File(folder, name + "-" + Build.VERSION.SDK_INT + ".png");
        try (FileOutputStream out = new FileOutputStream(file)) {
            bitmap.compress(Bitmap.CompressFormat.PNG, LOSSLESS, out);
        }
    }
}
