// How the pages of messages and calls stand up to a phone in long use: the window's thread answers
// all the while, and what was read is on the screen soon after the reply's end. 5,000 conversations
// and a conversation of 5,000 messages beside a bare browser view given the same fragment; the
// composer's tree of 5,000 people beside a bare line edit that takes as many recipients; 20,000
// calls beside a plain QTableView of the same rows. Ends with status 1 when a page takes longer
// than it may. On a busy machine `chrt --rr 1` in front gives figures as of a quiet one.
#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/AgentProcess.h"
#include "bench/BareView.h"
#include "bench/PersonalReplies.h"
#include "bench/PlainTable.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/calls/CallLogPage.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "refdata/NumberAttribution.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"
#include "ui/html/HtmlSite.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kConversations = 5'000;
constexpr int kMessages = 5'000;
constexpr int kMembers = 5'000;
constexpr int kGroups = 40;
constexpr int kInLargestGroup = 1'000;
constexpr int kTextLength = 10'000;
constexpr int kCalls = 20'000;
constexpr int kRepetitions = 9;

// All in milliseconds.
constexpr double kMostAway = 50;        // of the window's thread
constexpr double kMostDocument = 1000;  // from the reply's end until the view holds it
constexpr double kMostCalls = 300;      // from the reply's end until the rows are painted
constexpr double kMostTimesBare = 2;    // times what a bare view or table takes

constexpr int kConversationId = 7;
constexpr QSize kPageSize(760, 462);
constexpr milliseconds kSettle{200};

const AgentProcess* agent = nullptr;

AgentProcess::Answer Replies() {
    return AnswerPayloads({
        {AgentCommand::listConversations, ConversationsPayloadOf(kConversations)},
        {AgentCommand::readConversation, MessagesPayloadOf(kMessages)},
        {AgentCommand::listGroupNames, GroupNamesPayloadOf(kGroups)},
        {AgentCommand::listGroupMembers, GroupMembersPayloadOf(kMembers, kGroups, kInLargestGroup)},
        {AgentCommand::listCalls, CallsPayloadOf(kCalls)},
    });
}

const AttributionOf& Attribution() {
    static const AttributionOf attribution = MakeNumberAttribution();
    return attribution;
}

// ---- what a run notes --------------------------------------------------------------------------

double SecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// The longest absence of the window's thread in one run.
void Note(benchmark::State& state, const std::string& what, const Absence& absence) {
    state.counters[what + "_away"] = absence.longest;
    state.counters[what + "_computed"] = absence.computed;
}

Absence Longer(const Absence& a, const Absence& b) {
    return a.longest < b.longest ? b : a;
}

// ---- views -------------------------------------------------------------------------------------

// A template and what is put into it.
struct Document {
    int templateId;
    const char* element;
    const char* block;
    int blocks;
    std::string (*fragment)();  // ANSI
};

const Document kConversationsDocument{
    kConversationsTemplate, "sms_ul", "#sms_ul > li", kConversations, [] {
        const auto reply = FetchConversations(AgentSession(agent->Port()), Attribution());
        return ConversationsFragment(reply.conversations).Html();
    }};
const Document kConversationDocument{
    kConversationTemplate, "conversation_list", "#conversation_list > .entry", kMessages, [] {
        const auto reply = FetchConversation(AgentSession(agent->Port()), kConversationId);
        return ConversationFragment(reply.messages).Html();
    }};

BlockWatch WatchBlocks(QWebEnginePage& page, const Document& document) {
    return {page, QLatin1String(document.block), document.blocks};
}

// The fragment as a ready script: a plain assignment.
QString AssignmentScript(const Document& document) {
    const QJsonArray text{ToQString(document.fragment())};
    return QStringLiteral("document.getElementById('%1').innerHTML = %2[0]")
        .arg(QLatin1String(document.element),
             QString::fromUtf8(QJsonDocument(text).toJson(QJsonDocument::Compact)));
}

