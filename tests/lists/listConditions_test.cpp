// The conditions of both lists: the code field, the partner and the person.
#include "platform/core/RunTimeError.h"
#include "tests/lists/ListSearch.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(ListSearch, aRegisteredCode_showsItsName_andIsListedAlone)
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

TEST_P(ListSearch, anUnknownCode_isReported_andEverythingStaysAsItWas)
{
    desk.store({{.code = "4901"}, {.code = "4902"}});
    desk.enter(u"*1"_s);
    desk.enter(u"777"_s);
    expectOneBox(
        desk.box,
        {.title = u"商品 未登録エラー"_s,
         .text =
             u"入力された コード 「 777 」 は\r\n「商品」 に登録されていません。\r\n\r\n登録されているコードを入力して下さい。　　　"_s,
         .icon = BoxIcon::Stop});
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

TEST_P(ListSearch, aGoodsNameLikeAPattern_stillListsItsCodeAlone)
{
    desk.goods("4901", "ボルト 5*10?");
    desk.store({{.code = "4901"}, {.code = "4902"}, {.code = "49011"}});
    desk.enter(u"4901"_s);
    EXPECT_EQ(desk.goodsCaption(), u"ボルト 5*10?"_s);
    desk.search();
    EXPECT_EQ(codes(), "4901 ");
}

TEST_P(ListSearch, aScanOfMoreThanThirteenCharacters_doesNothing)
{
    desk.goods("12345678901234", "長い");
    desk.enter(u"12345678901234"_s);
    EXPECT_EQ(desk.goodsCaption(), u"（すべて）"_s);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(ListSearch, aFieldOfThirteenCharacters_takesBackspaceAndEnterAlone)
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
    EXPECT_EQ(desk.control<QLineEdit>(u"txtXLyyyy_F"_s).text(), u"2026"_s) << "dates do not change";
    EXPECT_EQ(desk.page->focusWidget(), desk.page->searchButton());
}

TEST_P(ListSearch, theFirstVisit_resets_andKeepsTheTextOfTheField)
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

TEST_P(ListSearch, aPartnerWhoseCodeHoldsAQuote_isFound_andNobodyElse)
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

TEST_P(ListSearch, aPartnerDeletedSinceTheLoad_stillFindsItsMovements)
{
    desk.store({{.code = "1", .partner = "101"}, {.code = "2", .partner = "102"}});
    ASSERT_TRUE(desk.shop.query("SELECT Code FROM KokyakuTB").empty());
    ASSERT_TRUE(desk.shop.query("SELECT Code FROM TantouTB").empty());
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(0);
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(0);
    desk.search();
    EXPECT_EQ(codes(), "1 ");
}

TEST_P(ListSearch, aChoiceWithoutACode_isARunTimeError_andTheScreenIsPainted)
{
    desk.storeMany(2);
    desk.search();
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(-1);
    EXPECT_THROW(desk.search(), RunTimeError);
    EXPECT_TRUE(desk.grid().ReDraw());
    EXPECT_EQ(desk.grid().MaxRows(), 4);
}

} // namespace suisui::test
