// The search of both lists: conditions, questions, wait window, the code field, what a search leaves alone.
#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/lists/ListDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ListSearch : public testing::TestWithParam<Side>
{
protected:
    ListDesk desk{GetParam()};

    /// Codes of the movements in the list, in order.
    [[nodiscard]] std::string codes() const
    {
        std::string all;
        for (int row = 1; row <= desk.grid().MaxRows(); ++row)
            if (!desk.cell(8, row).empty())
                all += desk.cell(8, row) + " ";
        return all;
    }
    [[nodiscard]] std::string headings() const
    {
        std::string all;
        for (int col = 1; col <= desk.grid().MaxCols(); ++col)
            all += desk.cell(col, 0) + "|";
        return all;
    }
    [[nodiscard]] std::string plainHeadings() const
    {
        return desk.bySide(
            "入荷日|商品名|入荷先|単価|数量|値引き|合計|コード|担当者|返却数|単位|備考||",
            "出荷日|商品名|出荷先|単価|数量|値引き|合計|コード|担当者|良品返品|不良返品|単位|備考||");
    }
};

INSTANTIATE_TEST_SUITE_P(Sides, ListSearch, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

} // namespace

TEST_P(ListSearch, aPeriodWithNoHitsLeavesAnEmptyGridWithPlainHeadings)
{
    desk.storeMany(3);
    desk.search();
    ASSERT_EQ(desk.grid().MaxRows(), 5);
    ASSERT_NE(headings(), plainHeadings());
    desk.period(u"20270101"_s, u"20271231"_s);
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(headings(), plainHeadings());
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(ListSearch, bothDaysOfThePeriodBelongToIt)
{
    desk.store({{.date = "20260331", .code = "1"},
                {.date = "20260401", .code = "2"},
                {.date = "20260430", .code = "3"},
                {.date = "20260501", .code = "4"}});
    desk.period(u"20260401"_s, u"20260430"_s);
    desk.search();
    EXPECT_EQ(codes(), "2 3 ");
}

TEST_P(ListSearch, movementsStandByDayThenNameThenCode)
{
    desk.store({{.date = "20260402", .code = "9", .name = "a"},
                {.date = "20260401", .code = "2", .name = "b"},
                {.date = "20260401", .code = "3", .name = "A"},
                {.date = "20260401", .code = "1", .name = "b"}});
    desk.search();
    EXPECT_EQ(codes(), "3 1 2 9 ");
}

TEST_P(ListSearch, datesOutOfOrderAreRefusedAndTheListStays)
{
    desk.storeMany(2);
    desk.search();
    const auto before = desk.rows();
    desk.period(u"20260502"_s, u"20260501"_s);
    desk.search();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"日付エラー"_s);
    EXPECT_EQ(desk.rows(), before);
    EXPECT_TRUE(desk.frame.enabled);
    desk.period(u"20260401"_s, u"20260501"_s);
    desk.search();
    EXPECT_EQ(desk.box.shown.size(), 1U) << "a refused search does not block the next one";
}

TEST_P(ListSearch, aRegisteredCodeShowsItsNameAndIsListedAlone)
{
    desk.goods("4901", "りんご");
    desk.goods("4902", "みかん");
    desk.store({{.code = "4901"}, {.code = "4902"}, {.code = "49010"}});
    desk.enter(u"4902"_s);
    EXPECT_EQ(desk.goodsCaption(), u"みかん"_s);
    desk.search();
    EXPECT_EQ(codes(), "4902 ");
}

TEST_P(ListSearch, anAsteriskListsAllGoodsAndShowsAll)
{
    desk.goods("4901", "りんご");
    desk.store({{.code = "4901"}, {.code = "4902"}});
    desk.enter(u"4901"_s);
    desk.enter(u"*"_s);
    EXPECT_EQ(desk.goodsCaption(), u"（すべて）"_s);
    desk.search();
    EXPECT_EQ(codes(), "4901 4902 ");
}

TEST_P(ListSearch, aPatternShowsItselfAndFilters)
{
    desk.store({{.code = "4901"}, {.code = "4902"}, {.code = "5902"}, {.code = "49021"}});
    desk.enter(u"?902"_s);
    EXPECT_EQ(desk.goodsCaption(), u"?902"_s);
    desk.search();
    EXPECT_EQ(codes(), "4902 5902 ");
    desk.enter(u"49*"_s);
    desk.search();
    EXPECT_EQ(codes(), "4901 4902 49021 ");
}

