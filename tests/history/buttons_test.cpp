// What the operator meets when pressing 履歴の保存 and 履歴の読込.
#include <gtest/gtest.h>

#include <QPushButton>

#include "history/RirekiButtons.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/HeldFile.h"
#include "tests/support/HistoryDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

const Period january{"20260101", "20260131"};
const std::string sentinel = "Trn|Vik|hst|00000000|00000000000000";

struct ButtonDesk : HistoryDesk
{
    ButtonDesk()
    {
        db.Execute("DELETE FROM RirekiTB"); // nothing was ever saved
        db.Commit();
        history.setHistoryExt({});
        stock("A", "11", "0");
        receipt("A", "0000010", "20260101", "20260101090000");
        shipment("A", "0000004", "20260115", "20260115090000");
        receipt("A", "0000002", "20260301", "20260301090000");
        out.setObjectName(u"out"_s);
        window.show();
    }

    /// Answers as they come to save January.
    void answerSave()
    {
        prompts.periods = {january};
        prompts.places = {{folder(), {}, historyFileName(january, u"hst"_s)}};
    }
    void answerLoad()
    {
        const QString name = u"RRK20260101-20260131"_s;
        prompts.places = {{folder(), folder() + u'/' + name + u".hst"_s, name}};
    }
    void save()
    {
        prompts.extensions = {u"hst"_s};
        answerSave();
        buttons.cmdRirekiOut_Click();
        ASSERT_EQ(box.shown.size(), 1U);
        ASSERT_EQ(box.shown[0].title, u"保存の完了"_s);
        box.shown.clear();
        clock.letPass(std::chrono::seconds(1));
    }
    /// The last of the boxes that were shown.
    void expectLastBox(const Box& wanted) const
    {
        ASSERT_FALSE(box.shown.empty());
        expectBox(box.shown.back(), wanted);
    }
    [[nodiscard]] bool focused(const QWidget& button) const { return window.focusWidget() == &button; }

    QWidget window;
    QPushButton out{&window};
    QPushButton in{&window};
    int tabsRead = 0;
    RirekiButtons buttons{Services{db, ini, clock, box, frame}, prompts, history,
                          RirekiButtons::Controls{out, in, [this] { ++tabsRead; }}};
};

Box savedBox(const QString& from, const QString& to)
{
    QString text =
        u"「 履歴の保存 」 が 完了しました。\r\n\r\n　（ 履歴ファイル ： \r\n　　 RRK {DateFrom}-{DateTo} . {KakuTyo} ）　　　"_s;
    text.replace(u"{DateFrom}"_s, from).replace(u"{DateTo}"_s, to).replace(u"{KakuTyo}"_s, u"hst"_s);
    return {u"保存の完了"_s, text, BoxIcon::Information};
}

/// Another program that lets nobody read either, as for the moment of its commit.
class LockedFile
{
public:
    explicit LockedFile(const TempShop& shop)
    {
        if (m_engine.open(shop.databaseFile()) != 0 || m_engine.execute("BEGIN EXCLUSIVE") != 0)
            throw std::runtime_error("cannot lock " + shop.databaseFile());
    }

private:
    Sqlite m_engine;
};

void expectHeldByAnother(const std::vector<std::string>& said)
{
    ASSERT_EQ(said.size(), 1U);
    EXPECT_NE(said[0].find("他のプログラムが データベースを使用中です。"), std::string::npos) << said[0];
}

const QString saveFailed =
    u"「 履歴の保存 」 に 失敗しました。　　　　　\r\n\r\n　　　再度、実行して下さい。"_s;
const QString loadFailed =
    u"「 履歴の読込 」 に 失敗しました。　　　　　\r\n\r\n　　　再度、実行して下さい。"_s;

} // namespace

TEST(SaveButton, firstTime_asksForTheExtension_andSaysWhenDone)
{
    ButtonDesk desk;
    desk.prompts.extensions = {u"hst"_s};
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    desk.expectLastBox(savedBox(u"20260101"_s, u"20260131"_s));
    const Lines listed = desk.rows("RirekiTB");
    ASSERT_EQ(listed.size(), 2U);
    EXPECT_EQ(listed[1], sentinel);
    EXPECT_EQ(desk.frame.loaded, (std::array<bool, 5>{}));
    EXPECT_EQ(desk.tabsRead, 1);
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.out));
}

