// Names, marks and rows of history files, without a window: what says that a file is the one in the list.
#include <fstream>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "history/HistoryFile.h"
#include "history/Sentinel.h"
#include "history/UnfinishedSave.h"
#include "platform/core/RunTimeError.h"
#include "store/AppIni.h"
#include "tests/support/TempShop.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const std::string name = "RRK20260101-20260131.hst";
const std::string savedAt = "20260201090000";

/// A shop, and a folder of history files beside its database.
struct HistoryFilesTest : public ::testing::Test
{
    HistoryFilesTest() : db(shop.databaseFolder())
    {
        db.ShowErrors(false);
        EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
    }

    [[nodiscard]] std::string pathOf(const std::string& file) const
    {
        return shop.databaseFolder() + "/" + file;
    }
    [[nodiscard]] bool has(const std::string& file) const
    {
        return QFile::exists(QString::fromStdString(pathOf(file)));
    }
    void write(const std::string& file, const std::string& bytes = "x") const
    {
        std::ofstream(pathOf(file)) << bytes;
    }
    [[nodiscard]] std::string read(const std::string& file) const
    {
        std::ifstream in(pathOf(file));
        return {std::istreambuf_iterator<char>(in), {}};
    }
    /// A history file with the mark of \a stamp, none for an empty one.
    void fileOf(const std::string& file, const std::string& stamp) const
    {
        ASSERT_EQ(AppDB::Create(pathOf(file)), DbStatus::Good);
        AppDB history(shop.databaseFolder());
        ASSERT_EQ(history.OpenForFilling(pathOf(file)), DbStatus::Good);
        ASSERT_EQ(history.FinishFilling(stamp.empty() ? 0 : historyMark(stamp)), DbStatus::Good);
    }
    [[nodiscard]] std::string sizeOf(const std::string& file) const
    {
        return std::to_string(read(file).size());
    }
    void list(const std::string& size, const std::string& stamp = savedAt,
              const std::string& extension = "hst") const
    {
        shop.execute("DELETE FROM RirekiTB");
        shop.add(rirekiTable, {"20260101", "20260131", extension, size, stamp});
    }
    [[nodiscard]] Listing listing() { return listingOf(db, pathOf("." + name + ".new"), pathOf(name)); }

    TempShop shop;
    AppDB db;
};

} // namespace

TEST(HistoryNames, sayThePeriod)
{
    const Period january{"20260101", "20260131"};
    EXPECT_EQ(historyFileName(january, u"hst"_s), QString::fromStdString(name));
    EXPECT_EQ(historyFilePattern(u"hst"_s), u"RRK*.hst"_s);
    EXPECT_EQ(periodOf(QString::fromStdString(name)), january);
    EXPECT_EQ(periodOf(u"RRK20260101-20260131(2).hst"_s), january);
    EXPECT_EQ(periodOf(u"RRK2026"_s), (Period{"2026", ""}));
    EXPECT_EQ(asideOf("/a/b.c/x.hst"), "/a/b.c/.x.hst.new");
    EXPECT_EQ(asideOf("x.hst"), ".x.hst.new");
}

TEST(HistoryMarks, countTheSecondsOfTheStamp)
{
    const std::pair<const char*, std::uint32_t> marks[] = {
        {"20000101000000", 0},
        {"20000101000001", 1},
        {"20000101010000", 3600},
        {"20000102000000", 86400},
        {"20010101000000", 31622400},
        {"20000101235959", 86399},
        {"20260201090000", 823251600},
        {"20260230090000", 0},
        {"20260201250000", 0},
        {"20260201", 0},
        {"", 0},
    };
    for (const auto& [stamp, mark] : marks)
        EXPECT_EQ(historyMark(stamp), mark) << stamp;
}

