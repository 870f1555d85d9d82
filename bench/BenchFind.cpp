// What a key costs in the bar over a list of 20,000 names and numbers: to find the rows, and until
// the narrowed list is painted; the same over a tree that has as many in one open group; and to
// find the messages of a conversation that has as many. Ends with status 1 when a key takes longer
// than a frame of the screen.
#include <benchmark/benchmark.h>

#include <QLineEdit>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "find/FindIndex.h"
#include "pages/messages/ConversationIndex.h"
#include "tests/support/SampleList.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/ListFind.h"
#include "ui/list/TreeFind.h"

namespace quorvi {
namespace {

constexpr int kRows = 20'000;
constexpr QSize kViewSize(760, 462);
constexpr double kMostKey = 16;    // milliseconds
constexpr double kMostOpen = 100;  // milliseconds, for the bar itself

constexpr std::u16string_view kSurnames = u"王李张刘陈杨黄赵吴周徐孙马朱胡郭何林罗高曾单仇解吕";
constexpr std::u16string_view kGiven =
    u"远舟雨泽易之忆中英姿晓棠建国志强秀兰桂芳海燕长乐重阳行云思";

// What is typed: letters that begin many names, whole names, digits, characters, and what is found
// nowhere.
constexpr std::array<std::u16string_view, 10> kTyped = {
    u"l", u"ly", u"lyz", u"linyuanzhou", u"zhzhzh", u"138", u"1380001", u"林", u"志强", u"qqqq"};

std::vector<SampleRecord> Records() {
    std::vector<SampleRecord> records(kRows);
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].id = i + 1;
        records[i].name = QString(QChar(kSurnames[i % kSurnames.size()])) +
                          QChar(kGiven[i * 7 % kGiven.size()]) +
                          QChar(kGiven[i / kSurnames.size() % kGiven.size()]);
        records[i].number = QString::number(13'800'000'000LL + static_cast<long long>(i) * 37);
    }
    return records;
}

void Index(benchmark::State& state, std::u16string_view typed) {
    FindIndex index;
    for (const SampleRecord& record : Records()) {
        index.AddRow();
        index.AddText(record.name.toStdU16String(), FindKind::name);
        index.AddText(record.number.toStdU16String(), FindKind::number);
    }
    const FindQuery query(typed);
    for (auto _ : state) {
        benchmark::DoNotOptimize(index.Find(query));
    }
}

std::vector<ConversationMessage> Messages() {
    std::vector<ConversationMessage> messages(kRows);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        messages[i].text = Ansi(
                               u8"明天下午三点在人民广场地铁站十二号口见，带上上次借的书和雨伞，"
                               u8"晚饭我来订。到了打这个电话：") +
                           std::to_string(13'800'000'000LL + static_cast<long long>(i) * 37);
    }
    return messages;
}

void OpenMessages(benchmark::State& state) {
    const auto messages = Messages();
    for (auto _ : state) {
        benchmark::DoNotOptimize(IndexOfMessages(messages));
    }
}

void FindMessages(benchmark::State& state, std::u16string_view typed) {
    const FindIndex index = IndexOfMessages(Messages());
    const FindQuery query(typed);
    for (auto _ : state) {
        benchmark::DoNotOptimize(index.Find(query));
    }
}

struct Shown {
    SampleListCtrl list;

