#include <gtest/gtest.h>

#include "backup/JsonLine.h"
#include "base/Json.h"

namespace quorvi {
namespace {

TEST(JsonLine, IsWhatTheDocumentIsInOneLine) {
    Json::Value document(Json::objectValue);
    document["empty"] = Json::Value(Json::objectValue);
    document["flag"] = true;
    document["list"] = Json::Value(Json::arrayValue);
    document["list"].append(-1);
    document["list"].append(Json::Value(Json::arrayValue));
    document["list"].append("[");
    document["list"].append(false);
    document["number"] = 4'294'967'295U;
    document["text"] = "林远舟:";
    EXPECT_EQ(JsonLine()
                  .BeginObject()
                  .Name("empty")
                  .BeginObject()
                  .EndObject()
                  .Name("flag")
                  .Flag(true)
                  .Name("list")
                  .BeginArray()
                  .Number(-1)
                  .BeginArray()
                  .EndArray()
                  .Text("[")
                  .Flag(false)
                  .EndArray()
                  .Name("number")
                  .Number(4'294'967'295)
                  .Name("text")
                  .Text("林远舟:")
                  .EndObject()
                  .Take(),
              WriteJson(document, JsonForm::oneLine));
}

TEST(JsonLine, EveryByteIsEscapedAsInADocument) {
    for (int byte = 0; byte < 256; ++byte) {
        for (const std::string& text : {std::string(1, static_cast<char>(byte)),
                                        "a" + std::string(2, static_cast<char>(byte)) + "b"}) {
            EXPECT_EQ(JsonLine().Text(text).Take(), WriteJson(text, JsonForm::oneLine)) << byte;
        }
    }
}

TEST(JsonLine, AnEmptyTextIsTwoQuotes) {
    EXPECT_EQ(JsonLine().BeginArray().Text("").Text("").EndArray().Take(), "[\"\",\"\"]");
}

}  // namespace
}  // namespace quorvi