TEST_F(HistoryFilesTest, aFileGetsItsName_orTheNextOneThatIsFree)
{
    for (int turn = 1; turn <= 9; ++turn) {
        write("aside", std::to_string(turn));
        EXPECT_TRUE(giveName(pathOf("aside"), pathOf(name))) << turn;
        EXPECT_FALSE(has("aside"));
        const std::string given = turn == 1 ? name : "RRK20260101-20260131(" + std::to_string(turn) + ").hst";
        EXPECT_EQ(read(given), std::to_string(turn));
    }
    write("aside");
    EXPECT_FALSE(giveName(pathOf("aside"), pathOf(name))) << "nine files of one period are enough";
    EXPECT_TRUE(has("aside"));
    EXPECT_FALSE(giveName(pathOf("nothing"), pathOf("RRK20260201-20260228.hst")));
}

TEST_F(HistoryFilesTest, aFileInTheMaking_isGoneUnlessItIsKept)
{
    write("model", "empty");
    write("." + name + ".new", "of a program that was killed");
    {
        FileInTheMaking file(pathOf(name));
        EXPECT_EQ(file.path(), pathOf(name));
        EXPECT_EQ(file.aside(), pathOf("." + name + ".new"));
        file.copyFrom(pathOf("model"));
        EXPECT_EQ(read("." + name + ".new"), "empty");
        EXPECT_TRUE(file.isStored());
        write(name);
        EXPECT_FALSE(file.isStored()) << "somebody has taken its name";
    }
    EXPECT_FALSE(has("." + name + ".new"));
    {
        FileInTheMaking file(pathOf("other.hst"));
        EXPECT_FALSE(file.isStored()) << "there is none";
        EXPECT_THROW(file.copyFrom(pathOf("no model")), RunTimeError);
        file.copyFrom(pathOf("model"));
        file.keep();
    }
    EXPECT_TRUE(has(".other.hst.new"));
}

TEST_F(HistoryFilesTest, theFirstSavedPeriod_leavesARowForGood)
{
    EXPECT_EQ(findSentinel(db), SentinelRow::Missing);
    shop.add(rirekiTable, {"20260101", "20260131", "old", "8192", savedAt});
    EXPECT_EQ(findSentinel(db), SentinelRow::Missing) << "a period is no such row";
    ASSERT_EQ(addSentinel(db, "hst"), DbStatus::Good);
    db.Commit();
    EXPECT_EQ(shop.query("SELECT * FROM RirekiTB WHERE DateFrom = 'Trn'"),
              std::vector<std::string>{"Trn|Vik|hst|00000000|00000000000000"});
    EXPECT_EQ(findSentinel(db), SentinelRow::Found);
    EXPECT_EQ(sentinelExtension(db), "hst");
    EXPECT_NE(addSentinel(db, "new"), DbStatus::Good) << "there is one";
    db.Rollback();
    for (const char* other : {"DateFrom = 'x'", "DateTo = 'x'", "FileSize = '1'", "FileUpdate = '1'"}) {
        db.Execute(std::string("UPDATE RirekiTB SET ") + other + " WHERE DateFrom = 'Trn'");
        EXPECT_EQ(findSentinel(db), SentinelRow::Missing) << other;
        db.Rollback();
    }
    db.CloseFile();
    EXPECT_EQ(findSentinel(db), SentinelRow::Unreadable);
}

TEST_F(HistoryFilesTest, aFileFits_bySizeAndMark)
{
    fileOf("marked.hst", savedAt);
    fileOf("plain.hst", "");
    write("foreign.hst", "no database");
    RirekiRec rows(db, rirekiTable);
    const auto fit = [&](const std::string& file, const std::string& size, const std::string& stamp) {
        list(size, stamp);
        EXPECT_EQ(rows.Select({}), 1);
        return fitOf(rows, 1, pathOf(file));
    };
    const std::string size = sizeOf("marked.hst");
    EXPECT_EQ(fit("marked.hst", size, savedAt), FileFit::Fits);
    EXPECT_EQ(fit("marked.hst", size, "20260201090001"), FileFit::Differs);
    EXPECT_EQ(fit("marked.hst", size + "0", savedAt), FileFit::Differs);
    EXPECT_EQ(fit("plain.hst", sizeOf("plain.hst"), savedAt), FileFit::Fits) << "older files have no mark";
    EXPECT_EQ(fit("foreign.hst", "11", savedAt), FileFit::Unreadable);
    EXPECT_EQ(fit("nothing.hst", size, savedAt), FileFit::Unreadable);
}