void FillBare(benchmark::State& state, const Document& document) {
    const QString script = AssignmentScript(document);
    for (auto _ : state) {
        BareView view(kPageSize);
        Note(state, "open", view.Open(TemplateUrl(document.templateId)));
        RunWindowFor(kSettle);
        BlockWatch watch = WatchBlocks(view.Page(), document);
        const Clock::time_point start = Clock::now();
        const Absence filling = RunWindowUntil(
            [&] { return watch.Reached(); },
            [&] { view.Page().runJavaScript(script, QWebEngineScript::ApplicationWorld); });
        Note(state, "fill", Longer(filling, RunWindowFor(kSettle)));
        state.SetIterationTime(SecondsBetween(start, watch.At()));
    }
}

void BareConversations(benchmark::State& state) {
    FillBare(state, kConversationsDocument);
}
void BareConversation(benchmark::State& state) {
    FillBare(state, kConversationDocument);
}

// Runs the window's thread until the template stands in the view that `show` makes and shows.
Absence OpenView(const std::function<CHtmlCtrlBase&()>& show) {
    bool loaded = false;
    return RunWindowUntil([&] { return loaded; },
                          [&] {
                              CHtmlCtrlBase& view = show();
                              QObject::connect(&view, &CHtmlCtrlBase::documentLoaded, &view,
                                               [&] { loaded = true; });
                          });
}

void SmsPage(benchmark::State& state) {
    for (auto _ : state) {
        FakeHost host;
        TestServices services;
        CSmsPage page(host, services.At(agent->Port()));
        page.resize(kPageSize);
        auto& view = *FindControl<CHtmlCtrlBase>(&page, 1361);
        Note(state, "open", OpenView([&]() -> CHtmlCtrlBase& {
                 page.show();
                 return view;
             }));
        RunWindowFor(kSettle);
        BlockWatch watch = WatchBlocks(*view.Browser()->page(), kConversationsDocument);
        const Absence filling =
            RunWindowUntil([&] { return watch.Reached(); }, [&] { page.Load(); });
        Note(state, "fill", Longer(filling, RunWindowFor(kSettle)));
        state.SetIterationTime(
            SecondsBetween(agent->ReplyEnd(AgentCommand::listConversations), watch.At()));
    }
}

// ---- the composer ------------------------------------------------------------------------------

class Composer {
  public:
    Composer() = default;
    ~Composer() { delete dialog_; }
    Composer(const Composer&) = delete;
    Composer& operator=(const Composer&) = delete;

    // Returns as soon as its template stands; what it reads is under way then.
    Absence Open(std::uint32_t conversation) {
        return OpenView([&]() -> CHtmlCtrlBase& {
            dialog_ = new CSmsComposeDlg(host_, conversation, nullptr, agent->Port());
            dialog_->Open();
            return View();
        });
    }
    [[nodiscard]] bool TreeStands() { return Tree().Status().Get() != ListState::loading; }

    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(dialog_, 1359); }
    CSkinTree& Tree() { return *FindControl<CSkinTree>(dialog_, 1338); }
    QLineEdit& Recipients() { return *FindControl<QLineEdit>(dialog_, 1337); }
    QPlainTextEdit& Text() { return *FindControl<QPlainTextEdit>(dialog_, 1271); }

    // A click on a group's tick, and all that follows from it.
    Absence Tick(int group) {
        QTreeWidgetItem* item = Tree().topLevelItem(group);
        Tree().scrollToItem(item);
        const QPoint at = Tree().TickRect(item).center();
        return RunWindowFor(kSettle,
                            [&] { QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, at); });
    }

  private:
    FakeHost host_;
    QPointer<CSmsComposeDlg> dialog_;
};

// Types a text key by key.
Absence Type(QWidget& field, const QString& text) {
    Absence longest;
    for (const QChar key : text) {
        longest = Longer(longest, RunWindowFor(milliseconds(20), [&] {
                             QTest::keyClick(&field, static_cast<char>(key.unicode()));
                         }));
    }
    return longest;
}

void ComposerConversation(benchmark::State& state) {
    for (auto _ : state) {
        Composer composer;
        Note(state, "open", composer.Open(kConversationId));
        BlockWatch watch = WatchBlocks(*composer.View().Browser()->page(), kConversationDocument);
        const Absence filling =
            RunWindowUntil([&] { return watch.Reached() && composer.TreeStands(); });
        Note(state, "fill", Longer(filling, RunWindowFor(kSettle)));
        state.SetIterationTime(
            SecondsBetween(agent->ReplyEnd(AgentCommand::readConversation), watch.At()));
    }
}

