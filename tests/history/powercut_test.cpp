// The power fails at any moment of a day: while goods are scanned, a movement is corrected, a period is saved
// and loaded. Every state in which that may leave the disk is opened with the program. It holds whole units,
// and nothing that the operator saw as done is missing.
//
// With --gtest_repeat other states are tried each time.
#include <algorithm>
#include <functional>
#include <iostream>
#include <unordered_set>

#include <gtest/gtest.h>

#include "history/UnfinishedSave.h"
#include "tests/support/EntryDesk.h"
#include "tests/support/HistoryDesk.h"
#include "tests/support/PowerCut.h"
#include "tests/support/Seed.h"
#include "tools/ShopCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

const Period january{"20260101", "20260131"};
constexpr int wantedStates = 2000;

/// A shop in its day, each of whose steps ends in something that the operator sees as done.
struct Day : HistoryDesk
{
    Day()
    {
        shop->add(masterTable, {"PART", "鉛筆", "", "12", "50", "1", "80", "本", "0"});
        shop->add(masterTable, {"SET", "文具セット", "", "1", "900", "1", "1500", "箱", "0"});
        component("SET", "PART", "3");
        stock("PART", "1006", "1000");
        stock("SET", "20", "20");
        receipt("PART", "0000010", "20260105", "20260105090000");
        shipment("PART", "0000004", "20260115", "20260115090000");
        for (Side side : {Side::Receipt, Side::Shipment}) {
            frame.tab = side == Side::Receipt ? Tab::Receipt : Tab::Shipment;
            auto& page = pages.emplace_back(
                std::make_unique<MovementPage>(side, Services{db, ini, clock, box, frame}));
            page->setPartners({{"101", u"東商店"_s}});
            page->setDefaultDates(u"20260401"_s, u"20260401"_s);
        }
    }

    void scan(Side side, const QString& code)
    {
        frame.tab = side == Side::Receipt ? Tab::Receipt : Tab::Shipment;
        EntryDesk::book(*pages[side == Side::Receipt ? 0 : 1], code);
        ASSERT_TRUE(box.shown.empty()) << box.shown[0].text.toStdString();
    }
    void correct()
    {
        frame.tab = Tab::Receipt;
        EntryDesk::edit(*pages[0], movementSide(Side::Receipt).cells.quantity, 1, "8");
        box.answers = {BoxAnswer::Yes};
        pages[0]->cmdKousin_Click();
        ASSERT_EQ(box.shown.size(), 2U);
        ASSERT_EQ(box.shown[1].title, u"更新の完了"_s);
        box.shown.clear();
    }

    std::vector<std::unique_ptr<MovementPage>> pages;
};

struct Step
{
    std::function<void(Day&)> act;
    bool mayLeaveItsFile = false; ///< until it is done
};

/// The steps of the day, in order.
std::vector<Step> steps()
{
    const auto save = [](Day& day) { ASSERT_EQ(day.save(january), RirekiDB::Done); };
    const auto load = [](Day& day) { ASSERT_EQ(day.load(january), RirekiDB::Done); };
    return {{[](Day& day) { day.scan(Side::Receipt, u"SET"_s); }},
            {[](Day& day) { day.scan(Side::Shipment, u"PART"_s); }},
            {[](Day& day) { day.correct(); }},
            {save},
            {[](Day& day) { day.scan(Side::Receipt, u"PART"_s); }},
            {load, true},
            {save},
            {load, true},
            {[](Day& day) { day.scan(Side::Shipment, u"SET"_s); }}};
}

/// Everything that the shop's books say, in the tables and in the files on the list.
std::string booksOf(const HistoryDesk& desk)
{
    std::string all;
    const auto add = [&all](const Lines& lines) {
        for (const std::string& line : lines)
            all += line + '\n';
        all += '\n';
    };
    for (const char* table : {"InpTB", "OutTB", "ZaikoTB", "RirekiTB"})
        add(desk.rows(table));
    if (desk.listed().empty())
        return all;
    const std::string file = desk.fileOf(january).toStdString();
    if (!QFile::exists(desk.fileOf(january)))
        return all + "the file on the list is missing";
    for (const char* table : {"InpTB", "OutTB"})
        add(queryFile(file, std::string("SELECT * FROM ") + table + " ORDER BY 1, 2, 3, 4, 5"));
    return all;
}

