// A form that is posted to the site, and the site's reply as text.
#pragma once

#include <string>
#include <string_view>

#include "online/HttpTransfer.h"

namespace quorvi {

// A local object of one worker: Post waits for the site.
class CHttpForm {
  public:
    explicit CHttpForm(HttpLimits limits = {}) : limits_(limits) {}

    // Appends a field to the body, in the form a=1&b=2&. Neither text is encoded in any way: a
    // value that holds '&' or '=' reaches the site as several fields. Kept on purpose, since the
    // site reads the body so (test HttpForm.AValueWithMarksOfItsOwnGoesOutUnchanged).
    void AddField(std::string_view name, std::string_view value);
    [[nodiscard]] const std::string& Body() const { return body_; }

    // Posts the body, up to its first zero byte, over the system's proxy, and gives the body of
    // whatever the site answers; a redirect is not followed. Each line of the reply, without its
    // line end, is followed by the four characters "/r/n", a slash, r, a slash and n: who parses
    // the reply stops before the first of them (test HttpForm.EachLineOfTheReplyEndsInItsMark). A
    // failure is not told: the reply is empty then, or what came of it until a limit was reached.
    // Only http and https are spoken.
    [[nodiscard]] std::string Post(const std::string& url) const;

  private:
    HttpLimits limits_;
    std::string body_;
};

}  // namespace quorvi