void ComposerTree(benchmark::State& state) {
    for (auto _ : state) {
        Composer composer;
        composer.Open(kNoConversation);
        const Absence reading = RunWindowUntil([&] { return composer.TreeStands(); });
        state.SetIterationTime(
            SecondsBetween(agent->ReplyEnd(AgentCommand::listGroupMembers), Clock::now()));
        Note(state, "read", Longer(reading, RunWindowFor(kSettle)));
        Note(state, "type", Type(composer.Recipients(), QStringLiteral("13912345678")));
        Note(state, "tick", composer.Tick(0));
        Note(state, "untick", composer.Tick(0));
        composer.Tree().topLevelItem(0)->setExpanded(false);
        Absence all;
        for (int group = 0; group < kGroups; ++group) {
            all = Longer(all, composer.Tick(group));
        }
        Note(state, "tick_all", all);
        Note(state, "type_behind", Type(composer.Recipients(), QStringLiteral("139")));
        composer.Text().setPlainText(QString(kTextLength, QChar(u'好')));
        Note(state, "text", Type(composer.Text(), QStringLiteral("abc")));
    }
}

// All recipients, as ticking all groups gives them.
QString AllRecipients() {
    const GroupTree tree = FetchGroupTree(AgentSession(agent->Port()));
    std::string entries;
    for (const RecipientGroup& group : RecipientTree(tree.names, tree.members)) {
        for (const std::string& member : group.members) {
            entries += RecipientOfNode(member);
        }
    }
    return ToQString(entries);
}

// A line edit that knows nothing of the suite takes the same text.
void BareField(benchmark::State& state) {
    const QString recipients = AllRecipients();
    for (auto _ : state) {
        QLineEdit field;
        field.setMaxLength(static_cast<int>(2 * recipients.size()));
        field.show();
        RunWindowFor(kSettle);
        const Clock::time_point start = Clock::now();
        Note(state, "tick_all", RunWindowFor(kSettle, [&] { field.setText(recipients); }));
        Note(state, "type_behind", Type(field, QStringLiteral("139")));
        state.SetIterationTime(SecondsBetween(start, Clock::now()));
    }
}

// ---- calls -------------------------------------------------------------------------------------

void CallLogPage(benchmark::State& state) {
    for (auto _ : state) {
        FakeHost host;
        TestServices services;
        CCallLogPage page(host, services.At(agent->Port()));
        page.resize(kPageSize);
        page.show();
        RunWindowFor(kSettle);
        auto& list = *FindControl<CCallLogListCtrl>(&page, 1072);
        const Absence filling = RunWindowUntil(
            [&] { return list.RowCount() == kCalls && list.Redraw(); }, [&] { page.Load(); });
        list.viewport()->repaint();
        state.SetIterationTime(
            SecondsBetween(agent->ReplyEnd(AgentCommand::listCalls), Clock::now()));
        Note(state, "fill", Longer(filling, RunWindowFor(kSettle)));
    }
}

const std::vector<CallLogRow>& Calls() {
    static const std::vector<CallLogRow> rows =
        FetchCallLog(AgentSession(agent->Port()), Attribution()).list.rows;
    return rows;
}

// The texts of the columns that have one.
QString PlainCallText(const CallLogRow& row, int column) {
    const std::string* const texts[] = {&row.name, &row.number, &row.duration, &row.time,
                                        &row.attribution};
    return ToQString(*texts[column]);
}

class PlainCalls : public PlainTable<CallLogRow> {
  public:
    PlainCalls() : PlainTable(5, PlainCallText) {}
    void Fill() { SetRecords(Calls()); }
};

class KitCalls : public CCallLogListCtrl {
  public:
    void Fill() { Show({.rows = Calls()}); }
};

// From rows that have been read to their first screen. The copy of the rows is in both figures.
template <typename View>
void CallsScreen(benchmark::State& state) {
    View view;
    view.setFixedSize(kPageSize);
    view.show();
    RunWindowFor(kSettle);
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        view.Fill();
        view.viewport()->repaint();
        state.SetIterationTime(SecondsBetween(start, Clock::now()));
    }
}

// ---- the verdict -------------------------------------------------------------------------------

