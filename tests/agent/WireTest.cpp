#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "agent/AgentCommand.h"
#include "agent/Request.h"
#include "agent/Wire.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

template <typename... Values>
Bytes Literal(Values... values) {
    return {static_cast<std::byte>(values)...};
}

TEST(Wire, PackUInt32WritesTheMostSignificantByteFirst) {
    std::array<std::byte, 4> out{};
    PackUInt32(0x01020384, out.data());
    EXPECT_EQ(Bytes(out.begin(), out.end()), Literal(0x01, 0x02, 0x03, 0x84));
}

TEST(Wire, PackUInt64WritesTheMostSignificantByteFirst) {
    std::array<std::byte, 8> out{};
    PackUInt64(0x0102030405060788, out.data());
    EXPECT_EQ(Bytes(out.begin(), out.end()),
              Literal(0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x88));
}

TEST(Wire, ReadingGivesBackWhatWasPacked) {
    EXPECT_EQ(ReadUInt32(Literal(0x01, 0x02, 0x03, 0x84).data()), 0x01020384u);
    EXPECT_EQ(ReadUInt32(Literal(0xFF, 0xFF, 0xFF, 0xFF).data()), 0xFFFFFFFFu);
    EXPECT_EQ(ReadUInt64(Literal(0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x88).data()),
              0x0102030405060788u);
    EXPECT_EQ(ReadUInt64(Literal(0x80, 0, 0, 0, 0, 0, 0, 0).data()), 0x8000000000000000u);
}

TEST(Wire, TheMarksAreTheReservedValues) {
    EXPECT_EQ(NoDataMark, 123456791u);
    EXPECT_EQ(AbsentMark, 233876922u);
    EXPECT_EQ(AgentPort, 50505);
}

TEST(AgentCommand, EachCommandHasItsCode) {
    struct Row {
        AgentCommand command;
        std::uint32_t code;
    };
    constexpr Row kRows[] = {
        {AgentCommand::deviceSummary, 870002},
        {AgentCommand::agentVersion, 870003},
        {AgentCommand::systemInformation, 870004},
        {AgentCommand::listContacts, 870101},
        {AgentCommand::readContact, 870102},
        {AgentCommand::addContact, 870103},
        {AgentCommand::updateContact, 870104},
        {AgentCommand::deleteContacts, 870106},
        {AgentCommand::listGroupNames, 870120},
        {AgentCommand::addGroup, 870121},
        {AgentCommand::renameGroup, 870122},
        {AgentCommand::deleteGroups, 870124},
        {AgentCommand::listGroups, 870140},
        {AgentCommand::listGroupMembers, 870150},
        {AgentCommand::listConversations, 870201},
        {AgentCommand::readConversation, 870202},
        {AgentCommand::sendMessage, 870204},
        {AgentCommand::deleteConversation, 870206},
        {AgentCommand::listCalls, 870301},
        {AgentCommand::deleteCalls, 870303},
        {AgentCommand::deleteAllCalls, 870304},
        {AgentCommand::listAlarms, 870401},
        {AgentCommand::addAlarm, 870402},
        {AgentCommand::updateAlarm, 870403},
        {AgentCommand::deleteAlarms, 870405},
        {AgentCommand::listFileRoots, 870601},
        {AgentCommand::listDirectory, 870602},
        {AgentCommand::listBookmarks, 870701},
        {AgentCommand::addBookmark, 870702},
        {AgentCommand::updateBookmark, 870703},
        {AgentCommand::deleteBookmarks, 870705},
        {AgentCommand::listApplications, 870802},
        {AgentCommand::runApplication, 870805},
        {AgentCommand::readSettings, 871501},
        {AgentCommand::writeSetting, 871502},
        {AgentCommand::scanForCleaning, 871601},
        {AgentCommand::clean, 871602},
        {AgentCommand::listAutoStart, 871701},
        {AgentCommand::listProcesses, 871801},
        {AgentCommand::endProcesses, 871804},
        {AgentCommand::freeMemory, 871806},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(static_cast<std::uint32_t>(row.command), row.code);
    }
}

