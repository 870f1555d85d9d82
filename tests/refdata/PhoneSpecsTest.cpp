#include <fmt/format.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "base/Text.h"
#include "refdata/PhoneSpecs.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi {
namespace {

std::string Values(int count) {
    std::string values;
    for (int i = 0; i < count; ++i) {
        values += fmt::format("<v{0}>value {0}</v{0}>", i);
    }
    return values;
}

// Two makers of one platform, one of another, and three sections without any.
std::string SampleFile() {
    return "<main>\n"
           "<android-device>\n"
           "<north manufacturer=\"North\">\n"
           "<item device=\"N1\">" +
           Values(18) +
           "</item>\n"
           "<item device=\"N2\">" +
           Values(3) +
           "</item>\n"
           "</north>\n"
           "<empty manufacturer=\"Empty\"/>\n"
           "</android-device>\n"
           "<ophone-device><south manufacturer=\"South\"><item device=\"S1\">" +
           Values(18) +
           "</item></south></ophone-device>\n"
           "<symbian-device/><apple-device/><windowsphone-device/>\n"
           "</main>\n";
}

SpecsLists Read(const std::string& file, const SpecsChoice& choice) {
    return ReadSpecs(XmlDocument(file), choice).value();
}

TEST(PhoneSpecs, ListsMakersModelsAndValuesOfTheFirstOfEach) {
    const SpecsLists lists = Read(SampleFile(), {});
    EXPECT_EQ(lists.makers, (std::vector<std::string>{"North", "Empty"}));
    EXPECT_EQ(lists.models, (std::vector<std::string>{"N1", "N2"}));
    ASSERT_EQ(lists.values.size(), 18U);
    EXPECT_EQ(lists.values[17], "value 17");
}

TEST(PhoneSpecs, AModelWithFewerValuesGivesThoseAlone) {
    EXPECT_EQ(Read(SampleFile(), {.model = 1}).values.size(), 3U);
}

TEST(PhoneSpecs, AModelWithMoreValuesGivesThoseThatHaveARow) {
    const std::string file = "<main><android-device><m manufacturer=''><item device=''>" +
                             Values(25) + "</item></m></android-device></main>";
    EXPECT_EQ(Read(file, {}).values.size(), kSpecCaptions.size());
}

TEST(PhoneSpecs, AMakerWithoutModelsHasNone) {
    const SpecsLists lists = Read(SampleFile(), {.maker = 1});
    EXPECT_TRUE(lists.models.empty());
    EXPECT_TRUE(lists.values.empty());
}

TEST(PhoneSpecs, AChoiceThatThereIsNotLeavesTheListsBehindItEmpty) {
    EXPECT_TRUE(Read(SampleFile(), {.maker = 2}).models.empty());
    EXPECT_TRUE(Read(SampleFile(), {.model = 2}).values.empty());
}

TEST(PhoneSpecs, EachPlatformHasASectionOfItsOwn) {
    EXPECT_EQ(Read(SampleFile(), {.platform = 1}).makers, std::vector<std::string>{"South"});
    EXPECT_TRUE(Read(SampleFile(), {.platform = 2}).makers.empty());
}

TEST(PhoneSpecs, APlatformBeyondTheLastCountsAsTheFirst) {
    EXPECT_EQ(Read(SampleFile(), {.platform = 5}).makers, Read(SampleFile(), {}).makers);
}

TEST(PhoneSpecs, MakersWhoseElementsHaveOneNameBothShowTheFirst) {
    const std::string file =
        "<main><android-device><m manufacturer='One'><item device='1'/></m>"
        "<m manufacturer='Two'><item device='2'/></m></android-device></main>";
    const SpecsLists lists = Read(file, {.maker = 1});
    EXPECT_EQ(lists.makers, (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(lists.models, std::vector<std::string>{"1"});
}

TEST(PhoneSpecs, AnotherDocumentOrAMissingSectionGivesNothing) {
    for (const char* file : {"", "words", "<root/>", "<main><ophone-device/></main>"}) {
        EXPECT_FALSE(ReadSpecs(XmlDocument(file), {}).has_value()) << file;
    }
}

std::vector<std::string> Findings(const std::string& file) {
    std::vector<std::string> texts;
    for (const SpecsFinding& finding : CheckSpecs(file)) {
        texts.push_back(fmt::format("{} {}", finding.line, finding.text));
    }
    return texts;
}

TEST(PhoneSpecsCheck, SaysTheLineOfEachFault) {
    const std::string file =
        "<main>\n"
        "<android-device>\n"
        "<m>\n"
        "<item device='A'>" +
        Values(2) +
        "</item>\n"
        "</m>\n"
        "<m manufacturer='Two'/>\n"
        "</android-device>\n"
        "<other-device/>\n"
        "<ophone-device/><symbian-device/><apple-device/>\n"
        "<ophone-device/>\n"
        "</main>";
    EXPECT_EQ(Findings(file),
              (std::vector<std::string>{
                  "1 windowsphone-device: " + Ansi(u8"缺少这个平台。"),
                  "3 m: " + Ansi(u8"缺少属性 manufacturer，厂商没有名称。"),
                  "4 item: " + Ansi(u8"应有 18 项参数，实有 2 项。"),
                  "6 m: " + Ansi(u8"这个平台中已有同名的厂商元素，它的机型不会显示。"),
                  "6 m: " + Ansi(u8"没有机型（item）。"),
                  "8 other-device: " + Ansi(u8"没有这个平台，它的内容不会显示。"),
                  "10 ophone-device: " + Ansi(u8"这个平台已经出现过，后一个不会显示。"),
              }));
}

TEST(PhoneSpecsCheck, SaysWhereADocumentStopsBeingXml) {
    EXPECT_EQ(Findings("<main>\n<a></b>\n</main>"),
              std::vector<std::string>{"2 " + Ansi(u8"从这里起不是有效的 XML。")});
    EXPECT_EQ(Findings("<root/>"),
              std::vector<std::string>{"1 " + Ansi(u8"最外层的元素应当是 main。")});
}

// The file as it is delivered, from the tree.
std::string DeliveredFile() {
    std::ifstream file(QUORVI_SOURCE_DIR "/Data/device.xml", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(DeliveredPhoneSpecs, HaveNothingWrongWithThem) {
    EXPECT_TRUE(Findings(DeliveredFile()).empty());
}

TEST(DeliveredPhoneSpecs, HaveMakersAndModelsOnEachPlatform) {
    const XmlDocument file(DeliveredFile());
    std::size_t makers = 0;
    std::size_t models = 0;
    for (std::size_t platform = 0; platform < kSpecsPlatforms.size(); ++platform) {
        const std::size_t count = ReadSpecs(file, {.platform = platform}).value().makers.size();
        EXPECT_GE(count, 1U) << kSpecsPlatforms.at(platform).element;
        makers += count;
        for (std::size_t maker = 0; maker < count; ++maker) {
            models += ReadSpecs(file, {.platform = platform, .maker = maker}).value().models.size();
        }
    }
    EXPECT_GE(makers, 3U);
    EXPECT_GE(models, 12U);
}

}  // namespace
}  // namespace quorvi
