package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.content.ComponentName;
import android.content.Intent;
import android.content.IntentFilter;
import android.os.Build;
import android.os.Bundle;
import android.os.Looper;
import android.view.View;
import android.widget.TextView;

import org.junit.After;
import org.junit.Before;
import org.junit.Test;
import org.robolectric.Robolectric;
import org.robolectric.Shadows;
import org.robolectric.android.controller.ActivityController;
import org.robolectric.annotation.Config;
import org.robolectric.shadows.ShadowActivity;
import org.robolectric.shadows.ShadowPackageManager;

import java.net.Socket;
import java.util.Arrays;
import java.util.Set;
import java.util.TreeSet;

/** The agent's window, by what its owner sees and taps. */
@Config(qualifiers = "zh-rCN")
public class QuorviTest extends OnPhones {
    private ActivityController<Quorvi> window;

    @Before
    public void open() {
        AgentState.PROCESS.answered(false);
        AgentState.PROCESS.show(AgentState.Link.STOPPED);
        window = Robolectric.buildActivity(Quorvi.class).setup();
        idle();
    }

    @After
    public void close() {
        window.pause().stop().destroy();
        AgentState.PROCESS.answered(false);
        AgentState.PROCESS.show(AgentState.Link.STOPPED);
    }

    private static void idle() {
        Shadows.shadowOf(Looper.getMainLooper()).idle();
    }

    private static void show(AgentState.Link link) {
        AgentState.PROCESS.show(link);
        idle();
    }

    private View view(int id) {
        return window.get().findViewById(id);
    }

    private String text(int id) {
        return ((TextView) view(id)).getText().toString();
    }

    private boolean isShown(int id) {
        return view(id).getVisibility() == View.VISIBLE;
    }

    /** All that stands in the window, a line each. */
    private String allText() {
        StringBuilder all = new StringBuilder();
        Texts.of(window.get().findViewById(android.R.id.content), view -> {
            all.append(view.getText()).append('\n');
        });
        return all.toString();
    }

    private static Intent startedService() {
        return Shadows.shadowOf(phone()).getNextStartedService();
    }

    @Test
    public void startsTheAgent() {
        assertEquals(
                AgentService.class.getName(), startedService().getComponent().getClassName());
    }

    @Test
    public void thePcsNextLinkStartsItAgain() {
        startedService();
        assertNull(startedService());
        window.newIntent(new Intent());
        assertEquals(
                AgentService.class.getName(), startedService().getComponent().getClassName());
    }

    @Test
    public void aWindowThatIsTurnedStartsNothingThatItsOwnerHasStopped() {
        startedService();
        Bundle saved = new Bundle();
        window.saveInstanceState(saved);
        ActivityController<Quorvi> turned = Robolectric.buildActivity(Quorvi.class).setup(saved);
        assertNull(startedService());
        assertNull(Shadows.shadowOf(turned.get()).getLastRequestedPermission());
        turned.pause().stop().destroy();
    }

    @Test
    public void tellsInChineseWhatItIs() {
        assertTrue(allText(), allText().contains("这是奎维掌上工坊在手机上的一端"));
    }

    @Test
    @Config(qualifiers = "en")
    public void tellsInEnglishWhatItIs() {
        assertTrue(allText(), allText().contains(phone().getString(R.string.what)));
        assertFalse(allText(), allText().codePoints().anyMatch(Character::isIdeographic));
    }

