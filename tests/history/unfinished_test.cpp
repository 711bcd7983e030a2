// What a save that was cut short leaves, and which files a load takes.
#include "history/UnfinishedSave.h"

#include "tests/history/FaultyDesk.h"

namespace suisui::test {

namespace {

const QString file = QStringLiteral("RRK20260101-20260131.hst");

/// A desk whose periods can be saved to a stick, and whose program is killed in the middle.
struct StickDesk : FaultyDesk
{
    [[nodiscard]] QString hidden() const
    {
        return folder() + QStringLiteral("/.") + file + QStringLiteral(".new");
    }
    [[nodiscard]] QString away() const { return shop->base() + QStringLiteral("/drawer"); }
    void pullOut() const { ASSERT_TRUE(QDir().rename(folder(), away())); }
    void plugIn() const { ASSERT_TRUE(QDir().rename(away(), folder())); }

    /// As a kill leaves it that comes after the commit and before the file has its name.
    void killBeforeTheName()
    {
        ASSERT_EQ(save(january), RirekiDB::Done);
        ASSERT_TRUE(QFile::rename(fileOf(january), hidden()));
        ASSERT_TRUE(ini.setSaveInTheMaking(fileOf(january)));
    }
    /// As a kill leaves it that comes before the commit.
    void killBeforeTheCommit()
    {
        ASSERT_EQ(save(january), RirekiDB::Done);
        ASSERT_TRUE(QFile::copy(fileOf(january), hidden()));
        ASSERT_EQ(load(january), RirekiDB::Done);
        ASSERT_TRUE(ini.setSaveInTheMaking(fileOf(january)));
    }
    void expectLoadRefused(const Place& place)
    {
        const Lines before = books();
        const std::string bytes = bytesOf(place.fullPath);
        prompts.places = {place};
        EXPECT_EQ(history.load(), RirekiDB::Cancelled);
        ASSERT_EQ(box.shown.size(), 1U);
        EXPECT_EQ(box.shown[0].title, QStringLiteral(" 履歴ファイル 管理不整合エラー"));
        EXPECT_TRUE(box.shown[0].text.contains(place.fileName));
        EXPECT_EQ(box.shown[0].icon, BoxIcon::Stop);
        box.shown.clear();
        EXPECT_EQ(books(), before);
        EXPECT_EQ(bytesOf(place.fullPath), bytes) << "the file is kept";
        EXPECT_FALSE(frame.waitVisible());
        EXPECT_FALSE(db.inUnit());
    }
    [[nodiscard]] Place placeOf(const QString& path) const
    {
        const QFileInfo info(path);
        return {info.path(), path, info.completeBaseName()};
    }
};

// Steps of the progress of a save.
constexpr int carried = 12;
constexpr int commitReturned = 13;

/// Lets something happen at a step of the progress.
class EventfulFrame final : public TestFrame
{
public:
    void setWaitProgress(int value) override
    {
        TestFrame::setWaitProgress(value);
        if (value == at && event)
            event();
    }
    int at = 0;
    std::function<void()> event;
};

/// January is to be saved, and at step \a at of its progress \a event comes in between.
struct DisturbedSave
{
    DisturbedSave(StickDesk& desk, int at, std::function<void()> event)
        : history(Services{desk.db, desk.ini, desk.clock, desk.box, frame}, desk.prompts,
                  desk.emptyDatabase())
    {
        frame.at = at;
        frame.event = std::move(event);
        history.setHistoryExt(QStringLiteral("hst"));
        desk.prompts.periods = {january};
        desk.prompts.places = {{desk.folder(), {}, file}};
    }

    EventfulFrame frame;
    RirekiDB history;
};

} // namespace

TEST(UnfinishedSave, fileThatIsListed_getsItsNameAtTheNextStart)
{
    StickDesk desk;
    const Lines movements = desk.movements();
    desk.killBeforeTheName();
    EXPECT_EQ(desk.files(), QStringList{QStringLiteral(".") + file + QStringLiteral(".new")});
    desk.history.settle();
    EXPECT_EQ(desk.files(), QStringList{file});
    EXPECT_TRUE(desk.ini.SaveInTheMaking().isEmpty());
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.movements(), movements);
}

