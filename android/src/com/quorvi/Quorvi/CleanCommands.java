package com.quorvi.Quorvi;

import android.content.ContentValues;
import android.content.Context;
import android.content.pm.ApplicationInfo;
import android.content.pm.PackageManager;
import android.net.Uri;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;
import com.quorvi.Quorvi.wire.RequestReader;

import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/** The cleaner: looking for caches, and cleaning. */
final class CleanCommands implements CommandGroup {
    private static final Uri MARKET_SEARCHES =
            Uri.parse("content://com.android.vending.SuggestionsProvider/suggestions");

    private final Context context;
    private final Caches caches;
    private final Provider provider;

    CleanCommands(Context context, Caches caches) {
        this.context = context;
        this.caches = caches;
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {AgentCommand.SCAN_FOR_CLEANING, AgentCommand.CLEAN};
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        if (command == AgentCommand.SCAN_FOR_CLEANING) {
            scan(exchange.reply);
            return;
        }
        boolean forgetSearches = flag(exchange.request);
        boolean forgetHistory = flag(exchange.request);
        boolean forgetMarket = flag(exchange.request);
        Set<String> packages = new HashSet<>();
        for (long left = exchange.items; left > 0; --left) {
            packages.add(exchange.request.text());
        }
        exchange.request.end();
        if (forgetSearches) {
            provider.delete(BrowserTable.SEARCHES, null, (String[]) null);
        }
        if (forgetHistory) {
            forgetHistory();
        }
        if (forgetMarket) {
            provider.delete(MARKET_SEARCHES, null, (String[]) null);
        }
        clean(packages);
        exchange.done();
    }

    /** One byte, 1 or 0. */
    private static boolean flag(RequestReader request) throws MalformedRequest {
        int value = request.uint8();
        if (value > 1) {
            throw new MalformedRequest("a flag of " + value);
        }
        return value == 1;
    }

    /** The largest first, as the phone's own settings list them. */
    private void scan(ReplyWriter reply) throws IOException {
        if (!caches.areOpen()) {
            return;
        }
        PackageManager packages = context.getPackageManager();
        List<Map.Entry<String, Long>> all = new ArrayList<>(caches.sizes().entrySet());
        Collections.sort(all, new Comparator<Map.Entry<String, Long>>() {
            @Override
            public int compare(Map.Entry<String, Long> one, Map.Entry<String, Long> other) {
                int bySize = other.getValue().compareTo(one.getValue());
                return bySize != 0 ? bySize : one.getKey().compareTo(other.getKey());
            }
        });
        for (Map.Entry<String, Long> cache : all) {
            ApplicationInfo application;
            try {
                application = packages.getApplicationInfo(cache.getKey(), 0);
            } catch (PackageManager.NameNotFoundException e) {
                continue; // uninstalled meanwhile
            }
            reply.uint64(cache.getValue())
                    .text(packages.getApplicationLabel(application).toString())
                    .text(cache.getKey())
                    .picture(AppIcon.of(packages, application));
        }
    }

    /** Bookmarks stay; that they were visited is forgotten. */
    private void forgetHistory() {
        provider.delete(
                BrowserTable.ADDRESSES, BrowserTable.IS_BOOKMARK + "=0", (String[]) null);
        ContentValues never = new ContentValues();
        never.put(BrowserTable.VISITS, 0);
        never.put(BrowserTable.LAST_VISIT, 0);
        provider.update(BrowserTable.ADDRESSES, never, BrowserTable.BOOKMARKS, (String[]) null);
    }

    /**
     * The phone empties all caches or none. So they are emptied when each of them was named, and left
     * alone when the owner wants to keep one.
     */
    private void clean(Set<String> packages) {
        if (!packages.isEmpty()
                && caches.areOpen()
                && packages.containsAll(caches.sizes().keySet())) {
            caches.empty();
        }
    }
}