/// The day as it went: what was asked of the disk, and what the books said after each step.
struct Record
{
    DiskTree before;
    std::vector<DiskOp> ops;
    std::vector<std::size_t> stepEnds; ///< calls done when the step was reported as done; the first is 0
    std::vector<std::string> books;
};

void live(Day& day, Record& record)
{
    DiskRecorder recorder(day.shop->base().toStdString());
    record.before = recorder.before();
    record.stepEnds = {0};
    record.books = {booksOf(day)};
    for (const Step& step : steps()) {
        step.act(day);
        ASSERT_FALSE(::testing::Test::HasFatalFailure());
        record.stepEnds.push_back(recorder.count());
        record.books.push_back(booksOf(day));
    }
    recorder.stop();
    record.ops = recorder.ops();
    ASSERT_TRUE(recorder.missed().empty()) << *recorder.missed().begin();
    day.db.CloseFile();
}

/// What is wrong with the books of the shop in \a desk's folder, after the program has started on it; empty
/// when they are as after step \a done or the one that follows it.
std::string faultAfter(const HistoryDesk& desk, const Record& record, std::size_t done)
{
    AppDB db(desk.shop->databaseFolder());
    if (db.Open("trnvik.mdb") != DbStatus::Good)
        return "cannot be opened: " + db.LastErrText();
    AppIni ini;
    ini.setIniFolder(desk.shop->base() + u"/Ini"_s);
    settleUnfinishedSave(db, ini);
    if (desk.shop->query("PRAGMA integrity_check") != Lines{"ok"})
        return "is damaged";
    if (const Lines problems = checkShop(db); !problems.empty())
        return problems.front();
    const std::string books = booksOf(desk);
    const std::size_t last = std::min(done + 1, record.books.size() - 1);
    if (books != record.books[done] && books != record.books[last])
        return "the books are neither those before the step nor those after it:\n" + books + "\nbefore:\n"
               + record.books[done] + "\nafter:\n" + record.books[last];
    // Nothing is left in the folder but the file on the list; the file of a load under way may wait to be
    // removed.
    const QStringList files = QDir(desk.folder()).entryList(QDir::Files | QDir::Hidden);
    const bool listed = !desk.listed().empty();
    const bool loading = last > done && steps()[done].mayLeaveItsFile;
    if (listed ? files.size() != 1 : !files.isEmpty() && !loading)
        return "left behind: " + files.join(u' ').toStdString();
    return {};
}

} // namespace

TEST(PowerCut, atAnyMoment_leavesWholeUnits_andAllThatWasReported)
{
    Day day;
    Record record;
    live(day, record);
    if (HasFatalFailure())
        return;
    std::mt19937 random(printedSeed());
    PowerCut cut(record.before, record.ops);
    std::unordered_set<std::string> seen;
    int tried = 0;
    const double probabilities[] = {1, 0, 0.5, 0.9, 0.1, 0.97, 0.03};
    const int perMoment = 1 + 4 * wantedStates / static_cast<int>(record.ops.size());
    std::size_t done = 0;
    for (std::size_t moment = 0; moment <= record.ops.size(); ++moment) {
        cut.goTo(moment);
        while (done + 1 < record.stepEnds.size() && record.stepEnds[done + 1] <= moment)
            ++done;
        for (int turn = 0; turn < (cut.pending() ? perMoment : 1); ++turn) {
            const double probability =
                probabilities[static_cast<std::size_t>(turn) % std::size(probabilities)];
            const DiskTree tree = cut.state(random, probability);
            std::string key = std::to_string(done);
            for (const auto& [path, bytes] : tree)
                key += '/' + path + ':' + std::to_string(std::hash<std::string>()(bytes));
            if (!seen.insert(key).second)
                continue;
            ++tried;
            writeTree(day.shop->base().toStdString(), tree);
            ASSERT_EQ(faultAfter(day, record, done), "")
                << "state " << tried << ", after call " << moment << " of " << record.ops.size() << ", step "
                << done << ", each piece with probability " << probability;
        }
    }
    std::cout << tried << " states of " << record.ops.size() << " calls" << std::endl;
    EXPECT_GE(tried, wantedStates);
}

} // namespace suisui::test
