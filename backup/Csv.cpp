#include "backup/Csv.h"

#include <algorithm>

namespace quorvi {
namespace {

// What makes a spreadsheet take a cell for a formula, where it stands at the cell's beginning.
constexpr std::string_view kFormulaBeginnings = "=+-@\t\r";

bool LooksLikeFormula(std::string_view cell) {
    const std::size_t first = cell.find_first_not_of('\'');
    return first != std::string_view::npos &&
           kFormulaBeginnings.find(cell[first]) != std::string_view::npos;
}

bool IsForQuotes(char c) {
    return c == ',' || c == ';' || c == '\t' || c == '"' || c == '\r' || c == '\n';
}

bool NeedsQuotes(std::string_view cell) {
    return std::ranges::any_of(cell, IsForQuotes) ||
           (!cell.empty() && (cell.front() == ' ' || cell.back() == ' '));
}

char SeparatorOf(std::string_view csv) {
    constexpr std::string_view kSeparators = ",;\t";
    std::size_t counts[kSeparators.size()] = {};
    bool quoted = false;
    for (const char c : csv) {
        if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == '\n' || c == '\r')) {
            break;
        } else if (const std::size_t at = kSeparators.find(c);
                   !quoted && at != std::string_view::npos) {
            ++counts[at];
        }
    }
    return kSeparators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts)];
}

}  // namespace

void AppendCsvRow(std::span<const std::string> cells, std::string& csv) {
    bool first = true;
    for (const std::string& cell : cells) {
        if (!first) {
            csv += ',';
        }
        first = false;
        const bool quotes = NeedsQuotes(cell);
        if (quotes) {
            csv += '"';
        }
        if (LooksLikeFormula(cell)) {
            csv += '\'';
        }
        if (!quotes) {
            csv += cell;
            continue;
        }
        for (const char c : cell) {
            if (c == '"') {
                csv += '"';
            }
            csv += c;
        }
        csv += '"';
    }
    csv += "\r\n";
}

CsvReader::CsvReader(std::string_view csv) : rest_(csv) {
    if (rest_.starts_with(kUtf8Mark)) {
        rest_.remove_prefix(kUtf8Mark.size());
    }
    separator_ = SeparatorOf(rest_);
}

std::string CsvReader::TakeQuoted() {
    std::string text;
    do {
        rest_.remove_prefix(1);  // the quotes that open it, or the second of two
        const std::size_t end = std::min(rest_.find('"'), rest_.size());
        text += rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (rest_.starts_with('"')) {  // two quotes stand for one
            text += '"';
        }
    } while (rest_.starts_with('"'));
    return text;
}

std::string CsvReader::TakeCell() {
    std::string cell;
    if (rest_.starts_with('"')) {
        cell = TakeQuoted();
    }
    // What stands behind closing quotes belongs to the cell: some programs write it so.
    const char ends[] = {separator_, '\r', '\n'};
    const std::size_t end = std::min(rest_.find_first_of(std::string_view(ends, 3)), rest_.size());
    cell += rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (cell.starts_with('\'') && LooksLikeFormula(cell)) {
        cell.erase(0, 1);
    }
    return cell;
}

std::optional<CsvRow> CsvReader::Next() {
    if (rest_.empty() || refused_) {
        return std::nullopt;
    }
    CsvRow row;
    for (;;) {
        if (row.size() == kMostCsvColumns) {
            refused_ = true;
            return std::nullopt;
        }
        row.push_back(TakeCell());
        if (!rest_.starts_with(separator_)) {
            break;
        }
        rest_.remove_prefix(1);
    }
    if (rest_.starts_with("\r\n")) {
        rest_.remove_prefix(2);
    } else if (!rest_.empty()) {
        rest_.remove_prefix(1);
    }
    return row;
}

}  // namespace quorvi