    @Test
    public void promisesNoMoreThanItsAndroidLetsItSee() {
        boolean seesWhoAsks = Build.VERSION.SDK_INT < Build.VERSION_CODES.Q;
        assertEquals(allText(), seesWhoAsks, allText().contains("只有数据线另一端的电脑"));
        assertEquals(allText(), !seesWhoAsks, allText().contains("不要打开您不信任的应用"));
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void asksForEachPermissionThatTheOwnerGives() {
        ShadowActivity.PermissionsRequest request =
                Shadows.shadowOf(window.get()).getLastRequestedPermission();
        Set<String> needed = new TreeSet<>();
        for (Permissions permission : Permissions.values()) {
            if (permission.isAsked()) {
                needed.add(permission.androidName);
            }
        }
        assertEquals(needed, new TreeSet<>(Arrays.asList(request.requestedPermissions)));
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void asksOnlyForWhatItHasNotYet() {
        Set<String> all = new TreeSet<>();
        for (Permissions permission : Permissions.values()) {
            all.add(permission.androidName);
        }
        all.remove("android.permission.SEND_SMS");
        Shadows.shadowOf(phone()).grantPermissions(all.toArray(new String[0]));
        ActivityController<Quorvi> next = Robolectric.buildActivity(Quorvi.class).setup();
        assertEquals(
                Arrays.asList("android.permission.SEND_SMS"),
                Arrays.asList(
                        Shadows.shadowOf(next.get())
                                .getLastRequestedPermission()
                                .requestedPermissions));
        Shadows.shadowOf(phone()).grantPermissions("android.permission.SEND_SMS");
        ActivityController<Quorvi> last = Robolectric.buildActivity(Quorvi.class).setup();
        assertNull(Shadows.shadowOf(last.get()).getLastRequestedPermission());
        next.pause().stop().destroy();
        last.pause().stop().destroy();
    }

    @Test
    public void showsHowItStandsWithThePc() {
        show(AgentState.Link.WAITING);
        assertTrue(text(R.id.state), text(R.id.state).startsWith("正在等待电脑"));
        show(AgentState.Link.CONNECTED);
        assertEquals("已与电脑连接。", text(R.id.state));
        show(AgentState.Link.STOPPED);
        assertTrue(text(R.id.state), text(R.id.state).startsWith("已停止"));
        show(AgentState.Link.PORT_TAKEN);
        assertTrue(text(R.id.state), text(R.id.state).contains("端口"));
        assertEquals("启动", text(R.id.stop));
    }

    @Test
    public void aWindowThatWasAwayShowsWhatHappenedMeanwhile() {
        show(AgentState.Link.WAITING);
        window.pause();
        show(AgentState.Link.CONNECTED);
        window.resume();
        assertEquals("已与电脑连接。", text(R.id.state));
    }

    @Test
    public void theStopButtonStopsAndThenStarts() {
        startedService();
        show(AgentState.Link.CONNECTED);
        assertEquals("停止", text(R.id.stop));
        view(R.id.stop).performClick();
        assertEquals(
                AgentService.class.getName(),
                Shadows.shadowOf(phone()).getNextStoppedService().getComponent().getClassName());
        show(AgentState.Link.STOPPED);
        assertEquals("启动", text(R.id.stop));
        view(R.id.stop).performClick();
        assertEquals(
                AgentService.class.getName(), startedService().getComponent().getClassName());
    }

    @Test
    public void nobodyIsAskedAboutAPcUntilOneComes() {
        assertFalse(isShown(R.id.ask));
    }

    @Test
    public void theOwnerAllowsThePc() throws Exception {
        assertTrue(admitsAfterClick(R.id.allow));
    }

    @Test
    public void theOwnerRefusesThePc() throws Exception {
        assertFalse(admitsAfterClick(R.id.refuse));
        assertTrue(text(R.id.state), text(R.id.state).startsWith("您拒绝了电脑"));
        assertEquals("停止", text(R.id.stop));
    }

    @Test
    public void whatTheOwnerHasAnsweredIsNotAskedAgain() throws Exception {
        AdbGuard guard = new AdbGuard(() -> {}, new String[0], 1);
        guard.answer(true);
        AgentState.PROCESS.ask(guard);
        idle();
        assertFalse(isShown(R.id.ask));
    }

    /** Of a phone that shows nobody whose a connection is, as from Android 10 on. */
    private boolean admitsAfterClick(int button) throws Exception {
        AdbGuard guard = new AdbGuard(() -> {}, new String[0], 60 * 1000);
        AgentState.PROCESS.ask(guard);
        idle();
        assertTrue(isShown(R.id.ask));
        view(button).performClick();
        idle();
        assertFalse(isShown(R.id.ask));
        return guard.admits(new Socket());
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void leadsToThePageWhereTheOwnerAllowsSettings() {
        assertFalse(isShown(R.id.allow_settings));
        forbidSettings();
        window.pause().resume();
        assertTrue(isShown(R.id.allow_settings));
        view(R.id.allow_settings).performClick();
        Intent page = Shadows.shadowOf(phone()).getNextStartedActivity();
        assertEquals("android.settings.action.MANAGE_WRITE_SETTINGS", page.getAction());
        assertEquals("package:com.quorvi.Quorvi", page.getDataString());
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void aPhoneWithoutThatPageOpensItsSettings() throws Exception {
        forbidSettings();
        window.pause().resume();
        Shadows.shadowOf(phone()).checkActivities(true);
        ComponentName settings = new ComponentName("com.android.settings", "Settings");
        ShadowPackageManager packages = Shadows.shadowOf(phone().getPackageManager());
        packages.addActivityIfNotPresent(settings);
        IntentFilter filter = new IntentFilter("android.settings.SETTINGS");
        filter.addCategory(Intent.CATEGORY_DEFAULT);
        packages.addIntentFilterForActivity(settings, filter);
        view(R.id.allow_settings).performClick();
        assertEquals(
                "android.settings.SETTINGS",
                Shadows.shadowOf(phone()).getNextStartedActivity().getAction());
    }

    @Test
    @Config(sdk = 19)
    public void beforeAndroid6NothingIsAsked() {
        assertNull(Shadows.shadowOf(window.get()).getLastRequestedPermission());
        assertFalse(isShown(R.id.allow_settings));
        assertFalse(isShown(R.id.missing));
    }

    @Test
    @Config(sdk = {23, 29, 34})
    public void saysWhatItsOwnerHasNotAllowedAndLeadsThere() {
        assertEquals(
                "您还没有允许：联系人、短信、通话记录、手机状态、文件。电脑既看不到这些，也不能更改。",
                text(R.id.missing));
        assertTrue(isShown(R.id.missing));
        view(R.id.allow_missing).performClick();
        Intent page = Shadows.shadowOf(phone()).getNextStartedActivity();
        assertEquals("android.settings.APPLICATION_DETAILS_SETTINGS", page.getAction());
        assertEquals("package:com.quorvi.Quorvi", page.getDataString());
        for (Permissions permission : Permissions.values()) {
            if (permission != Permissions.WRITE_CONTACTS) {
                Shadows.shadowOf(phone()).grantPermissions(permission.androidName);
            }
        }
        window.pause().resume();
        assertTrue(text(R.id.missing), text(R.id.missing).startsWith("您还没有允许：联系人。"));
        Shadows.shadowOf(phone()).grantPermissions(Permissions.WRITE_CONTACTS.androidName);
        window.pause().resume();
        assertFalse(isShown(R.id.missing));
        assertFalse(isShown(R.id.allow_missing));
    }

    @Test
    public void listsWhatThisPhoneDoesNotAllow() {
        String text = text(R.id.limits);
        assertTrue(text, text.startsWith("在这部手机上，电脑不能："));
        assertEquals(
                text, Limit.ofThisPhone(phone()).size(), text.split("\n• ").length - 1);
    }
}
