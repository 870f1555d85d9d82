#include "backup/MessageFile.h"

#include <array>

#include "backup/ContactCard.h"
#include "backup/Csv.h"
#include "backup/FileEnding.h"
#include "backup/JsonLine.h"
#include "backup/MarkupText.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kOwnPhone = "本机";

struct Ending {
    std::string_view ending;
    MessageFormat format;
};
constexpr std::array<Ending, 5> kEndings{{
    {"txt", MessageFormat::text},
    {"csv", MessageFormat::csv},
    {"html", MessageFormat::html},
    {"htm", MessageFormat::html},
    {"json", MessageFormat::json},
}};

std::string Utf8(std::string_view ansi) {
    return CardText(ToUtf8(ansi));
}

// "林远舟 (13800138000)".
std::string PartyOf(const Conversation& conversation) {
    std::string name = Utf8(conversation.name);
    const std::string number = Utf8(conversation.number);
    if (number.empty() || number == name) {
        return name;
    }
    return name + " (" + number + ")";
}

std::string SenderOf(const ConversationMessage& message) {
    return message.incoming ? Utf8(message.address) : std::string(kOwnPhone);
}

std::string AsText(std::size_t index, const Conversation& conversation,
                   std::span<const ConversationMessage> messages) {
    std::string text(index == 0 ? "" : "\n");
    text.append("== ").append(PartyOf(conversation)).append(" ==\n");
    for (const ConversationMessage& message : messages) {
        text.append("\n[").append(message.date).append("] ").append(SenderOf(message));
        text.append("\n").append(Utf8(message.text)).append("\n");
    }
    return text;
}

std::string AsCsv(const Conversation& conversation, std::span<const ConversationMessage> messages) {
    std::string csv;
    const std::string name = Utf8(conversation.name);
    for (const ConversationMessage& message : messages) {
        const CsvRow row{name, Utf8(message.address), message.incoming ? "收到" : "发出",
                         message.date, Utf8(message.text)};
        AppendCsvRow(row, csv);
    }
    return csv;
}

void AppendWithLines(std::string_view text, std::string& html) {
    bool first = true;
    for (const std::string_view line : SplitAt(text, '\n')) {
        html += first ? "" : "<br>";
        first = false;
        AppendMarkupText(line, html);
    }
}

std::string AsHtml(const Conversation& conversation,
                   std::span<const ConversationMessage> messages) {
    std::string html = "<section>\n<h2>";
    AppendMarkupText(PartyOf(conversation), html);
    html += "</h2>\n";
    for (const ConversationMessage& message : messages) {
        html += message.incoming ? "<article class=\"in\">" : "<article class=\"out\">";
        html += "<header>";
        AppendMarkupText(SenderOf(message), html);
        html += " <time>";
        AppendMarkupText(message.date, html);
        html += "</time></header><p>";
        AppendWithLines(Utf8(message.text), html);
        html += "</p></article>\n";
    }
    return html += "</section>\n";
}

std::string AsJson(std::size_t index, const Conversation& conversation,
                   std::span<const ConversationMessage> messages) {
    JsonLine line;
    line.BeginObject();
    line.Name("attribution").Text(Utf8(conversation.attribution));
    line.Name("id").Number(conversation.id);
    line.Name("messages").BeginArray();
    for (const ConversationMessage& message : messages) {
        line.BeginObject();
        line.Name("address").Text(Utf8(message.address));
        line.Name("date").Text(message.date);
        line.Name("incoming").Flag(message.incoming);
        line.Name("text").Text(Utf8(message.text));
        line.EndObject();
    }
    line.EndArray();
    line.Name("name").Text(Utf8(conversation.name));
    line.Name("number").Text(Utf8(conversation.number));
    return (index == 0 ? "\n" : ",\n") + line.EndObject().Take();
}

// The reader's own colours, and measures of the text: the page looks the same in every browser, by
// day and by night, and prints well.
constexpr std::string_view kPageHead =
    "<!DOCTYPE html>\n"
    "<html lang=\"zh\">\n"
    "<head>\n"
    "<meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
    "'unsafe-inline'\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n"
    "<title>短信</title>\n"
    "<style>\n"
    ":root { color-scheme: light dark; }\n"
    "body { max-width: 42em; margin: 2em auto; padding: 0 1em; font-family: sans-serif; "
    "line-height: 1.6; }\n"
    "h2 { margin: 2em 0 1em; border-bottom: thin solid; font-size: 1.2em; }\n"
    "article { margin: 0.8em 0; padding: 0.5em 0.9em; border: thin solid; "
    "border-radius: 0.7em; overflow-wrap: anywhere; }\n"
    "article.in { margin-right: 18%; }\n"
    "article.out { margin-left: 18%; border-style: dashed; }\n"
    "header { font-size: 0.85em; opacity: 0.75; }\n"
    "time { float: right; margin-left: 1em; }\n"
    "p { margin: 0.3em 0 0; }\n"
    "@media print { article { break-inside: avoid; } }\n"
    "</style>\n"
    "</head>\n"
    "<body>\n";

}  // namespace

std::optional<MessageFormat> MessageFormatOf(std::string_view fileName) {
    const std::string ending = EndingOf(fileName);
    for (const Ending& known : kEndings) {
        if (known.ending == ending) {
            return known.format;
        }
    }
    return std::nullopt;
}

std::string MessageFileHead(MessageFormat format) {
    switch (format) {
        case MessageFormat::text:
            return {};
        case MessageFormat::csv: {
            std::string csv(kUtf8Mark);
            AppendCsvRow(CsvRow{"会话", "对方", "方向", "时间", "内容"}, csv);
            return csv;
        }
        case MessageFormat::html:
            return std::string(kPageHead);
        case MessageFormat::json:
            return "[";
    }
    return {};
}

std::string ConversationInFile(MessageFormat format, std::size_t index,
                               const Conversation& conversation,
                               std::span<const ConversationMessage> messages) {
    switch (format) {
        case MessageFormat::text:
            return AsText(index, conversation, messages);
        case MessageFormat::csv:
            return AsCsv(conversation, messages);
        case MessageFormat::html:
            return AsHtml(conversation, messages);
        case MessageFormat::json:
            return AsJson(index, conversation, messages);
    }
    return {};
}

std::string MessageFileFoot(MessageFormat format) {
    switch (format) {
        case MessageFormat::html:
            return "</body>\n</html>\n";
        case MessageFormat::json:
            return "\n]\n";
        case MessageFormat::text:
        case MessageFormat::csv:
            break;
    }
    return {};
}

}  // namespace quorvi
