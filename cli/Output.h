// What a command says: JSON or a table on standard output, messages on standard error.
#pragma once

#include <json/value.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "cli/Command.h"

namespace quorvi::cli {

// Rows for people, under headings. Cells are ANSI.
class Table {
  public:
    Table(std::initializer_list<std::u8string_view> headings);
    // As many cells as there are headings.
    void AddRow(std::vector<std::string> cells);
    // In UTF-8, columns aligned by what a terminal shows, a line feed behind each row.
    [[nodiscard]] std::string Text() const;

  private:
    std::vector<std::vector<std::string>> rows_;  // UTF-8, the headings first
};

// Texts given to it are ANSI; what it writes is UTF-8. Each call is written out at once.
class Output {
  public:
    explicit Output(bool json) : json_(json) {}

    // True when standard output is to hold JSON and nothing else.
    [[nodiscard]] bool Json() const { return json_; }

    // The command's whole answer as one document.
    void PrintDocument(const Json::Value& document);
    // One of several documents, on a line of its own.
    void PrintJsonLine(const Json::Value& document);
    void PrintTable(const Table& table);
    void PrintLine(std::string_view ansi);

    // A message on standard error.
    void Complain(std::string_view ansi);
    // Complains when a session failed or its reply was cut, and returns the status to end with:
    // noLink when no connection was made, or when the agent broke or closed it before a reply was
    // there, else done. A cut reply is done because the part that came is shown, and an agent
    // without data is no failure.
    [[nodiscard]] Status Report(SessionOutcome outcome);

  private:
    bool json_;
};

}  // namespace quorvi::cli