struct Promise {
    const char* what;
    const char* benchmark;
    const char* absence;         // of the window's thread, by the name it was noted under
    const char* bare = nullptr;  // what knows nothing of the suite and does the same
};
constexpr Promise kPromises[] = {
    {"SMS page opened", "SmsPage", "open", "BareConversations"},
    {"5,000 conversations read", "SmsPage", "fill", "BareConversations"},
    {"composer opened", "ComposerConversation", "open", "BareConversation"},
    {"5,000 messages read", "ComposerConversation", "fill", "BareConversation"},
    {"tree of 5,000 read", "ComposerTree", "read"},
    {"group of 1,000 ticked", "ComposerTree", "tick"},
    {"group of 1,000 unticked", "ComposerTree", "untick"},
    {"recipient typed", "ComposerTree", "type"},
    {"message of 10,000 typed on", "ComposerTree", "text"},
    {"20,000 calls read", "CallLogPage", "fill"},
};

// More than is promised: a line edit alone takes most of the time that it may.
constexpr Promise kBesideField[] = {
    {"all 5,000 ticked, group by group", "ComposerTree", "tick_all", "BareField"},
    {"typed behind 5,000 recipients", "ComposerTree", "type_behind", "BareField"},
};

// How long the window was away from its events.
void JudgeAbsences(const Figures& figures, Verdict& verdict) {
    for (const Promise& promise : kPromises) {
        const std::string absence = promise.absence;
        verdict.AtMost((std::string(promise.what) + ": away, ms").c_str(),
                       figures.Counter(promise.benchmark, absence + "_away"), kMostAway);
        Verdict::Tell("  of it computing",
                      figures.Counter(promise.benchmark, absence + "_computed"));
        if (promise.bare != nullptr) {
            Verdict::Tell("  a bare one", figures.Counter(promise.bare, absence + "_away"));
        }
    }
    for (const Promise& promise : kBesideField) {
        const std::string away = std::string(promise.absence) + "_away";
        const double ours = figures.Counter(promise.benchmark, away);
        Verdict::Tell((std::string(promise.what) + ": away, ms").c_str(), ours);
        verdict.AtMost("  times a bare line edit", ours / figures.Counter(promise.bare, away),
                       kMostTimesBare);
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    JudgeAbsences(figures, verdict);
    const auto beside = [&](const char* what, const char* ours, double most, const char* bare) {
        verdict.AtMost(what, figures.Time(ours), most);
        verdict.AtMost("  times a bare one", figures.Time(ours) / figures.Time(bare),
                       kMostTimesBare);
    };
    beside("5,000 conversations in the document, ms", "SmsPage", kMostDocument,
           "BareConversations");
    beside("5,000 messages in the document, ms", "ComposerConversation", kMostDocument,
           "BareConversation");
    verdict.AtMost("20,000 calls on the screen, ms", figures.Time("CallLogPage"), kMostCalls);
    beside("  of it once they are read", "CallsScreen<KitCalls>", kMostCalls,
           "CallsScreen<PlainCalls>");
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::AgentProcess agent(quorvi::Replies);
    quorvi::agent = &agent;
    quorvi::PrepareHtmlViews();
    const auto application = quorvi::MakeApplication(count, words);
    quorvi::RegisterTimed("BareConversations", quorvi::BareConversations);
    quorvi::RegisterTimed("SmsPage", quorvi::SmsPage);
    quorvi::RegisterTimed("BareConversation", quorvi::BareConversation);
    quorvi::RegisterTimed("ComposerConversation", quorvi::ComposerConversation);
    quorvi::RegisterTimed("ComposerTree", quorvi::ComposerTree);
    quorvi::RegisterTimed("BareField", quorvi::BareField);
    quorvi::RegisterTimed("CallLogPage", quorvi::CallLogPage);
    quorvi::RegisterTimed("CallsScreen<PlainCalls>", quorvi::CallsScreen<quorvi::PlainCalls>);
    quorvi::RegisterTimed("CallsScreen<KitCalls>", quorvi::CallsScreen<quorvi::KitCalls>);
    std::_Exit(quorvi::RunAndJudge(count, words, quorvi::kRepetitions,
                                   quorvi::Judge));  // waits for no browser
}
