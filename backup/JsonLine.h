// Writes a JSON document straight into a line of text: of a backup's many records, to put a
// document of the JSON library together and to take it apart again would take longer than all else.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quorvi {

// The bytes are those of WriteJson in the form oneLine, provided that the members of each object
// come in the order of their names. What is begun is ended, and a member has a name in front of its
// value: nobody looks after that. Used on one thread.
//
//   JsonLine().BeginObject().Name("date").Text(date).Name("incoming").Flag(true).EndObject().Take()
class JsonLine {
  public:
    JsonLine& BeginObject() { return Begin('{'); }
    JsonLine& EndObject() { return End('}'); }
    JsonLine& BeginArray() { return Begin('['); }
    JsonLine& EndArray() { return End(']'); }

    JsonLine& Name(std::string_view name);
    JsonLine& Text(std::string_view utf8);
    JsonLine& Number(std::int64_t number);
    JsonLine& Flag(bool flag);

    [[nodiscard]] std::string Take() { return std::move(text_); }

  private:
    JsonLine& Begin(char bracket);
    JsonLine& End(char bracket);
    void Separate();
    void Quote(std::string_view utf8);

    std::string text_;
};

}  // namespace quorvi
