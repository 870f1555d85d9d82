// The documents of the HTML views that are part of the program, by resource number.
#pragma once

#include <QUrl>
#include <string_view>

namespace quorvi {

// Numbers of the templates.
inline constexpr int kDashboardTemplate = 660;      // elements "manufacturer" and "info_ul"
inline constexpr int kConversationsTemplate = 661;  // element "sms_ul"
inline constexpr int kConversationTemplate = 662;   // element "conversation_list"
inline constexpr int kUnreachableTemplate = 663;    // element "host": a site that is not there
inline constexpr int kContactTemplate = 680;        // element "block"

// Of template 663: the element that names who does not answer.
inline constexpr std::string_view kUnreachableHost = "host";

// Where a template stands, its pictures beside it; an empty URL for a number that is none.
[[nodiscard]] QUrl TemplateUrl(int resourceId);

// A document of nothing but its content policy, for text that a page builds whole.
[[nodiscard]] QUrl BlankTemplateUrl();

}  // namespace quorvi
