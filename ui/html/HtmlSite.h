// What a document in an HTML view may do, and what must stand before the first of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// Where the document of a view comes from, and so how far it is trusted.
enum class HtmlContent {
    local,  // the program's templates, filled with the phone's texts: no script, no network
    web,    // a web site
};

// What led to a navigation.
enum class HtmlNavigation {
    typed,    // the program
    clicked,  // a click on a link
    other,    // a form, a redirection, a script, the history
};

// The answer to a navigation: whether it goes on, and the text of the private link (ANSI) that it
// is the command of.
struct HtmlDecision {
    bool goes = false;
    std::optional<std::string> command = std::nullopt;
};

// A private link is a command and goes no further; a local document is never left; a web document
// only for another one. `url` is as the browser writes it.
[[nodiscard]] HtmlDecision DecideNavigation(HtmlContent content, std::string_view url,
                                            HtmlNavigation navigation);

// Settings of the browser engine that must stand before the application object is made, and before
// there is another thread: one renderer for all local views, which draws without OpenGL unless the
// environment asks for another way, and then no OpenGL at all under X; and the sandbox off where
// the system cannot give one (the user root). Does not load the engine.
void PrepareHtmlViews();

// Takes back, once the application object has been made, what would keep the programs that this one
// starts, a browser say, from OpenGL. Before there are threads that start programs.
void LeaveOpenGlToOthers();

}  // namespace quorvi
