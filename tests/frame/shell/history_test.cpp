// The history from the main window: its buttons, the reader, and the tabs afterwards.
#include <QDir>
#include <QPushButton>

#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

struct HistoryWindow : MainWindowDesk
{
    HistoryWindow()
    {
        fillShop();
        QDir(shop.base()).mkpath(u"db"_s);
        EXPECT_EQ(AppDB::Create((shop.base() + u"/db/trnorg.mdb"_s).toStdString()), DbStatus::Good);
        ini.setIniFolder(shop.base() + u"/Ini"_s);
        ini.setLastHistoryFolder(shop.base());
        shop.add(rirekiTable, {"Trn", "Vik", "hst", "00000000", "00000000000000"});
    }
};

} // namespace

TEST(HistoryOnTheWindow, aSaveReadsAllTabsAnew_andShowsTheFirst)
{
    HistoryWindow desk;
    frmMain& window = desk.open();
    window.GoodsCodeSet(u"4901001000017"_s);
    ASSERT_EQ(desk.grid(Tab::Receipt).MaxRows(), 1);
    window.showTab(Tab::Stock);
    for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab)
        window.setTabLoaded(static_cast<Tab>(tab), true);

    desk.scans = {u"[P]"_s, u"[P]"_s}; // the month from today on, into the folder of last time
    desk.box.answers = {BoxAnswer::Yes};
    window.MainBarEtc(u"Q"_s);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[1].title, u"保存の完了"_s);
    EXPECT_EQ(window.currentTab(), Tab::Receipt);
    EXPECT_EQ(desk.grid(Tab::Receipt).MaxRows(), 0);
    EXPECT_TRUE(window.TabLoaded(Tab::Receipt));
    for (const Tab tab : {Tab::Shipment, Tab::Stock, Tab::ReceiptList, Tab::ShipmentList})
        EXPECT_FALSE(window.TabLoaded(tab));
    EXPECT_TRUE(window.formEnabled());
    EXPECT_FALSE(desk.wait.isVisible());
    EXPECT_EQ(window.focusWidget(), &desk.control<QPushButton>(u"cmdRirekiOut"_s));
    EXPECT_EQ(desk.shop.query("SELECT COUNT(*) FROM InpTB"), std::vector<std::string>{"0"});
}

TEST(HistoryOnTheWindow, editsThatAreKept_leaveTheTabReadyForScans)
{
    HistoryWindow desk;
    frmMain& window = desk.open();
    for (const auto& [code, button] :
         {std::pair(u"Q"_s, u"cmdRirekiOut"_s), std::pair(u"S"_s, u"cmdRirekiIn"_s)}) {
        desk.leaveAnEdit();
        desk.box.shown.clear();
        desk.box.answers = {BoxAnswer::Cancel};
        window.MainBarEtc(code);
        ASSERT_EQ(desk.box.shown.size(), 1U);
        EXPECT_EQ(desk.box.shown[0].buttons, BoxButtons::YesNoCancel);
        EXPECT_TRUE(window.dirty(Side::Receipt));
        EXPECT_TRUE(window.formEnabled());
        EXPECT_TRUE(desk.field(Tab::Receipt).isEnabled());
        EXPECT_EQ(window.focusWidget(), &desk.control<QPushButton>(button));
    }
}

TEST(HistoryOnTheWindow, windowTakesNoInput_whileAPeriodMoves)
{
    HistoryWindow desk;
    frmMain& window = desk.open();
    window.GoodsCodeSet(u"4901001000017"_s);
    desk.scans = {u"[P]"_s, u"[P]"_s};
    bool disabledWhileWaiting = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        disabledWhileWaiting = disabledWhileWaiting || (desk.wait.isVisible() && !window.formEnabled());
    });
    look.start(0);
    desk.box.answers = {BoxAnswer::Yes};
    window.MainBarEtc(u"Q"_s);
    EXPECT_TRUE(disabledWhileWaiting);
    EXPECT_EQ(desk.box.shown.back().title, u"保存の完了"_s);
}

} // namespace suisui::test