TEST(UnfinishedSave, fileThatIsNotListed_isRemoved_byWhoeverStartsSavesOrLoads)
{
    const std::function<void(StickDesk&)> nexts[] = {
        [](StickDesk& desk) { desk.history.settle(); },
        [](StickDesk& desk) {
            desk.prompts.periods = {january};
            EXPECT_EQ(desk.history.save(), RirekiDB::Cancelled);
        },
        [](StickDesk& desk) { EXPECT_EQ(desk.history.load(), RirekiDB::Cancelled); },
    };
    for (const auto& next : nexts) {
        StickDesk desk;
        desk.killBeforeTheCommit();
        const Lines before = desk.books();
        next(desk);
        EXPECT_TRUE(desk.files().isEmpty());
        EXPECT_TRUE(desk.ini.SaveInTheMaking().isEmpty());
        EXPECT_EQ(desk.books(), before);
    }
}

TEST(UnfinishedSave, onAStickThatIsOut_waitsForIt)
{
    for (const bool listed : {true, false}) {
        StickDesk desk;
        listed ? desk.killBeforeTheName() : desk.killBeforeTheCommit();
        desk.pullOut();
        desk.history.settle();
        EXPECT_EQ(desk.ini.SaveInTheMaking(), desk.fileOf(january));
        desk.plugIn();
        desk.history.settle();
        EXPECT_EQ(desk.files(), listed ? QStringList{file} : QStringList{});
    }
}

TEST(UnfinishedSave, onAStickMountedElsewhere_getsItsNameWhereItsFolderIsShown)
{
    StickDesk desk;
    desk.killBeforeTheName();
    desk.pullOut();
    EXPECT_EQ(desk.history.load(), RirekiDB::Cancelled);
    const PlaceQuestion& question = desk.prompts.asked.back();
    ASSERT_TRUE(question.beforeListing);
    question.beforeListing(desk.away());
    EXPECT_EQ(QDir(desk.away()).entryList(QDir::Files | QDir::Hidden), QStringList{file});
    desk.prompts.places = {desk.placeOf(desk.away() + u'/' + file)};
    EXPECT_EQ(desk.history.load(), RirekiDB::Done);
    EXPECT_TRUE(desk.listed().empty());
}

TEST(UnfinishedSave, fileThatIsNotListed_getsNoName_whereItsFolderIsShown)
{
    StickDesk desk;
    desk.killBeforeTheCommit();
    nameListedFiles(desk.db, desk.folder(), QStringLiteral("hst"));
    EXPECT_FALSE(QFile::exists(desk.fileOf(january)));
    // Nor when the period was saved again meanwhile, to another folder.
    ASSERT_TRUE(QDir().rename(desk.folder(), desk.away()));
    ASSERT_TRUE(QDir().mkpath(desk.folder()));
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    nameListedFiles(desk.db, desk.away(), QStringLiteral("hst"));
    EXPECT_FALSE(QFile::exists(desk.away() + u'/' + file));
}

TEST(UnfinishedSave, whileTheListCannotBeRead_staysAsItIs)
{
    StickDesk desk;
    desk.killBeforeTheName();
    {
        Sqlite locked;
        ASSERT_EQ(locked.open(desk.shop->databaseFile()), 0);
        ASSERT_EQ(locked.execute("BEGIN EXCLUSIVE"), 0);
        desk.history.settle();
    }
    EXPECT_TRUE(QFile::exists(desk.hidden()));
    EXPECT_EQ(desk.ini.SaveInTheMaking(), desk.fileOf(january));
}

TEST(Save, toAStickPulledOutAfterTheCommit_isComplete_andSaysWhatToDo)
{
    StickDesk desk;
    const Lines movements = desk.movements();
    DisturbedSave disturbed(desk, commitReturned, [&desk] { desk.pullOut(); });
    RirekiDB& history = disturbed.history;
    EXPECT_EQ(history.save(), RirekiDB::Done);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, QStringLiteral(" 履歴ファイルの確認"));
    EXPECT_TRUE(desk.box.shown[0].text.startsWith(desk.fileOf(january)));
    EXPECT_EQ(desk.listed().size(), 1U);
    desk.plugIn();
    history.settle();
    EXPECT_EQ(desk.files(), QStringList{file});
    desk.clock.letPass(std::chrono::seconds(1));
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.movements(), movements);
}

