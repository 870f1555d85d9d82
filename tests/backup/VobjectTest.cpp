// vCards against an independent program that reads and writes them, in both directions.
#include <gmock/gmock.h>

#include "backup/Base64.h"
#include "backup/VCardReader.h"
#include "backup/VCardWriter.h"
#include "base/Json.h"
#include "tests/backup/Cards.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/Process.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::string RunScript(const std::string& mode, const std::string& input) {
    const e2e::ProgramResult run = e2e::RunProgram(
        {QUORVI_SYSTEM_PYTHON, QUORVI_SOURCE_DIR "/tests/backup/VobjectCards.py", mode}, input);
    EXPECT_EQ(run.status, 0) << run.messages;
    return run.output;
}

// What the program reads out of a vCard of ours.
Json::Value ReadByVobject(const ContactCard& card) {
    const auto cards = ParseJson(RunScript("read", WriteVCard(card)));
    return cards && cards->size() == 1 ? (*cards)[0] : Json::Value();
}

Json::Value Typed(const std::vector<std::string>& words, const std::string& text) {
    Json::Value item(Json::arrayValue);
    Json::Value types(Json::arrayValue);
    for (const std::string& word : words) {
        types.append(word);
    }
    item.append(types);
    item.append(text);
    return item;
}

std::vector<std::string> Texts(const Json::Value& list) {
    std::vector<std::string> texts;
    for (const Json::Value& text : list) {
        texts.push_back(text.asString());
    }
    return texts;
}

TEST(Vobject, ReadsTheTextsThatWeWrite) {
    const ContactCard card = test::FullCard();
    const Json::Value read = ReadByVobject(card);
    EXPECT_EQ(read["name"], card.name);
    EXPECT_EQ(read["family"], card.name);
    EXPECT_THAT(Texts(read["nickname"]), ElementsAre(card.nickname));
    EXPECT_THAT(Texts(read["note"]), ElementsAre(card.note));
    EXPECT_THAT(Texts(read["groups"]), testing::ElementsAreArray(card.groups));
    EXPECT_THAT(Texts(read["qq"]), ElementsAre("10001"));
    EXPECT_THAT(Texts(read["photo"]), ElementsAre(ToBase64(card.photo)));
}

TEST(Vobject, ReadsTheItemsThatWeWriteWithTheirTypes) {
    const ContactCard card = test::FullCard();
    const Json::Value read = ReadByVobject(card);
    ASSERT_EQ(read["phones"].size(), card.phones.size());
    EXPECT_EQ(read["phones"][0], Typed({"cell"}, card.phones[0].text));
    EXPECT_EQ(read["phones"][1], Typed({"work"}, card.phones[1].text));
    EXPECT_EQ(read["phones"][3], Typed({"fax", "work"}, card.phones[3].text));
    EXPECT_EQ(read["emails"][0], Typed({"home", "internet"}, card.emails[0].text));
    EXPECT_EQ(read["addresses"][1], Typed({"home"}, card.addresses[1].text));
    ASSERT_EQ(read["organisations"].size(), card.organisations.size());
    EXPECT_EQ(read["organisations"][1][0], card.organisations[1].text);
    EXPECT_THAT(Texts(read["websites"]), ElementsAre(card.websites[0].text, card.websites[1].text));
    EXPECT_THAT(Texts(read["labels"]), testing::Contains("女儿"));
}

TEST(Vobject, WeReadWhatItWrites) {
    const VCards read = ReadVCards(RunScript("write", {}));
    ASSERT_THAT(read.cards, SizeIs(1));
    EXPECT_THAT(read.cards.front().leftOut, SizeIs(0));
    const ContactCard& card = read.cards.front().card;
    EXPECT_EQ(card.name, "Anders Ångström, Jr.");
    EXPECT_EQ(card.nickname, "Å");
    EXPECT_THAT(card.phones,
                ElementsAre(CardItem{2, "+46 70 000 00 00"}, CardItem{4, "+46 8 000 00 01"}));
    EXPECT_THAT(card.emails, ElementsAre(CardItem{1, "anders@example.com"}));
    EXPECT_THAT(card.addresses,
                ElementsAre(CardItem{1, "Storgatan 1; 2 tr, Uppsala, 753 20, Sverige"}));
    EXPECT_THAT(card.organisations, ElementsAre(CardItem{0, "Spektrum AB Ljus, färg"}));
    EXPECT_THAT(card.groups, ElementsAre("Vänner", "Fysik, optik"));
    std::string note = "Första raden\nandra: a,b;c\\d ";
    for (int i = 0; i < 40; ++i) {
        note += "åäö 汉字 ";
    }
    EXPECT_EQ(card.note, note + "slut\n生日：1814-08-13");
    std::string photo = "\xFF\xD8\xFF\xE0";
    for (int i = 0; i < 256; ++i) {
        photo += static_cast<char>(i);
    }
    EXPECT_EQ(card.photo, photo);
}

}  // namespace
}  // namespace quorvi