TEST(SaveButton, secondTime_asksForNoExtension)
{
    ButtonDesk desk;
    desk.save();
    desk.prompts.periods = {{"20260301", "20260331"}};
    desk.prompts.places = {{desk.folder(), {}, u"RRK20260301-20260331.hst"_s}};
    desk.buttons.cmdRirekiOut_Click();
    desk.expectLastBox(savedBox(u"20260301"_s, u"20260331"_s));
    EXPECT_EQ(desk.rows("RirekiTB").size(), 3U);
    EXPECT_EQ(desk.prompts.asked.back().pattern, u"RRK*.hst"_s);
}

TEST(SaveButton, unsavedEditsThatAreKept_stopIt)
{
    ButtonDesk desk;
    desk.frame.guardAnswer = BoxAnswer::Cancel;
    desk.prompts.extensions = {u"hst"_s};
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    EXPECT_EQ(desk.prompts.extensions.size(), 1U);
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.out));
    desk.buttons.cmdRirekiIn_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.focused(desk.in));
}

TEST(SaveButton, withoutAnExtension_doesNothing)
{
    ButtonDesk desk;
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_EQ(desk.prompts.periods.size(), 1U);
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.out));
}

TEST(SaveButton, cancelledAfterTheExtension_leavesItPending_forTheNextCommit)
{
    ButtonDesk desk;
    desk.prompts.extensions = {u"hst"_s};
    desk.buttons.cmdRirekiOut_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.rows("RirekiTB").empty());
    EXPECT_TRUE(desk.db.inUnit());
    EXPECT_TRUE(desk.focused(desk.out));
    desk.db.Commit();
    EXPECT_EQ(desk.rows("RirekiTB"), Lines{sentinel});
}

TEST(SaveButton, extensionThatIsPending_goesWithTheNextRollback)
{
    ButtonDesk desk;
    desk.prompts.extensions = {u"hst"_s};
    desk.buttons.cmdRirekiOut_Click();
    desk.db.Rollback();
    EXPECT_TRUE(desk.rows("RirekiTB").empty());
    desk.prompts.extensions = {u"old"_s};
    desk.prompts.periods = {january};
    desk.buttons.cmdRirekiOut_Click();
    EXPECT_EQ(desk.prompts.asked.back().pattern, u"RRK*.old"_s);
}

TEST(SaveButton, failedSave_isReported_andUndone_withTheExtension)
{
    ButtonDesk desk;
    desk.receipt("A", "0000001", "20260120", "20260120090000", "it's");
    desk.prompts.extensions = {u"hst"_s};
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    desk.expectLastBox({u"保存の失敗"_s, saveFailed, BoxIcon::Stop});
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_TRUE(desk.rows("RirekiTB").empty());
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"3"});
    EXPECT_EQ(desk.tabsRead, 0);
    EXPECT_EQ(desk.frame.loaded, (std::array<bool, 5>{true, true, true, true, true}));
    EXPECT_TRUE(desk.focused(desk.out));
}

TEST(SaveButton, refusalOfTheFileSystem_showsTheReport_andThenTheCompletion)
{
    ButtonDesk desk;
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    desk.prompts.extensions = {u"hst"_s};
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u" 履歴の保存 エラー"_s);
    EXPECT_EQ(desk.box.shown[1].title, u"保存の完了"_s);
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"2"});
    EXPECT_EQ(desk.tabsRead, 1);
}

TEST(SaveButton, listThatCannotBeRead_stopsIt_withoutAskingTwice)
{
    ButtonDesk desk;
    desk.save();
    desk.prompts.extensions = {u"other"_s};
    desk.answerSave();
    {
        const LockedFile locked(*desk.shop);
        desk.buttons.cmdRirekiOut_Click();
        desk.buttons.cmdRirekiIn_Click();
    }
    EXPECT_EQ(desk.prompts.extensions.size(), 1U) << "nobody was asked";
    EXPECT_EQ(desk.prompts.periods.size(), 1U);
    EXPECT_TRUE(desk.box.shown.empty());
    ASSERT_EQ(desk.storeSaid.size(), 2U);
    expectHeldByAnother({desk.storeSaid[0]});
    expectHeldByAnother({desk.storeSaid[1]});
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.in));
}

