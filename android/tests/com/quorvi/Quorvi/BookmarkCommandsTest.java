package com.quorvi.Quorvi;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import com.quorvi.Quorvi.wire.AgentCommand;
import com.quorvi.Quorvi.wire.Bytes;
import com.quorvi.Quorvi.wire.MalformedRequest;

import org.junit.Test;

public class BookmarkCommandsTest extends OnPhones {
    private static final byte[] DONE = Bytes.u32(1);
    private static final byte[] REFUSED = Bytes.u32(0);
    private static final byte[] NO_DATA = Bytes.u32(0x075BCD17);
    private static final byte[] NO_PICTURE = Bytes.u32(0);

    static TableProvider browser() {
        TableProvider browser =
                new TableProvider(
                        "title TEXT, url TEXT, visits INTEGER DEFAULT 0, date INTEGER DEFAULT 0,"
                                + " created INTEGER, bookmark INTEGER, favicon BLOB, thumbnail BLOB");
        install("browser", browser);
        return browser;
    }

    /** Two bookmarks, ids 1 and 3, and an address that was visited. */
    private static TableProvider filled() {
        TableProvider browser = browser();
        browser.add(
                "title, url, visits, date, bookmark, favicon, thumbnail",
                "'天气', 'http://weather.example/', 7, 1308524700000, 1, x'01', x'FFD8FF'");
        browser.add("title, url, visits, bookmark", "'新闻', 'http://news.example/', 9, 0");
        browser.add("title, url, bookmark", "NULL, 'http://b.example/', 1");
        return browser;
    }

    @Test
    public void listsBookmarksAndNoHistory() throws Exception {
        filled();
        assertArrayEquals(
                Bytes.payload(
                        Bytes.u64(1), // bookmark
                        Bytes.text("天气"), // title
                        Bytes.text("http://weather.example/"), // url
                        Bytes.u32(7), // visits
                        Bytes.u64(1308524700000L), // last visit
                        Bytes.u32(1), // a favicon
                        Bytes.u64(1), // its length
                        0x01,
                        Bytes.u32(1), // a thumbnail
                        Bytes.u64(3), // its length
                        0xFF, 0xD8, 0xFF,
                        Bytes.u64(3),
                        Bytes.text(""), // a title that is null is empty, not absent
                        Bytes.text("http://b.example/"),
                        Bytes.u32(0),
                        Bytes.u64(0), // never visited
                        NO_PICTURE,
                        NO_PICTURE),
                ask(Bytes.u32(AgentCommand.LIST_BOOKMARKS.code)));
    }

    @Test
    public void noBookmarksAreNoData() throws Exception {
        browser();
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_BOOKMARKS.code)));
    }

    @Test
    public void aPhoneWithoutSuchABrowserHasNoDataAndRefuses() throws Exception {
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_BOOKMARKS.code)));
        assertArrayEquals(REFUSED, ask(added("a", "b")));
        assertArrayEquals(REFUSED, ask(changed(1, "a", "b")));
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.DELETE_BOOKMARKS, 1, Bytes.u32(1))));
    }

    @Test
    public void aBrowserThatRefusesHasNoDataAndIsNotChanged() throws Exception {
        install("browser", new RefusingProvider());
        assertArrayEquals(NO_DATA, ask(Bytes.u32(AgentCommand.LIST_BOOKMARKS.code)));
        assertArrayEquals(REFUSED, ask(added("a", "b")));
    }

    private static byte[] added(String title, String url) {
        return Bytes.frame(
                AgentCommand.ADD_BOOKMARK,
                1,
                Bytes.u32(4), // visits
                Bytes.text(title),
                Bytes.text(url));
    }

    private static byte[] changed(int id, String title, String url) {
        return Bytes.frame(
                AgentCommand.UPDATE_BOOKMARK,
                1,
                Bytes.u32(id),
                Bytes.u32(4), // visits
                Bytes.text(title),
                Bytes.text(url));
    }

    @Test
    public void addsABookmark() throws Exception {
        TableProvider browser = filled();
        assertArrayEquals(DONE, ask(added("公交", "http://bus.example/")));
        assertEquals(
                "公交 http://bus.example/ 4 0 1",
                browser.value(
                        "SELECT title || ' ' || url || ' ' || visits || ' ' || date || ' '"
                                + " || bookmark FROM rows WHERE _id = 4"));
    }

    @Test
    public void anEmptyTitleIsAdded() throws Exception {
        TableProvider browser = browser();
        assertArrayEquals(DONE, ask(added("", "")));
        assertEquals(1, browser.count());
    }

    @Test
    public void aChangeLeavesThePicturesAndTheLastVisit() throws Exception {
        TableProvider browser = filled();
        assertArrayEquals(DONE, ask(changed(1, "晴雨", "http://rain.example/")));
        assertEquals(
                "晴雨 http://rain.example/ 4 1308524700000 FFD8FF",
                browser.value(
                        "SELECT title || ' ' || url || ' ' || visits || ' ' || date || ' '"
                                + " || hex(thumbnail) FROM rows WHERE _id = 1"));
        assertEquals(
                "http://b.example/", browser.value("SELECT url FROM rows WHERE _id = 3"));
    }

    @Test
    public void whatIsNoBookmarkIsNotChangedAndNotDeleted() throws Exception {
        TableProvider browser = filled();
        assertArrayEquals(REFUSED, ask(changed(2, "a", "b")));
        assertArrayEquals(REFUSED, ask(changed(99, "a", "b")));
        assertArrayEquals(DONE, ask(Bytes.frame(AgentCommand.DELETE_BOOKMARKS, 1, Bytes.u32(2))));
        assertEquals("新闻", browser.value("SELECT title FROM rows WHERE _id = 2"));
    }

    @Test
    public void deletesWhatIsNamed() throws Exception {
        TableProvider browser = filled();
        assertArrayEquals(
                DONE,
                ask(Bytes.frame(
                        AgentCommand.DELETE_BOOKMARKS, 2, Bytes.u32(1), Bytes.u32(99))));
        assertEquals("2,3", browser.value("SELECT group_concat(_id) FROM rows"));
    }

    @Test
    public void aBrokenRequestChangesNothing() throws Exception {
        TableProvider browser = filled();
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.ADD_BOOKMARK, 1, Bytes.u32(4), Bytes.text("a"))));
        assertThrows(
                MalformedRequest.class,
                () -> ask(Bytes.frame(AgentCommand.DELETE_BOOKMARKS, 2, Bytes.u32(1))));
        assertEquals(3, browser.count());
    }

    private static byte[] ask(byte[] request) throws Exception {
        return ask(new BookmarkCommands(phone()), request);
    }
}
