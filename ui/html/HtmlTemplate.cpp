#include "ui/html/HtmlTemplate.h"

#include <array>

namespace quorvi {
namespace {

struct Template {
    int resourceId;
    const char* file;
};

constexpr std::array kTemplates{
    Template{kDashboardTemplate, "dashboard.html"},
    Template{kConversationsTemplate, "conversations.html"},
    Template{kConversationTemplate, "conversation.html"},
    Template{kUnreachableTemplate, "unreachable.html"},
    Template{kContactTemplate, "contact.html"},
};

QUrl ViewUrl(const char* file) {
    return QUrl(QStringLiteral("qrc:/views/") + QLatin1String(file));
}

}  // namespace

QUrl TemplateUrl(int resourceId) {
    for (const Template& entry : kTemplates) {
        if (entry.resourceId == resourceId) {
            return ViewUrl(entry.file);
        }
    }
    return {};
}

QUrl BlankTemplateUrl() {
    return ViewUrl("blank.html");
}

}  // namespace quorvi
