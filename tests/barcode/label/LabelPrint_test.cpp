// What is drawn on the sheets: where each label, its texts and the function codes are.
#include "tests/barcode/label/LabelPrintTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::string_view_literals;

namespace suisui::test {

TEST_F(LabelPrint, threeLabelsFromTheFifthPlace_areInRowsTwoAndThree)
{
    fill({{"A", "3"}});
    job.startLabel = 5;
    print();
    ASSERT_EQ(paper.pages.size(), 1U);
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@4", "A@5", "A@6"}));
}

TEST_F(LabelPrint, fifteenOnASheetOfTwelve_goOnAtTheHeadOfTheNextPage)
{
    fill({{"A", "15"}});
    print();
    ASSERT_EQ(paper.pages.size(), 2U);
    EXPECT_EQ(paper.pages[0].bars.size(), 12U);
    EXPECT_EQ(labelsOfPage(1), (Labels{"A@0", "A@1", "A@2"}));
}

TEST_F(LabelPrint, aPrintFromTheSecondPage_hasItsLabelsWhereTheWholeJobHasThem)
{
    fill({{"A", "15"}});
    print(LabelPageRange{2, 2});
    EXPECT_EQ(paper.calls, (std::vector<std::string>{"start page", "end page"}));
    EXPECT_EQ(labelsOfPage(0), (Labels{"A@0", "A@1", "A@2"}));
}

TEST_F(LabelPrint, aNameIsCutAtFifteenCharacters_aCodeNever)
{
    fill({{"1234567890ABCDEFGHIJ", "1"}});
    grid.SetText(labelNameColumn, 1, u"一二三四五六七八九十一二三四五六七"_s);
    job.name = {true, {0_mm, -5_mm}};
    job.code = {true, {0_mm, 13_mm}};
    print();
    ASSERT_EQ(paper.pages.at(0).texts.size(), 2U);
    EXPECT_EQ(paper.pages[0].bars.at(0).text, u"1234567890ABCDEFGHIJ"_s);
    EXPECT_EQ(paper.pages[0].texts[0].text, u"1234567890ABCDEFGHIJ"_s);
    EXPECT_EQ(paper.pages[0].texts[1].text, u"一二三四五六七八九十一二三四五"_s);
}

TEST_F(LabelPrint, aNameOffsetOfMinusFive_isFiveMillimetresAboveTheBars)
{
    fill({{"A", "1"}});
    job.name = {true, {0_mm, -5_mm}};
    print();
    const QPoint bar = paper.pages.at(0).bars.at(0).at;
    const QPoint name = paper.pages[0].texts.at(0).at;
    EXPECT_EQ(name.x(), bar.x()); // half a dot rounds back
    EXPECT_EQ(name.y(), bar.y() - 118);
}

TEST_F(LabelPrint, notPortrait_swapsTheOffsets_butNotTheResolutions)
{
    fill({{"A", "1"}});
    paper.offsetX = 10;
    paper.offsetY = 40;
    paper.dpiX = 300;
    print();
    EXPECT_EQ(paper.pages.at(0).bars.at(0).at, QPoint(290, 560));
    grid.SetText(labelMarkColumn, 1, "1"sv);
    paper.turned = PaperOrientation::Landscape;
    print();
    EXPECT_EQ(paper.pages.at(1).bars.at(0).at, QPoint(260, 590));
}

TEST_F(LabelPrint, twoCopies_giveASecondRun_withFunctionCodesOnly)
{
    fill({{"A", "13"}});
    paper.copyCount = 2;
    job.screenCodes = {true, {5_mm, 208_mm}};
    print();
    EXPECT_EQ(paper.calls,
              (std::vector<std::string>{"start page", "end page", "start page", "end page", "end page",
                                        "start page", "end page", "start page", "end page"}));
    ASSERT_EQ(paper.pages.size(), 4U);
    EXPECT_EQ(paper.pages[0].bars.size(), 12U + 5U);
    EXPECT_EQ(paper.pages[1].bars.size(), 1U + 5U);
    EXPECT_EQ(paper.pages[2].bars.size(), 5U);
    EXPECT_EQ(paper.pages[3].bars.size(), 5U);
}

TEST_F(LabelPrint, noCopiesAreOne)
{
    fill({{"A", "1"}});
    paper.copyCount = 0;
    print();
    EXPECT_EQ(paper.pages.size(), 1U);
}

TEST_F(LabelPrint, pagesLeftAfterTheLastLabel_haveTheirFunctionCodes)
{
    fill({{"A", "2"}});
    job.searchCodes = {true, {-6_mm, 228_mm}};
    print(LabelPageRange{1, 3});
    ASSERT_EQ(paper.pages.size(), 3U);
    EXPECT_EQ(paper.pages[0].bars.size(), 2U + 5U);
    EXPECT_EQ(paper.pages[2].bars.size(), 5U);
}

TEST_F(LabelPrint, textsAreDrawnInTheOrderBarsCodeName)
{
    fill({{"A", "1"}});
    job.wrap = u"*"_s;
    job.code = {true, {0_mm, 13_mm}};
    job.name = {true, {0_mm, -5_mm}};
    print();
    EXPECT_EQ(paper.pages.at(0).bars.at(0).text, u"*A*"_s);
    EXPECT_EQ(paper.pages[0].texts.at(0).text, u"*A*"_s);
    EXPECT_EQ(paper.pages[0].texts.at(1).text, u"name of A"_s);
    EXPECT_EQ(paper.barHeight(), 284);
}

TEST_F(LabelPrint, theScreenCodes_areAtTheirMillimetres_withTheShopsWords)
{
    fill({{"A", "1"}});
    job.screenCodes = {true, {5_mm, 208_mm}};
    print();
    const auto& page = paper.pages.at(0);
    ASSERT_EQ(page.bars.size(), 6U);
    const QPoint corner = placeInDots({30.4_mm, 233.4_mm}, {600, 600, 0, 0});
    const std::array codes{u"[0]"_s, u"[1]"_s, u"[2]"_s, u"[3]"_s, u"[4]"_s};
    const std::array words{u"入荷 登録"_s, u"出荷 登録"_s, u"在庫 一覧"_s, u"入荷 一覧"_s, u"出荷 一覧"_s};
    const std::array places{0_mm, 38_mm, 76_mm, 105_mm, 134_mm};
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const QPoint wanted = corner + QPoint(lengthInDots(places[i], 600), 0);
        EXPECT_EQ(page.bars[i + 1].text, codes[i]);
        EXPECT_EQ(page.bars[i + 1].at, wanted);
        EXPECT_EQ(page.texts.at(i).text, words[i]);
        EXPECT_EQ(page.texts[i].at, wanted + QPoint(0, -118));
    }
}

