// Scanned goods codes of the greatest length, tab by tab.
#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ScanLength : public ::testing::TestWithParam<int>, protected MainWindowDesk
{
};

} // namespace

TEST_P(ScanLength, sixteenCharacters_goToTheFieldOfTheTab_seventeenNowhere)
{
    fillShop();
    open();
    const auto tab = static_cast<Tab>(GetParam());
    window->showTab(tab);
    MainBarCodeChk(u"ABCDEFGH12345678"_s, *window);
    EXPECT_EQ(field(tab).text(), u"ABCDEFGH12345678"_s);
    for (int other = 0; other < 5; ++other)
        EXPECT_EQ(field(static_cast<Tab>(other)).text().isEmpty(), other != GetParam()) << other;
    const std::size_t boxes = box.shown.size();
    MainBarCodeChk(u"ABCDEFGH123456789"_s, *window);
    EXPECT_EQ(field(tab).text(), u"ABCDEFGH12345678"_s);
    EXPECT_EQ(box.shown.size(), boxes);
}

INSTANTIATE_TEST_SUITE_P(Tabs, ScanLength, ::testing::Range(0, 5));

} // namespace suisui::test