TEST(Save, toAStickPulledOutBeforeTheCommit_fails_andLeavesNothing)
{
    StickDesk desk;
    DisturbedSave disturbed(desk, carried, [&desk] { desk.pullOut(); });
    RirekiDB& history = disturbed.history;
    const Lines before = desk.books();
    EXPECT_EQ(history.save(), RirekiDB::Failed);
    EXPECT_EQ(desk.books(), before);
    desk.plugIn();
    EXPECT_EQ(desk.files().size(), 1);
    history.settle();
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(Save, nameThatIsTakenInTheLastMoment_givesWay)
{
    StickDesk desk;
    DisturbedSave disturbed(desk, commitReturned,
                            [&desk] { write(desk.fileOf(january), "somebody else's"); });
    RirekiDB& history = disturbed.history;
    EXPECT_EQ(history.save(), RirekiDB::Done);
    EXPECT_EQ(bytesOf(desk.fileOf(january)), "somebody else's");
    const QString other = desk.folder() + QStringLiteral("/RRK20260101-20260131(2).hst");
    desk.clock.letPass(std::chrono::seconds(1));
    desk.prompts.places = {desk.placeOf(other)};
    EXPECT_EQ(desk.history.load(), RirekiDB::Done);
}

TEST(Load, ofAnOlderFileOfTheSamePeriod_isRefused_soThatCorrectionsStay)
{
    StickDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    const QString orphan = desk.shop->base() + u'/' + file;
    ASSERT_TRUE(QFile::copy(desk.fileOf(january), orphan));
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    desk.shop->execute("UPDATE InpTB SET NyuSuu='0000077' WHERE InpDate='20260101090000'");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(QFileInfo(orphan).size(), QFileInfo(desk.fileOf(january)).size())
        << "the size does not tell them apart";
    desk.expectLoadRefused(desk.placeOf(orphan));
    ASSERT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.shop->query("SELECT NyuSuu FROM InpTB WHERE InpDate='20260101090000'"), Lines{"0000077"});
}

TEST(Load, ofACopyOfTheFile_isTaken_whateverItsDate)
{
    StickDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    const QString copy = desk.shop->base() + u'/' + file;
    write(copy, bytesOf(desk.fileOf(january)));
    desk.prompts.places = {desk.placeOf(copy)};
    EXPECT_EQ(desk.history.load(), RirekiDB::Done);
    EXPECT_FALSE(QFile::exists(copy));
}

TEST(Load, ofAnotherFile_orADamagedOne_isRefused_andTheFileKept)
{
    const TempShop foreign;
    const std::string foreignBytes = bytesOf(QString::fromStdString(foreign.databaseFile()));
    const std::function<std::string(const std::string&)> spoil[] = {
        [](const std::string&) { return std::string(); },
        [](const std::string&) { return std::string("text"); },
        [](const std::string& whole) { return whole.substr(0, whole.size() / 2); },
        [](const std::string& whole) { return whole.substr(0, whole.size() - 100); },
        [](const std::string& whole) { return whole + "x"; },
        [](const std::string& whole) {
            return whole.substr(0, 100) + std::string(whole.size() - 100, '\xAA');
        },
        [&foreignBytes](const std::string&) { return foreignBytes + std::string(4096, '\0'); },
    };
    for (const auto& change : spoil) {
        StickDesk desk;
        ASSERT_EQ(desk.save(january), RirekiDB::Done);
        write(desk.fileOf(january), change(bytesOf(desk.fileOf(january))));
        desk.expectLoadRefused(desk.placeOf(desk.fileOf(january)));
    }
}

TEST(Load, ofAFileWithADamagedPage_isRefused_andTheFileKept)
{
    StickDesk desk;
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), std::string(300, 'x'));
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    std::string bytes = bytesOf(desk.fileOf(january));
    const std::size_t page = bytes.find(std::string(300, 'x')) / 4096 * 4096;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page), 4096, '\xAA');
    write(desk.fileOf(january), bytes);
    desk.expectLoadRefused(desk.placeOf(desk.fileOf(january)));
}

} // namespace suisui::test
