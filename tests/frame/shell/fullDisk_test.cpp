// A disk that runs full in the middle of the day: the failure of the scan that finds no room is shown and the
// scan not booked, the screen shows what is stored, and when there is room again the next scan is booked.
#include <csignal>

#include <sys/resource.h>

#include <QFileInfo>

#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr int moreThanFit = 400;

/// While it lives no file can grow beyond a size.
class FullDisk
{
public:
    explicit FullDisk(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() { EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &m_before), 0); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

class FullDiskTest : public ::testing::TestWithParam<Side>, protected MainWindowDesk
{
protected:
    [[nodiscard]] std::string table() const { return GetParam() == Side::Receipt ? "InpTB" : "OutTB"; }
    [[nodiscard]] int stored() const
    {
        return std::stoi(shop.query("SELECT COUNT(*) FROM " + table()).at(0));
    }
    [[nodiscard]] int stock() const { return std::stoi(shop.query("SELECT ZaikoSuu FROM ZaikoTB").at(0)); }
    /// Each scan of the goods moves this much.
    [[nodiscard]] int moved() const { return GetParam() == Side::Receipt ? 12 : -1; }
    void scan() { window->GoodsCodeSet(u"4901001000017"_s); }
};

} // namespace

TEST_P(FullDiskTest, aScanWithoutRoom_isReported_notBooked_theNextWithRoomIs)
{
    fillShop();
    shop.add(zaikoTable, {"4901001000017", "0", "0", "20260101000000", "20260101000000"});
    open();
    const Tab tab = GetParam() == Side::Receipt ? Tab::Receipt : Tab::Shipment;
    window->showTab(tab);
    int booked = 0;
    {
        const FullDisk full(QFileInfo(QString::fromStdString(shop.databaseFile())).size() + 20000);
        for (; booked < moreThanFit; ++booked) {
            box.shown.clear();
            scan();
            if (stored() == booked)
                break;
        }
        ASSERT_LT(booked, moreThanFit);
        ASSERT_GT(booked, 0);
        ASSERT_FALSE(box.shown.empty());
        EXPECT_EQ(box.shown.back().icon, BoxIcon::Stop);
        EXPECT_EQ(grid(tab).MaxRows(), booked);
        EXPECT_EQ(stock(), booked * moved());
        EXPECT_TRUE(window->formEnabled());
    }
    scan();
    EXPECT_EQ(stored(), booked + 1);
    EXPECT_EQ(grid(tab).MaxRows(), booked + 1);
    EXPECT_EQ(stock(), (booked + 1) * moved());
    EXPECT_FALSE(window->dirty(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Sides, FullDiskTest, ::testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& side) {
                             return side.param == Side::Receipt ? "receipts" : "shipments";
                         });

} // namespace suisui::test