    Shown() {
        list.setFixedSize(kViewSize);
        list.EnableFind();
        list.show();
        list.SetRecords(Records());
        QApplication::processEvents();
    }
};

void Open(benchmark::State& state) {
    Shown shown;
    for (auto _ : state) {
        shown.list.Find()->Open();
        shown.list.viewport()->repaint();
        state.PauseTiming();
        shown.list.Find()->Close();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void Key(benchmark::State& state, std::u16string_view typed) {
    Shown shown;
    shown.list.Find()->Open();
    auto* field = shown.list.findChild<QLineEdit*>(QStringLiteral("find"));
    const QString text = QString::fromUtf16(typed.data(), static_cast<qsizetype>(typed.size()));
    for (auto _ : state) {
        field->setText(text);
        shown.list.viewport()->repaint();
        state.PauseTiming();
        field->clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

struct ShownTree {
    CSkinTree tree{nullptr, CSkinTree::Ticks::each};
    TreeFind* find = nullptr;

    ShownTree() {
        tree.setFixedSize(kViewSize);
        find = new TreeFind(tree);
        TreeNode group{.text = QStringLiteral("all [20000]")};
        for (const SampleRecord& record : Records()) {
            group.children.push_back(
                {.text = record.name + QStringLiteral(" [") + record.number + QStringLiteral("]"),
                 .find = record.name + u'\n' + record.number});
        }
        tree.SetNodes({group});
        tree.topLevelItem(0)->setExpanded(true);
        tree.show();
        QApplication::processEvents();
    }
};

void TreeOpen(benchmark::State& state) {
    ShownTree shown;
    for (auto _ : state) {
        shown.find->Open();
        shown.tree.viewport()->repaint();
        state.PauseTiming();
        shown.find->Close();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void TreeKey(benchmark::State& state, std::u16string_view typed) {
    ShownTree shown;
    shown.find->Open();
    auto* field = shown.tree.findChild<QLineEdit*>(QStringLiteral("find"));
    const QString text = QString::fromUtf16(typed.data(), static_cast<qsizetype>(typed.size()));
    for (auto _ : state) {
        field->setText(text);
        shown.tree.viewport()->repaint();
        state.PauseTiming();
        field->clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// The last letter is taken back: all nodes come again.
void TreeAll(benchmark::State& state) {
    ShownTree shown;
    shown.find->Open();
    auto* field = shown.tree.findChild<QLineEdit*>(QStringLiteral("find"));
    for (auto _ : state) {
        state.PauseTiming();
        field->setText(QStringLiteral("q"));
        QApplication::processEvents();
        state.ResumeTiming();
        field->clear();
        shown.tree.viewport()->repaint();
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    verdict.AtMost("20,000 rows, the bar opens, ms", figures.Time("Open"), kMostOpen);
    verdict.AtMost("20,000 nodes, the bar opens, ms", figures.Time("TreeOpen"), kMostOpen);
    verdict.AtMost("20,000 messages, the bar opens, ms", figures.Time("OpenMessages"), kMostOpen);
    verdict.AtMost("20,000 nodes come again, ms", figures.Time("TreeAll"), kMostKey);
    for (std::size_t i = 0; i < kTyped.size(); ++i) {
        const QString typed =
            QString::fromUtf16(kTyped[i].data(), static_cast<qsizetype>(kTyped[i].size()));
        const std::string which = std::to_string(i);
        verdict.AtMost(("in messages, ms: " + typed.toStdString()).c_str(),
                       figures.Time("Messages" + which), kMostKey);
        Verdict::Tell(("  found, ms: " + typed.toStdString()).c_str(),
                      figures.Time("Index" + which));
        verdict.AtMost(("on the screen, ms: " + typed.toStdString()).c_str(),
                       figures.Time("Key" + which), kMostKey);
        verdict.AtMost(("in a tree, ms: " + typed.toStdString()).c_str(),
                       figures.Time("TreeKey" + which), kMostKey);
    }
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    const auto application = MakeApplication(count, words);
    benchmark::RegisterBenchmark("Open", Open)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("OpenMessages", OpenMessages)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("TreeOpen", TreeOpen)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("TreeAll", TreeAll)->Unit(benchmark::kMillisecond);
    for (std::size_t i = 0; i < kTyped.size(); ++i) {
        const std::string which = std::to_string(i);
        benchmark::RegisterBenchmark(("Messages" + which).c_str(), FindMessages, kTyped[i])
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("TreeKey" + which).c_str(), TreeKey, kTyped[i])
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("Index" + which).c_str(), Index, kTyped[i])
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("Key" + which).c_str(), Key, kTyped[i])
            ->Unit(benchmark::kMillisecond);
    }
    return RunAndJudge(count, words, 3, Judge);
}
