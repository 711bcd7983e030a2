// What is remembered of a print of labels: which field under which key, and which saved texts are accepted.
#include "barcode/label/LabelSettings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "store/AppIni.h"
#include "tests/barcode/label/SetupDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class LabelSettings : public ::testing::Test
{
protected:
    static constexpr LabelMode mode = LabelMode::Receipts;

    LabelSettings() { ini.setIniFolder(folder.path()); }

    void save(const char16_t* key, const QString& text)
    {
        ASSERT_TRUE(ini.setLabelSetting(mode, QString::fromUtf16(key), text));
    }
    [[nodiscard]] std::string saved(const char16_t* key) const
    {
        AppIni again;
        again.setIniFolder(folder.path());
        return again.labelSetting(mode, QString::fromUtf16(key)).toStdString();
    }
    void restore() { restoreLabelSettings(desk.setup, ini, mode); }

    QTemporaryDir folder;
    AppIni ini;
    SetupDesk desk;
};

} // namespace

TEST_F(LabelSettings, everyKeptField_isStoredUnderItsKey_inOrder)
{
    desk.sheet(4);
    desk.setup.tick(LabelField::searchCodes, true);
    desk.setup.tick(LabelField::name, false);
    const std::pair<const char16_t*, LabelField> kept[] = {
        {u"BarPich", LabelField::barPitch},
        {u"BarHeight", LabelField::barHeight},
        {u"XPoint", LabelField::startX},
        {u"YPoint", LabelField::startY},
        {u"WPich", LabelField::width},
        {u"HPich", LabelField::height},
        {u"PageColumns", LabelField::columns},
        {u"PageRows", LabelField::rows},
        {u"Code", LabelField::code},
        {u"Name", LabelField::name},
        {u"Kinou0", LabelField::screenCodes},
        {u"Kinou1", LabelField::searchCodes},
        {u"Yousi", LabelField::sheet},
        {u"NameXPoint", LabelField::nameX},
        {u"NameYPoint", LabelField::nameY},
        {u"CodeXPoint", LabelField::codeX},
        {u"CodeYPoint", LabelField::codeY},
        {u"KinouXPoint0", LabelField::screenX},
        {u"KinouYPoint0", LabelField::screenY},
        {u"KinouXPoint1", LabelField::searchX},
        {u"KinouYPoint1", LabelField::searchY},
    };
    int number = 11;
    for (const auto& [key, field] : kept)
        if (rowOf(field).saving.takes == LabelTakes::number)
            desk.setup.set(field, QString::number(++number));
    storeLabelSettings(desk.setup, ini, mode);
    QFile file(folder.filePath(u"AppIni.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArrayList keys;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.contains('='))
            keys += line.split('=').first();
    QByteArrayList wanted;
    for (const auto& [key, field] : kept) {
        wanted += QString::fromUtf16(key).toLatin1();
        EXPECT_EQ(saved(key), desk.text(field)) << wanted.last().toStdString();
    }
    EXPECT_EQ(keys, wanted);
    EXPECT_EQ(saved(u"Yousi"), "4");
    EXPECT_EQ(saved(u"Kinou1"), "1");
    EXPECT_EQ(saved(u"Name"), "0");
}

TEST_F(LabelSettings, whatWasStored_comesBack_forItsSourceAlone)
{
    desk.sheet(4);
    desk.set(LabelField::columns, u"3");
    desk.set(LabelField::rows, u"8");
    desk.set(LabelField::barPitch, u"5");
    desk.set(LabelField::startX, u"11.1");
    desk.set(LabelField::searchY, u"222");
    desk.setup.tick(LabelField::searchCodes, true);
    desk.setup.tick(LabelField::name, false);
    storeLabelSettings(desk.setup, ini, mode);
    SetupDesk again;
    restoreLabelSettings(again.setup, ini, mode);
    for (const LabelFieldRow& row : labelFields())
        if (row.saving.key != nullptr) {
            EXPECT_EQ(again.setup.text(row.field), desk.setup.text(row.field)) << row.saving.place;
        }
    EXPECT_EQ(again.setup.capacity(), 24);
    SetupDesk other;
    restoreLabelSettings(other.setup, ini, LabelMode::Shipments);
    EXPECT_EQ(other.setup.sheet(), 0);
    EXPECT_EQ(other.text(LabelField::startX), "30.00");
}

TEST_F(LabelSettings, theStrip_comesBackWithItsRow)
{
    desk.setup.tick(LabelField::screenCodes, true);
    storeLabelSettings(desk.setup, ini, mode);
    SetupDesk again;
    restoreLabelSettings(again.setup, ini, mode);
    EXPECT_TRUE(again.setup.ticked(LabelField::screenCodes));
    EXPECT_EQ(again.text(LabelField::rows), "5");
    EXPECT_EQ(again.setup.capacity(), 10);
}

TEST_F(LabelSettings, aSavedStep_isTakenWithinOneToTwenty)
{
    for (const auto& [text, taken] :
         {std::pair{"1", "1"}, std::pair{"20", "20"}, std::pair{"7.9", "7"}, std::pair{"21", "3"},
          std::pair{"0", "3"}, std::pair{"x", "3"}, std::pair{"-1", "3"}, std::pair{"1e300", "3"}}) {
        save(u"BarPich", QString::fromLatin1(text));
        restore();
        EXPECT_EQ(desk.text(LabelField::barPitch), taken) << text;
    }
}

TEST_F(LabelSettings, nothingSaved_leavesTheStepOfTheSheet)
{
    save(u"Yousi", u"1"_s);
    restore();
    EXPECT_EQ(desk.setup.sheet(), 1);
    EXPECT_EQ(desk.text(LabelField::barPitch), "2");
}

TEST_F(LabelSettings, onlyGoodTexts_areTakenBack)
{
    save(u"XPoint", u"x"_s);
    save(u"YPoint", u"-2.5"_s);
    save(u"PageColumns", u"100"_s);
    save(u"PageRows", u"98.9"_s);
    save(u"Name", u"2"_s);
    save(u"Code", u"0"_s);
    restore();
    EXPECT_EQ(desk.text(LabelField::startX), "30.00");
    EXPECT_EQ(desk.text(LabelField::startY), "-2.5");
    EXPECT_EQ(desk.text(LabelField::columns), "2");
    EXPECT_EQ(desk.text(LabelField::rows), "98");
    EXPECT_TRUE(desk.setup.ticked(LabelField::name));
    EXPECT_FALSE(desk.setup.ticked(LabelField::code));
    for (const char* bad : {"5", "-1", "04", "", "x"}) {
        save(u"Yousi", QString::fromLatin1(bad));
        restore();
        EXPECT_EQ(desk.setup.sheet(), 0) << bad;
    }
}

TEST_F(LabelSettings, aSavedTickOfFunctionCodes_isForSheetsThatHoldThem)
{
    save(u"Yousi", u"2"_s);
    save(u"Kinou0", u"1"_s);
    restore();
    EXPECT_FALSE(desk.setup.ticked(LabelField::screenCodes));
    save(u"Yousi", u"4"_s);
    restore();
    EXPECT_TRUE(desk.setup.ticked(LabelField::screenCodes));
}

} // namespace suisui::test