TEST(BareRequest, IsTheCodeAlone) {
    EXPECT_EQ(BareRequest(AgentCommand::agentVersion), Literal(0x00, 0x0D, 0x46, 0x73));  // 870003
}

TEST(RequestBuilder, ACommandOnOneObjectIsSixteenBytes) {
    EXPECT_EQ(RequestBuilder(AgentCommand::readContact).BeginItem().AddUInt32(0x01020304).Take(),
              Literal(0x00, 0x0D, 0x46, 0xD6,    // 870102
                      0x00, 0x00, 0x00, 0x10,    // total 16
                      0x00, 0x00, 0x00, 0x01,    // one item
                      0x01, 0x02, 0x03, 0x04));  // its identifier
}

TEST(IdsRequest, ACommandOnThreeObjectsIsTwelveBytesAndFourForEach) {
    EXPECT_EQ(IdsRequest(AgentCommand::deleteContacts, std::array{7u, 8u, 9u}),
              Literal(0x00, 0x0D, 0x46, 0xDA,    // 870106
                      0x00, 0x00, 0x00, 0x18,    // total 12 + 4 * 3
                      0x00, 0x00, 0x00, 0x03,    // three items
                      0x00, 0x00, 0x00, 0x07,    // identifiers
                      0x00, 0x00, 0x00, 0x08,    //
                      0x00, 0x00, 0x00, 0x09));  //
}

TEST(RequestBuilder, ACountOfOneAndTwoArgumentsAreTwentyBytes) {
    EXPECT_EQ(
        RequestBuilder(AgentCommand::writeSetting).BeginItem().AddUInt32(1).AddUInt32(2).Take(),
        Literal(0x00, 0x0D, 0x4C, 0x4E,    // 871502
                0x00, 0x00, 0x00, 0x14,    // total 20
                0x00, 0x00, 0x00, 0x01,    // one item
                0x00, 0x00, 0x00, 0x01,    // arguments
                0x00, 0x00, 0x00, 0x02));  //
}

TEST(RequestBuilder, ABodyOfNoItemsIsTheHeaderAlone) {
    EXPECT_EQ(RequestBuilder(AgentCommand::deleteAllCalls).Take(),
              Literal(0x00, 0x0D, 0x47, 0xA0,    // 870304
                      0x00, 0x00, 0x00, 0x0C,    // total 12
                      0x00, 0x00, 0x00, 0x00));  // no items
}

TEST(RequestBuilder, AStringIsSentInUtf8BehindItsLengthAfterTheConversion) {
    // 连 is 2 bytes in memory and 3 on the wire.
    EXPECT_EQ(
        RequestBuilder(AgentCommand::addGroup).BeginItem().AddText("\xC1\xAC").AddText("").Take(),
        Literal(0x00, 0x0D, 0x46, 0xE9,    // 870121
                0x00, 0x00, 0x00, 0x17,    // total 23
                0x00, 0x00, 0x00, 0x01,    // one item
                0x00, 0x00, 0x00, 0x03,    // 3 bytes
                0xE8, 0xBF, 0x9E,          // 连
                0x00, 0x00, 0x00, 0x00));  // empty, and not absent
}

TEST(RequestBuilder, LongWordsAndRawBytesGoOutAsTheyAre) {
    RequestBuilder request(AgentCommand::addContact);
    request.BeginItem().AddUInt64(0x0102030405060708).AddRawText("\xC1\xAC");
    request.AddBytes(Literal(0xFF, 0x00));
    const Bytes frame = request.Take();
    EXPECT_EQ(Bytes(frame.begin() + kFrameHeaderBytes, frame.end()),
              Literal(0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08,  // u64
                      0x00, 0x00, 0x00, 0x02, 0xC1, 0xAC,              // raw text
                      0xFF, 0x00));                                    // bytes
}

}  // namespace
}  // namespace quorvi