TEST_F(LabelPrint, theSearchCodes_haveOneOrTwoLinesOverThem)
{
    fill({{"A", "1"}});
    job.searchCodes = {true, {-6_mm, 228_mm}};
    print();
    const auto& page = paper.pages.at(0);
    ASSERT_EQ(page.bars.size(), 6U);
    ASSERT_EQ(page.texts.size(), 8U);
    const QPoint corner = placeInDots({19.4_mm, 253.4_mm}, {600, 600, 0, 0});
    EXPECT_EQ(page.bars[1].at, corner);
    EXPECT_EQ(page.bars[5].text, u"[E]"_s);
    EXPECT_EQ(page.bars[5].at.x(), corner.x() + lengthInDots(136_mm, 600));
    EXPECT_EQ(page.texts[0].text, u"商品名 （すべて）"_s);
    EXPECT_EQ(page.texts[0].at.y(), corner.y() + lengthInDots(-5_mm, 600));
    EXPECT_EQ(page.texts[1].text, u"入荷先 （すべて）"_s);
    EXPECT_EQ(page.texts[1].at.y(), corner.y() + lengthInDots(-7_mm, 600));
    EXPECT_EQ(page.texts[2].text, u"出荷先 （すべて）"_s);
    EXPECT_EQ(page.texts[2].at.y(), corner.y() + lengthInDots(-3.5_mm, 600));
    EXPECT_EQ(page.texts[3].text, u"担当者 （すべて）"_s);
    EXPECT_EQ(page.texts[4].text, u"最低在庫数未満のみ表示"_s);
    EXPECT_EQ(page.texts[5].text, u"商品で集計して表示"_s);
    EXPECT_EQ(page.texts[6].text, u"在庫数０も表示"_s);
    EXPECT_EQ(page.texts[7].text, u"検索"_s);
}

} // namespace suisui::test