TEST_P(ListSearch, aTextThatEnterHasNotConfirmedHasNoEffect)
{
    desk.store({{.code = "4901"}, {.code = "4902"}});
    desk.enter(u"*1"_s);
    desk.page->barCodeField()->setText(u"4902"_s);
    desk.search();
    EXPECT_EQ(codes(), "4901 ");
}

TEST_P(ListSearch, anUnknownCodeIsToldAndEverythingStaysAsItWas)
{
    desk.store({{.code = "4901"}, {.code = "4902"}});
    desk.enter(u"*1"_s);
    desk.enter(u"777"_s);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"商品 未登録エラー"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"入力された コード 「 777 」 は\r\n「商品」 に登録されていません。\r\n\r\n登録されているコードを入力して下さい。　　　"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
    EXPECT_EQ(desk.goodsCaption(), u"*1"_s);
    EXPECT_TRUE(desk.frame.enabled);
    desk.search();
    EXPECT_EQ(codes(), "4901 ");
}

TEST_P(ListSearch, aPatternWithAQuoteIsAnUnknownCode)
{
    desk.store({{.code = "4901"}});
    for (const QString& text : {u"*'"_s, u"' OR '1'='1"_s, u"4901'"_s, u"?'*"_s}) {
        desk.box.shown.clear();
        desk.enter(text);
        ASSERT_EQ(desk.box.shown.size(), 1U) << text.toStdString();
        EXPECT_EQ(desk.box.shown[0].title, u"商品 未登録エラー"_s);
        EXPECT_EQ(desk.goodsCaption(), u"（すべて）"_s);
    }
    desk.search();
    EXPECT_EQ(codes(), "4901 ");
}

TEST_P(ListSearch, aGoodsNameThatLooksLikeAPatternStillListsItsCodeAlone)
{
    desk.goods("4901", "ボルト 5*10?");
    desk.store({{.code = "4901"}, {.code = "4902"}, {.code = "49011"}});
    desk.enter(u"4901"_s);
    EXPECT_EQ(desk.goodsCaption(), u"ボルト 5*10?"_s);
    desk.search();
    EXPECT_EQ(codes(), "4901 ");
}

TEST_P(ListSearch, aFigureThatIsNoNumberIsARunTimeErrorAndNotALaterSurprise)
{
    desk.store({{.quantity = "三個"}});
    EXPECT_THROW(desk.search(), RunTimeError);
    EXPECT_TRUE(desk.grid().ReDraw());
}

TEST_P(ListSearch, aScannedTextOfMoreThanThirteenCharactersDoesNothing)
{
    desk.goods("12345678901234", "長い");
    desk.enter(u"12345678901234"_s);
    EXPECT_EQ(desk.goodsCaption(), u"（すべて）"_s);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, aFieldOfThirteenCharactersTakesBackspaceAndEnterAlone)
{
    desk.page->barCodeField()->setText(u"1234567890123"_s);
    for (const auto& [key, passes] :
         {std::pair{u'4', false}, std::pair{u'*', false}, std::pair{char16_t(8), true}}) {
        int ascii = key;
        desk.page->barCode_KeyPress(ascii);
        EXPECT_EQ(ascii != 0, passes);
    }
    desk.page->barCodeField()->selectAll();
    int overtyped = u'4';
    desk.page->barCode_KeyPress(overtyped);
    EXPECT_EQ(overtyped, u'4');
}

TEST_P(ListSearch, anEmptyEnterResetsTheTab)
{
    desk.storeMany(3);
    desk.enter(u"1*"_s);
    auto& partner = desk.control<QComboBox>(u"cmbXLSaki"_s);
    auto& staff = desk.control<QComboBox>(u"cmbXLTantou"_s);
    desk.search();
    partner.setCurrentIndex(0);
    staff.setCurrentIndex(1);
    desk.sumBox().setChecked(true);
    desk.page->show();
    desk.enter({});
    EXPECT_EQ(desk.goodsCaption(), u"（すべて）"_s);
    EXPECT_EQ(partner.currentText(), u"（すべて）"_s);
    EXPECT_EQ(staff.currentText(), u"（すべて）"_s);
    EXPECT_FALSE(desk.sumBox().isChecked());
    EXPECT_EQ(headings(), plainHeadings());
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(desk.control<QLineEdit>(u"txtXLyyyy_F"_s).text(), u"2026"_s) << "dates are not touched";
    EXPECT_EQ(desk.page->focusWidget(), desk.page->searchButton());
}