TEST_F(HistoryFilesTest, aFileIsListed_bySizeMarkPeriodAndExtension)
{
    const std::string aside = "." + name + ".new";
    fileOf(aside, savedAt);
    EXPECT_EQ(listing(), Listing::NotListed);
    list(sizeOf(aside));
    EXPECT_EQ(listing(), Listing::Listed);
    list(sizeOf(aside), savedAt, "old");
    EXPECT_EQ(listing(), Listing::NotListed);
    list(sizeOf(aside), "20260201090001");
    EXPECT_EQ(listing(), Listing::NotListed);
    list("1");
    EXPECT_EQ(listing(), Listing::NotListed);
    for (const char* other : {"DateFrom", "DateTo"}) {
        list(sizeOf(aside));
        shop.execute(std::string("UPDATE RirekiTB SET ") + other + " = '20260115'");
        EXPECT_EQ(listing(), Listing::NotListed) << other;
    }
    ASSERT_TRUE(QFile::remove(QString::fromStdString(pathOf(aside))));
    fileOf(aside, "");
    list(sizeOf(aside), "");
    EXPECT_EQ(listing(), Listing::NotListed) << "without a mark it could be any";
    db.CloseFile();
    EXPECT_EQ(listing(), Listing::Unknown);
}

TEST_F(HistoryFilesTest, whatWasCutShort_isNamedOrRemoved_onceItCanBeKnown)
{
    const std::string aside = "." + name + ".new";
    AppIni ini;
    ini.setIniFolder(shop.base() + u"/Ini"_s);
    const auto settled = [&](const std::string& path) {
        EXPECT_TRUE(ini.setSaveInTheMaking(QString::fromStdString(path)));
        settleUnfinishedSave(db, ini);
        return ini.SaveInTheMaking().isEmpty();
    };
    EXPECT_TRUE(settled(pathOf(name))) << "it has its name";
    EXPECT_FALSE(settled(shop.databaseFolder() + "/out/" + name)) << "a stick that is out";
    fileOf(aside, savedAt);
    list(sizeOf(aside));
    EXPECT_TRUE(settled(pathOf(name)));
    EXPECT_TRUE(has(name));
    EXPECT_FALSE(has(aside));
    write(aside);
    EXPECT_TRUE(settled(pathOf(name)));
    EXPECT_FALSE(has(aside)) << "it was not listed";
    EXPECT_TRUE(has(name));
    write(aside);
    db.CloseFile();
    EXPECT_FALSE(settled(pathOf(name)));
    EXPECT_TRUE(has(aside)) << "nobody knows";
}

TEST_F(HistoryFilesTest, filesOfAFolderThatAreListed_getTheirNames_andNoOthers)
{
    fileOf("." + name + ".new", savedAt);
    list(sizeOf("." + name + ".new"));
    fileOf(".RRK20260201-20260228.hst.new", savedAt);
    fileOf("." + name + ".old", savedAt);
    nameListedFiles(db, QString::fromStdString(shop.databaseFolder()), u"old"_s);
    EXPECT_FALSE(has(name)) << "another extension";
    nameListedFiles(db, QString::fromStdString(shop.databaseFolder()), u"hst"_s);
    EXPECT_TRUE(has(name));
    EXPECT_FALSE(has("RRK20260201-20260228.hst"));
    EXPECT_TRUE(has(".RRK20260201-20260228.hst.new")) << "it may be somebody's";
}

} // namespace suisui::test
