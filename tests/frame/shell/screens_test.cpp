// Every form of the program, for those who hear it, who have no mouse, or who have a small screen. Run at the
// screen's own size and at twice that.
#include <map>

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>
#include <QWheelEvent>

#include "frame/shell/Application.h"
#include "frame/shell/frm_End.h"
#include "history/frmRirekiFileExt.h"
#include "history/frmRirekiFromTo.h"
#include "history/frm_DirFile.h"
#include "lists/frmPriCheck_List.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/ScreenMsgBox.h"
#include "store/AppEnv.h"
#include "tests/barcode/label/LabelDesk.h"
#include "tests/history/DialogDesk.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/FormWalk.h"
#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

// What a window manager leaves of a screen for a window that fills it.
constexpr QSize rooms[] = {{1280 - 12, 800 - 40}, {1024 - 12, 768 - 40}};

void activate(QWidget& form)
{
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

void expectGoodForm(QWidget& form)
{
    expectNames(form);
    expectOwnLetters(form);
    expectNothingCut(form);
}

void expectGoodDialog(QDialog& dialog)
{
    activate(dialog);
    expectGoodForm(dialog);
    expectTabOrder(dialog);
    for (const QSize& room : rooms) {
        EXPECT_LE(dialog.width(), room.width());
        EXPECT_LE(dialog.height(), room.height());
    }
}

struct MainWindowForms : ::testing::Test
{
    MainWindowForms()
    {
        desk.fillShop();
        desk.partner("301", "株式会社 とても長い名前の卸売センター 北関東第二営業所", "1", "1");
        desk.open();
    }
    template <typename Look> void onEveryTab(Look look)
    {
        for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab) {
            SCOPED_TRACE("tab " + std::to_string(tab));
            desk.window->showTab(static_cast<Tab>(tab));
            QCoreApplication::processEvents();
            look(static_cast<Tab>(tab));
        }
    }
    MainWindowDesk desk;
};

} // namespace

TEST_F(MainWindowForms, haveANameForEveryControl_andNoTwoAnswerToTheSameLetter)
{
    onEveryTab([this](Tab) {
        expectNames(*desk.window);
        expectOwnLetters(*desk.window);
    });
}

TEST_F(MainWindowForms, areWalkedByTabAsTheyAreRead)
{
    onEveryTab([this](Tab) { expectTabOrder(*desk.window); });
}

TEST_F(MainWindowForms, areWalkedByTabWhenTheGridsAreFilled)
{
    desk.leaveAnEdit();
    desk.window->GoodsCodeSet(u"4901001000017"_s);
    onEveryTab([this](Tab) { expectTabOrder(*desk.window); });
}

TEST_F(MainWindowForms, fitOnASmallScreenWithNothingCut)
{
    for (const QSize& room : rooms) {
        SCOPED_TRACE("in " + std::to_string(room.width()) + " x " + std::to_string(room.height()));
        desk.window->resize(room);
        onEveryTab([&](Tab) {
            EXPECT_EQ(desk.window->size(), room) << "the window asks for more";
            expectNothingCut(*desk.window);
        });
    }
}

TEST_F(MainWindowForms, showTheLargestFiguresInFull)
{
    // What a column may have to show: what can be typed there, and sums of it.
    const std::map<QString, std::string_view> largest{
        {u"コード"_s, "ABCDEFGHIJKLMNOP"}, {u"単価"_s, "-99999999"},      {u"入荷単価"_s, "99,999,999"},
        {u"出荷単価"_s, "99,999,999"},     {u"数量"_s, "-9999999"},       {u"値引き"_s, "-99999999"},
        {u"合計"_s, "-99,999,999,999"},    {u"在庫数"_s, "-9,999,999"},   {u"返品"_s, "-9999999"},
        {u"良品返品"_s, "-9999999"},       {u"不良品返品"_s, "-9999999"}, {u"返却数"_s, "9,999,999"},
        {u"日付"_s, "2026/12/31"},         {u"時間"_s, "23:59:59"},       {u"入荷日"_s, "2026/12/31"},
        {u"出荷日"_s, "2026/12/31"},       {u"担当者"_s, "山田　太郎"},   {u"最低在庫"_s, "9,999,999"},
    };
    onEveryTab([&](Tab tab) {
        vaSpread& grid = desk.grid(tab);
        grid.setMaxRows(1);
        int looked = 0;
        for (int column = 1; column <= grid.MaxCols(); ++column) {
            const auto figure = largest.find(grid.qtext(column, 0));
            if (figure == largest.end() || grid.isColumnHidden(column - 1))
                continue;
            ++looked;
            grid.SetText(column, 1, figure->second);
            grid.setCellBold(column, 1, true); // as negative ones are
            EXPECT_LE(grid.sizeHintForIndex(grid.model()->index(0, column - 1)).width(),
                      grid.columnWidth(column - 1))
                << figure->first.toStdString();
        }
        EXPECT_GE(looked, 7);
    });
}