TEST_P(ListSearch, theFirstVisitResetsAndKeepsTheTextOfTheField)
{
    desk.storeMany(2);
    desk.search();
    desk.page->barCodeField()->setText(u"49"_s);
    desk.page->firstShow();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(desk.page->barCodeField()->text(), u"49"_s);
}

TEST_P(ListSearch, partnerAndPersonNarrowTheList)
{
    desk.store({{.code = "1", .partner = "101", .staff = "01"},
                {.code = "2", .partner = "102", .staff = "01"},
                {.code = "3", .partner = "102", .staff = "02"}});
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(1);
    desk.search();
    EXPECT_EQ(codes(), "2 3 ");
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(1);
    desk.search();
    EXPECT_EQ(codes(), "3 ");
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentText(u"（すべて）"_s);
    desk.search();
    EXPECT_EQ(codes(), "3 ");
}

TEST_P(ListSearch, aPartnerWhoseCodeHoldsAQuoteIsFoundAndNobodyElse)
{
    desk.store({{.code = "1", .partner = "1'1"}, {.code = "2", .partner = "102"}});
    desk.page->setPartners({{"1'1", u"引用"_s}, {"x' OR 'a'='a", u"悪い"_s}});
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(0);
    desk.search();
    EXPECT_EQ(codes(), "1 ");
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(1);
    desk.search();
    EXPECT_EQ(codes(), "");
}

TEST_P(ListSearch, aPartnerDeletedFromTheMasterSinceTheLoadStillFindsItsMovements)
{
    desk.store({{.code = "1", .partner = "101"}, {.code = "2", .partner = "102"}});
    ASSERT_TRUE(desk.shop.query("SELECT Code FROM KokyakuTB").empty());
    ASSERT_TRUE(desk.shop.query("SELECT Code FROM TantouTB").empty());
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(0);
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(0);
    desk.search();
    EXPECT_EQ(codes(), "1 ");
}

TEST_P(ListSearch, aChoiceThatHasNoCodeIsARunTimeErrorAndTheScreenIsPaintedAgain)
{
    desk.storeMany(2);
    desk.search();
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(-1);
    EXPECT_THROW(desk.search(), RunTimeError);
    EXPECT_TRUE(desk.grid().ReDraw());
    EXPECT_EQ(desk.grid().MaxRows(), 4);
}

TEST_P(ListSearch, aThousandMovementsLoadWithoutTheQuestion)
{
    desk.storeMany(1000);
    desk.search();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(desk.grid().MaxRows(), 1002);
    EXPECT_EQ(desk.frame.waitTags, std::vector{desk.bySide(u"入荷一覧明細"_s, u"出荷一覧明細"_s)});
    EXPECT_EQ(desk.frame.waitMaximum, 1000);
    EXPECT_EQ(desk.frame.waitValue, 1000);
}