TEST(SaveButton, extensionThatCannotBeStored_stopsIt)
{
    ButtonDesk desk;
    desk.prompts.extensions = {u"hst"_s};
    desk.answerSave();
    {
        const HeldFile held(*desk.shop);
        desk.buttons.cmdRirekiOut_Click();
    }
    EXPECT_EQ(desk.prompts.periods.size(), 1U) << "nothing was asked after it";
    EXPECT_TRUE(desk.box.shown.empty());
    expectHeldByAnother(desk.storeSaid);
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.out));
}

TEST(SaveButton, savedAgain_afterALoad)
{
    ButtonDesk desk;
    desk.save();
    desk.answerLoad();
    desk.buttons.cmdRirekiIn_Click();
    desk.box.shown.clear();
    desk.clock.letPass(std::chrono::seconds(1));
    desk.prompts.extensions = {u"never asked for"_s};
    desk.answerSave();
    desk.buttons.cmdRirekiOut_Click();
    EXPECT_EQ(desk.box.shown.back().title, u"保存の完了"_s);
    EXPECT_EQ(desk.prompts.extensions.size(), 1U);
}

TEST(LoadButton, withNothingSaved_saysSo)
{
    // An empty list, and one with the extension alone.
    for (const bool extension : {false, true}) {
        ButtonDesk desk;
        if (extension)
            desk.useExtension("hst");
        desk.answerLoad();
        desk.buttons.cmdRirekiIn_Click();
        ASSERT_EQ(desk.box.shown.size(), 1U);
        desk.expectLastBox(
            {u" 履歴の未保存"_s,
             u"履歴が保存されていません。\r\n\r\n　　「履歴の保存」 を 行った後に\r\n　  「履歴の読込」 を 実行して下さい。　　　"_s,
             BoxIcon::Stop});
        EXPECT_TRUE(desk.prompts.asked.empty());
        EXPECT_TRUE(desk.frame.enabled);
        EXPECT_TRUE(desk.focused(desk.in));
    }
}

TEST(LoadButton, withPeriodsButNoExtension_saysThatNothingWasSaved)
{
    ButtonDesk desk;
    desk.shop->add(rirekiTable, {"20260101", "20260131", "hst", "1", "20260301000000"});
    desk.shop->add(rirekiTable, {"20260201", "20260228", "hst", "1", "20260301000000"});
    desk.buttons.cmdRirekiIn_Click();
    EXPECT_EQ(desk.box.shown.at(0).title, u" 履歴の未保存"_s);
}

TEST(LoadButton, saysWhenDone_andLeavesTheExtensionAlone)
{
    ButtonDesk desk;
    const Lines movements = desk.movements();
    desk.save();
    desk.frame.loaded = {true, true, true, true, true};
    desk.answerLoad();
    desk.buttons.cmdRirekiIn_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    desk.expectLastBox(
        {u"読込の完了"_s, u"「 履歴の読込 」 が 完了しました。　　　"_s, BoxIcon::Information});
    EXPECT_EQ(desk.rows("RirekiTB"), Lines{sentinel});
    EXPECT_EQ(desk.movements(), movements);
    EXPECT_EQ(desk.frame.loaded, (std::array<bool, 5>{}));
    EXPECT_EQ(desk.tabsRead, 2);
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.in));
    // The only period is back, so there is nothing to load.
    desk.box.shown.clear();
    desk.buttons.cmdRirekiIn_Click();
    EXPECT_EQ(desk.box.shown.at(0).title, u" 履歴の未保存"_s);
}

TEST(LoadButton, failedLoad_isReported_andKeepsTheFile)
{
    ButtonDesk desk;
    desk.save();
    ASSERT_TRUE(QFile::remove(desk.fileOf(january)));
    desk.answerLoad();
    desk.buttons.cmdRirekiIn_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    desk.expectLastBox({u"読込の失敗"_s, loadFailed, BoxIcon::Stop});
    EXPECT_EQ(desk.rows("RirekiTB").size(), 2U) << "the period stays listed";
    EXPECT_EQ(desk.tabsRead, 1);
    EXPECT_TRUE(desk.focused(desk.in));
}

TEST(LoadButton, cancelled_saysNothing)
{
    ButtonDesk desk;
    desk.save();
    desk.buttons.cmdRirekiIn_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_TRUE(desk.focused(desk.in));
}

} // namespace suisui::test