TEST_F(MainWindowForms, tellACellsEditorByItsHeading)
{
    desk.window->GoodsCodeSet(u"4901001000017"_s);
    vaSpread& grid = desk.grid(Tab::Receipt);
    const int quantity = movementSide(Side::Receipt).cells.quantity;
    grid.setFocus();
    grid.SetActiveCell(quantity, 1);
    grid.QAbstractItemView::edit(grid.currentIndex());
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->accessibleName(), grid.qtext(quantity, 0));
    EXPECT_GE(editor->height(), editor->fontMetrics().height());
}

TEST_F(MainWindowForms, theWheelChangesNoTabAndNoChoice)
{
    desk.partner("302", "別の店", "1", "1");
    desk.open();
    const auto turn = [](QWidget& at) {
        for (const int angle : {-120, 120, -120, -120}) {
            const QPointF centre = QRectF(at.rect()).center();
            QWheelEvent wheel(centre, at.mapToGlobal(centre), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&at, &wheel);
        }
    };
    onEveryTab([&](Tab tab) {
        for (QComboBox* combo : desk.window->findChildren<QComboBox*>()) {
            if (!combo->isVisible())
                continue;
            ASSERT_GT(combo->count(), 1);
            combo->setFocus();
            const int chosen = combo->currentIndex();
            turn(*combo);
            EXPECT_EQ(combo->currentIndex(), chosen) << combo->objectName().toStdString();
        }
        turn(*desk.window->findChild<QTabBar*>());
        EXPECT_EQ(desk.window->currentTab(), tab);
    });
}

TEST_F(MainWindowForms, theWheelScrollsAnOpenList)
{
    for (int i = 0; i < 60; ++i)
        desk.partner("4" + std::to_string(100 + i), "店" + std::to_string(i), "1", "1");
    desk.open();
    auto& partners = desk.control<QComboBox>(u"cmbNSaki"_s);
    partners.showPopup();
    QAbstractItemView& list = *partners.view();
    list.verticalScrollBar()->setValue(0);
    const QPointF centre = QRectF(list.viewport()->rect()).center();
    QWheelEvent wheel(centre, list.viewport()->mapToGlobal(centre), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(list.viewport(), &wheel);
    EXPECT_GT(list.verticalScrollBar()->value(), 0);
    partners.hidePopup();
}

TEST(RunTimeReport, isJapaneseThroughout)
{
    const RunTimeError::Number numbers[] = {
        RunTimeError::InvalidCall,       RunTimeError::Overflow,
        RunTimeError::OutOfMemory,       RunTimeError::SubscriptOutOfRange,
        RunTimeError::TypeMismatch,      RunTimeError::InternalError,
        RunTimeError::DeviceNotReady,    RunTimeError::FileNotFound,
        RunTimeError::FileAlreadyExists, RunTimeError::DiskFull,
        RunTimeError::PermissionDenied,  RunTimeError::PathAccessError,
        RunTimeError::PathNotFound,      RunTimeError::InvalidPropertyValue,
        RunTimeError::InvalidPortNumber, RunTimeError::PortAlreadyOpen,
        RunTimeError::DeviceError,       RunTimeError::PortNotOpen};
    const QRegularExpression latin(u"[A-Za-z]"_s);
    const auto expectJapanese = [&latin](const std::exception& error, int number) {
        const QString words = Application::describe(error);
        EXPECT_TRUE(words.startsWith(u"%1 : "_s.arg(number))) << words.toStdString();
        EXPECT_TRUE(words.endsWith(u"。"_s)) << words.toStdString();
        EXPECT_FALSE(words.contains(latin)) << words.toStdString();
    };
    for (const RunTimeError::Number number : numbers)
        expectJapanese(RunTimeError(number, "in English"), number);
    expectJapanese(std::bad_alloc(), RunTimeError::OutOfMemory);
    expectJapanese(std::out_of_range("in English"), RunTimeError::InternalError);
}

TEST(Windows, haveThePictureOfTheProgram)
{
    for (const int size : {16, 32, 128}) {
        const QImage picture = QApplication::windowIcon().pixmap(size, size).toImage();
        ASSERT_EQ(picture.width(), static_cast<int>(size * picture.devicePixelRatio()));
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 255);
    }
}