TEST_P(ListSearch, aThousandAndOneMovementsAskFirst)
{
    desk.storeMany(1001);
    desk.box.answers = {BoxAnswer::Yes};
    desk.search();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"表示の確認"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n\r\n　　　（検索結果： 1001 件）\r\n\r\n表示を行っても、よろしいですか？"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Question);
    EXPECT_EQ(desk.box.shown[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(desk.grid().MaxRows(), 1003);
    EXPECT_EQ(desk.frame.waitTags.size(), 1U);
}

TEST_P(ListSearch, noToTheQuestionLeavesTheListThatWasThere)
{
    desk.store({{.date = "20260115", .code = "77"}});
    desk.search();
    const auto before = desk.rows();
    const std::string headingsBefore = headings();
    desk.storeMany(1001);
    desk.box.answers = {BoxAnswer::No};
    desk.search();
    EXPECT_EQ(desk.rows(), before);
    EXPECT_EQ(headings(), headingsBefore);
    EXPECT_TRUE(desk.frame.waitTags.empty());
    EXPECT_TRUE(desk.frame.enabled);
    EXPECT_EQ(desk.isShipment() ? desk.db.OutList().Count() : desk.db.InpList().Count(), 0);
}

TEST_P(ListSearch, fiveHundredMovementsLoadWithoutTheWaitWindowAndOneMoreWithIt)
{
    desk.storeMany(500);
    desk.search();
    EXPECT_TRUE(desk.frame.waitTags.empty());
    desk.store({{.code = "9"}});
    desk.search();
    EXPECT_EQ(desk.frame.waitTags.size(), 1U);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, theSummedViewShowsAWaitWindowOnlyAfterAQuestion)
{
    desk.storeMany(1000);
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.waitTags.empty());
    EXPECT_EQ(desk.grid().MaxRows(), 1000);

    desk.store({{.code = "9"}});
    desk.search(); // No
    EXPECT_EQ(desk.grid().MaxRows(), 1000);
    EXPECT_TRUE(desk.frame.waitTags.empty());
    desk.box.answers = {BoxAnswer::Yes};
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 1001);
    EXPECT_EQ(desk.frame.waitTags, std::vector{desk.bySide(u"入荷一覧集計"_s, u"出荷一覧集計"_s)});
    EXPECT_EQ(desk.frame.waitValue, 1001);
}

TEST_P(ListSearch, tickingTheBoxForSumsChangesNothingUntilTheNextSearch)
{
    desk.storeMany(3);
    desk.search();
    const auto before = desk.rows();
    const std::string headingsBefore = headings();
    desk.sumBox().setChecked(true);
    EXPECT_EQ(desk.rows(), before);
    EXPECT_EQ(headings(), headingsBefore);
}

TEST_P(ListSearch, theHeadingsMarkTheOrderAndWhatCanBeSorted)
{
    desk.store({{}});
    desk.search();
    EXPECT_EQ(
        headings(),
        desk.bySide("入荷日▲ |商品名▽ |入荷先▽ |単価|数量|値引き|合計|コード▽ |担当者▽ |返却数|単位|備考||",
                    "出荷日▲ |商品名▽ |出荷先▽ |単価|数量|値引き|合計|コード▽ |担当者▽ "
                    "|良品返品|不良返品|単位|備考||"));
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(
        headings(),
        desk.bySide(
            "－|商品名▲ |入荷先|単価|数量▽|値引き|合計▽|コード▽ |担当者|返却数▽|単位|－||",
            "－|商品名▲ |出荷先|単価|数量▽|値引き|合計▽|コード▽ |担当者|良品返品▽|不良返品▽|単位|－||"));
}

TEST_P(ListSearch, theCursorStandsOnTheFirstCellAfterASearch)
{
    desk.storeMany(3);
    desk.search();
    desk.grid().SetActiveCell(4, 3);
    desk.search();
    EXPECT_EQ(desk.grid().ActiveRow(), 1);
    EXPECT_EQ(desk.grid().ActiveCol(), 1);
}

TEST_P(ListSearch, aSearchThatIsUnderWayTakesNoSecondStart)
{
    desk.storeMany(1001);
    int boxes = 0;
    desk.box.answers = {BoxAnswer::Yes};
    desk.box.onShow = [&](const Box&) {
        ++boxes;
        desk.search();
    };
    desk.search();
    EXPECT_EQ(boxes, 1);
}

TEST_P(ListSearch, aFailedSelectionEmptiesTheListWithoutAWord)
{
    desk.storeMany(3);
    desk.search();
    desk.db.ShowErrors(false);
    desk.db.CloseFile();
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(headings(), plainHeadings());
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, theBuffersAreEmptyAfterEachLoad)
{
    desk.storeMany(3);
    desk.search();
    EXPECT_EQ(desk.isShipment() ? desk.db.OutList().Count() : desk.db.InpList().Count(), 0);
    desk.sumBox().setChecked(true);
    desk.search();
    EXPECT_EQ(desk.isShipment() ? desk.db.SyuSumTbl().Count() : desk.db.NyuSumTbl().Count(), 0);
    EXPECT_EQ(desk.grid().MaxRows(), 3);
}

} // namespace suisui::test
