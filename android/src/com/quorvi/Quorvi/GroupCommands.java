package com.quorvi.Quorvi;

import android.content.ContentValues;
import android.content.Context;
import android.database.Cursor;
import android.provider.ContactsContract.CommonDataKinds.GroupMembership;
import android.provider.ContactsContract.CommonDataKinds.Phone;
import android.provider.ContactsContract.Data;
import android.provider.ContactsContract.Groups;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.CommandGroup;
import com.quorvi.Quorvi.wire.Exchange;
import com.quorvi.Quorvi.wire.MalformedRequest;
import com.quorvi.Quorvi.wire.ReplyWriter;

import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * Contact groups: the list, adding, renaming, deleting; and what a composer of messages asks for:
 * the groups' names, and who is in which.
 */
final class GroupCommands implements CommandGroup {
    /** The id under which contacts without a group are listed. */
    private static final long NO_GROUP = -1;

    /** The account of groups that no account synchronizes: the phone itself, as the PC calls it. */
    private static final String ON_THE_PHONE = "手机";

    private static final String NOT_DELETED = Groups.DELETED + "=0";
    private static final String[] COLUMNS = {
        Groups._ID, Groups.TITLE, Groups.ACCOUNT_NAME, Groups.GROUP_VISIBLE,
    };

    private final Provider provider;

    GroupCommands(Context context) {
        provider = new Provider(context);
    }

    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.LIST_GROUP_NAMES,
            AgentCommand.ADD_GROUP,
            AgentCommand.RENAME_GROUP,
            AgentCommand.DELETE_GROUPS,
            AgentCommand.LIST_GROUPS,
            AgentCommand.LIST_GROUP_MEMBERS,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case LIST_GROUPS:
                list(exchange.reply, true);
                break;
            case LIST_GROUP_NAMES:
                list(exchange.reply, false);
                break;
            case LIST_GROUP_MEMBERS:
                listMembers(exchange.reply);
                break;
            case ADD_GROUP:
                exchange.expectOneItem();
                String title = exchange.request.text();
                exchange.request.end();
                add(title);
                exchange.done();
                break;
            case RENAME_GROUP:
                exchange.expectOneItem();
                long group = exchange.request.id();
                String next = exchange.request.text();
                exchange.request.end();
                rename(group, next);
                exchange.done();
                break;
            default:
                provider.delete(Groups.CONTENT_URI, Groups._ID, exchange.ids());
                exchange.done();
        }
    }

    private Cursor groups() {
        return provider.rows(Groups.CONTENT_URI, COLUMNS, NOT_DELETED, null, Groups._ID);
    }

    /** @param isWhole with the account and whether the phone shows the group's contacts */
    private void list(ReplyWriter reply, boolean isWhole) throws IOException {
        Cursor groups = groups();
        try {
            while (groups.moveToNext()) {
                reply.uint64(groups.getLong(0)).text(groups.getString(1));
                if (isWhole) {
                    reply.text(groups.isNull(2) ? ON_THE_PHONE : groups.getString(2))
                            .flag(groups.getInt(3) == 1);
                }
            }
        } finally {
            groups.close();
        }
    }

    /** A record for each number of a contact in each of its groups. */
    private void listMembers(ReplyWriter reply) throws IOException {
        Map<Long, List<Long>> groupsOf = groupsByContact();
        Cursor numbers =
                provider.rows(
                        Data.CONTENT_URI,
                        new String[] {Data.CONTACT_ID, Data.DISPLAY_NAME, Phone.NUMBER},
                        Data.MIMETYPE + "=?",
                        new String[] {Phone.CONTENT_ITEM_TYPE},
                        Data.CONTACT_ID + ", " + Data._ID);
        try {
            while (numbers.moveToNext()) {
                List<Long> groups = groupsOf.get(numbers.getLong(0));
                for (long group : groups == null ? Collections.singletonList(NO_GROUP) : groups) {
                    reply.uint64(group).text(numbers.getString(1)).text(numbers.getString(2));
                }
            }
        } finally {
            numbers.close();
        }
    }

    /** Only contacts that are in a group which is still there. */
    private Map<Long, List<Long>> groupsByContact() {
        Set<Long> live = new HashSet<>();
        Cursor groups = groups();
        try {
            while (groups.moveToNext()) {
                live.add(groups.getLong(0));
            }
        } finally {
            groups.close();
        }
        Map<Long, List<Long>> all = new HashMap<>();
        Cursor rows =
                provider.rows(
                        Data.CONTENT_URI,
                        new String[] {Data.CONTACT_ID, GroupMembership.GROUP_ROW_ID},
                        Data.MIMETYPE + "=?",
                        new String[] {GroupMembership.CONTENT_ITEM_TYPE},
                        Data._ID);
        try {
            while (rows.moveToNext()) {
                if (!live.contains(rows.getLong(1))) {
                    continue;
                }
                List<Long> some = all.get(rows.getLong(0));
                if (some == null) {
                    some = new ArrayList<>();
                    all.put(rows.getLong(0), some);
                }
                // The parts of one contact may each be in the group.
                if (!some.contains(rows.getLong(1))) {
                    some.add(rows.getLong(1));
                }
            }
        } finally {
            rows.close();
        }
        return all;
    }

    private void add(String title) {
        ContentValues group = new ContentValues();
        group.put(Groups.TITLE, title);
        group.put(Groups.GROUP_VISIBLE, 1);
        provider.insert(Groups.CONTENT_URI, group);
    }

    /** A group that is gone stays so. */
    private void rename(long group, String title) {
        ContentValues changed = new ContentValues();
        changed.put(Groups.TITLE, title);
        provider.update(Groups.CONTENT_URI, changed, Groups._ID + "=?", Long.toString(group));
    }
}
