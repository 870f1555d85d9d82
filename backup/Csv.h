// Tables as spreadsheets read them: CSV after RFC 4180, in UTF-8 with its mark.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// By this a spreadsheet knows that a file is UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// The cells of a row, UTF-8.
using CsvRow = std::vector<std::string>;

// Puts one row behind `csv`: commas between the cells, CR LF at its end, cells in quotes where
// their text needs it. A cell that a spreadsheet would take for a formula, because it begins with =
// + - @, a tab or a carriage return, gets an apostrophe in front. So does one that begins with
// apostrophes in front of such a character, so that ReadCsvRow gives back what was written.
void AppendCsvRow(std::span<const std::string> cells, std::string& csv);

// What is read at most: beyond it the file is refused.
inline constexpr std::size_t kMostCsvColumns = 1024;

// Reads a table row by row. Rows end with CR LF, LF or CR; a mark at the beginning is passed over,
// and quotes that are never closed end with the file.
class CsvReader {
  public:
    // `csv` must outlive the reader. The separator is a comma, a semicolon or a tab: the one that
    // stands most often in the first row, outside of quotes, since spreadsheets of some countries
    // write semicolons.
    explicit CsvReader(std::string_view csv);

    // The next row, its apostrophes in front of formula characters taken off; nothing at the end,
    // and where a row has more than kMostCsvColumns cells. An empty line is a row of one empty
    // cell.
    [[nodiscard]] std::optional<CsvRow> Next();
    // True when Next ended at a row that is too long.
    [[nodiscard]] bool Refused() const { return refused_; }

  private:
    [[nodiscard]] std::string TakeCell();
    [[nodiscard]] std::string TakeQuoted();

    std::string_view rest_;
    char separator_ = ',';
    bool refused_ = false;
};

}  // namespace quorvi
