#include "cli/Output.h"

#include <algorithm>
#include <cstdio>

#include "base/Json.h"
#include "base/Text.h"
#include "cli/DisplayWidth.h"

namespace quorvi::cli {
namespace {

constexpr std::size_t kColumnGap = 2;
// The widest column, in cells of a terminal. Rows are padded to their column's longest text, but no
// further than this: otherwise one name of a megabyte would make every row a megabyte long. What
// stands behind a longer text in the same row is moved to the right.
constexpr std::size_t kWidestPadding = 60;

void WriteTo(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

}  // namespace

Table::Table(std::initializer_list<std::u8string_view> headings) {
    std::vector<std::string> first;
    for (const std::u8string_view heading : headings) {
        first.emplace_back(heading.begin(), heading.end());
    }
    rows_.push_back(std::move(first));
}

void Table::AddRow(std::vector<std::string> cells) {
    cells.resize(rows_.front().size());
    for (std::string& cell : cells) {
        cell = OneLine(ToUtf8(cell));
    }
    rows_.push_back(std::move(cells));
}

std::string Table::Text() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::min(kWidestPadding, std::max(widths[i], DisplayWidth(row[i])));
        }
    }
    std::string text;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            const std::size_t width = DisplayWidth(row[i]);
            line.append(std::max(widths[i], width) - width + kColumnGap, ' ');
        }
        text.append(TrimRight(line)).append("\n");
    }
    return text;
}

void Output::PrintDocument(const Json::Value& document) {
    WriteTo(stdout, WriteJson(document, JsonForm::lines) + "\n");
}

void Output::PrintJsonLine(const Json::Value& document) {
    WriteTo(stdout, WriteJson(document, JsonForm::oneLine) + "\n");
}

void Output::PrintTable(const Table& table) {
    WriteTo(stdout, table.Text());
}

void Output::PrintLine(std::string_view ansi) {
    WriteTo(stdout, ToUtf8(ansi) + "\n");
}

void Output::Complain(std::string_view ansi) {
    WriteTo(stderr, "quorvictl: " + ToUtf8(ansi) + "\n");
}

Status Output::Report(SessionOutcome outcome) {
    if (outcome == SessionOutcome::connectFailed || outcome == SessionOutcome::receiveFailed) {
        Complain(Ansi(u8"【X】连接错误"));
        return Status::noLink;
    }
    if (outcome == SessionOutcome::noReply) {
        Complain(Ansi(u8"手机端没有回答，请重新连接手机后再试"));
        return Status::noLink;
    }
    if (outcome == SessionOutcome::cut) {
        Complain(Ansi(u8"连接中断，资料没有读全"));
    }
    return Status::done;
}

}  // namespace quorvi::cli