TEST(WaitWindows, showTheirTextsInFull)
{
    frm_ShortWait shortWait;
    shortWait.load();
    expectGoodForm(shortWait);
    shortWait.unload();
    frm_Wait wait;
    wait.load(u"入荷検索"_s, 100);
    expectGoodForm(wait);
    wait.unload();
}

TEST(EndDialog, canBeUsedByKeysAndByEar)
{
    frm_End dialog([] { return QString(); }, nullptr);
    expectGoodDialog(dialog);
}

TEST(ReportDialogs, canBeUsedByKeysAndByEar)
{
    ReportDesk desk;
    AppIni ini;
    TestClock clock;
    ScriptedMsgBox box;
    const ListPrinting printing{ini, clock, box, desk.printer, desk.folder.path(), [] { return QString(); }};
    for (const ReportTemplate* report : reports) {
        const auto grid = filledGrid(*report, 400);
        frmPriCheck_List dialog(
            *report, *grid, [] { return sampleHead(); }, printing, nullptr);
        expectGoodDialog(dialog);
    }
}

TEST(HistoryDialogs, canBeUsedByKeysAndByEar)
{
    DialogDesk desk;
    for (const char* period : {"202601", "202602", "202603"})
        desk.listPeriod(std::string(period) + "01", std::string(period) + "28");
    frmRirekiFileExt extension(desk.box, desk.readLine, nullptr);
    expectGoodDialog(extension);
    frmRirekiFromTo period(desk.db, desk.clock, desk.box, desk.readLine, nullptr);
    expectGoodDialog(period);
    const AppEnv env(desk.shop->base());
    for (const bool saveMode : {true, false}) {
        SCOPED_TRACE(saveMode ? "save" : "load");
        PlaceQuestion question;
        question.saveMode = saveMode;
        question.caption = u"履歴を保存する 「フォルダ」 を 指定して下さい。"_s;
        question.pattern = historyFilePattern(u"hst"_s);
        question.fileName = saveMode ? u"RRK20260401-20260430.hst"_s : QString();
        frm_DirFile place(question, desk.ini, env, desk.box, desk.readLine, nullptr);
        expectGoodDialog(place);
    }
}

TEST(LabelDialog, canBeUsedByEarOnEverySheet)
{
    LabelDialogDesk desk;
    frm_PriCheck& dialog = desk.open();
    activate(dialog);
    for (const QSize& room : rooms) {
        SCOPED_TRACE("in " + std::to_string(room.width()) + " x " + std::to_string(room.height()));
        for (int sheet = 0; sheet < 5; ++sheet) {
            SCOPED_TRACE("sheet " + std::to_string(sheet));
            desk.sheet(sheet);
            dialog.resize(room);
            QCoreApplication::processEvents();
            EXPECT_EQ(dialog.size(), room) << "the dialog asks for more";
            expectGoodForm(dialog);
            expectEachStopOnce(dialog);
        }
    }
}

TEST(Boxes, showTheirTextsInFull_andEachButtonHasALetterOfItsOwn)
{
    const Box boxes[] = {
        {u"商品 未登録エラー"_s, u"コードが 登録されていません。　　　\r\n\r\n　　4901001000017"_s,
         BoxIcon::Stop},
        {u"日付エラー"_s, u"正しい 「日付」 を入力して下さい。"_s, BoxIcon::Question, BoxButtons::YesNo},
        {u"すいすいＴＡＧ"_s,
         u"　　「 入荷 」が変更されています。\r\n\r\n　　　更新を行いますか？　　　（ 戻る ： キャンセル ）　　"_s,
         BoxIcon::Exclamation, BoxButtons::YesNoCancel},
        {u"フォルダの準備エラー"_s, u"/とても長い名前のフォルダ"_s.repeated(5) + u"\r\n\r\n準備した後に"_s,
         BoxIcon::Information},
    };
    for (const Box& box : boxes) {
        ScreenMsgBox msgBox;
        bool looked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            looked = true;
            expectGoodDialog(*dialog);
            dialog->reject();
        });
        (void)msgBox.show(box);
        EXPECT_TRUE(looked);
    }
}

} // namespace suisui::test

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const suisui::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
