// The settings files: words, remembered values, damaged files.
#include <random>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/SlipIni.h"
#include "store/TrnPrint.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class SettingsTest : public ::testing::Test
{
protected:
    SettingsTest() { QDir(dir.path()).mkpath(u"Ini"_s); }
    QString path(const QString& name) const { return dir.path() + u"/Ini/"_s + name; }
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    AppIni words() const
    {
        AppIni ini;
        ini.setIniFolder(dir.path() + u"/Ini"_s);
        return ini;
    }

    QTemporaryDir dir;
};

} // namespace

TEST_F(SettingsTest, shippedWordsGiveTheCaptionsOfTheScreens)
{
    const AppIni ini = words();
    EXPECT_EQ(ini.MasterTerm(0), u"商品"_s);
    const char16_t* const terms[] = {u"入荷", u"出荷", u"在庫", u"入荷", u"出荷"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(ini.Term(i), QString::fromUtf16(terms[i]));
    EXPECT_EQ(ini.InpHeading(1), u"コード"_s);
    EXPECT_EQ(ini.InpHeading(7), u"入荷先"_s);
    EXPECT_EQ(ini.InpHeading(16), u"裏数量"_s);
    EXPECT_EQ(ini.InpHeading(17), QString());
    EXPECT_EQ(ini.OutHeading(12), u"不良品返品"_s);
    EXPECT_EQ(ini.StockHeading(9), u"最低在庫"_s);
    EXPECT_EQ(ini.ReceiptListHeading(3), u"入荷先"_s);
    EXPECT_EQ(ini.ShipmentListHeading(11), u"不良返品"_s);
    EXPECT_EQ(ini.ShipmentListHeading(99), QString());
    EXPECT_EQ(ini.LastHistoryFolder(), QString());
}

TEST_F(SettingsTest, ownWordsReplaceTheShippedOnes_textByText_inEitherEncoding)
{
    write(u"AppIni.ini"_s, "\xEF\xBB\xBF[Term]\r\n0=仕入\r\n[InpHeading]\r\n1=\r\n2=\"  品　名　 \"\r\n");
    EXPECT_EQ(words().Term(0), u"仕入"_s);
    EXPECT_EQ(words().Term(1), u"出荷"_s);
    EXPECT_EQ(words().InpHeading(1), QString());
    EXPECT_EQ(words().InpHeading(2), u"  品　名　 "_s);
    write(u"AppIni.ini"_s, "[Term]\n0=\x8E\x64\x93\xFC\n"); // code page 932
    EXPECT_EQ(words().Term(0), u"仕入"_s);
}

TEST_F(SettingsTest, rememberedValuesSurvive_andLeaveTheRestOfTheFile)
{
    write(u"AppIni.ini"_s, "; ours\r\n[Term]\r\n0=仕入\r\n");
    AppIni ini = words();
    EXPECT_TRUE(ini.setLastHistoryFolder(u"/home/shop/履歴"_s));
    EXPECT_TRUE(ini.setLabelSetting(LabelMode::Receipts, u"BarPich"_s, u"3"_s));
    EXPECT_EQ(words().LastHistoryFolder(), u"/home/shop/履歴"_s);
    EXPECT_EQ(words().labelSetting(LabelMode::Receipts, u"BarPich"_s), u"3"_s);
    EXPECT_EQ(words().labelSetting(LabelMode::Shipments, u"BarPich"_s), QString());
    EXPECT_EQ(words().Term(0), u"仕入"_s);
    EXPECT_TRUE(read(u"AppIni.ini"_s).startsWith("; ours\r\n"));
}

TEST_F(SettingsTest, labelSettings_areStoredAtOnce_byName_inTheOrderGiven)
{
    AppIni ini = words();
    EXPECT_TRUE(ini.setLabelSettings(
        LabelMode::Partners, {{u"XPoint"_s, u"30.00"_s}, {u"Code"_s, u"1"_s}, {u"BarPich"_s, u"3"_s}}));
    EXPECT_EQ(words().labelSetting(LabelMode::Partners, u"XPoint"_s), u"30.00"_s);
    EXPECT_EQ(words().labelSetting(LabelMode::Partners, u"Code"_s), u"1"_s);
    EXPECT_EQ(words().labelSetting(LabelMode::Partners, u"BarPich"_s), u"3"_s);
    EXPECT_EQ(words().labelSetting(LabelMode::Components, u"XPoint"_s), QString());
    const QByteArray file = read(u"AppIni.ini"_s);
    EXPECT_LT(file.indexOf("XPoint"), file.indexOf("Code"));
    EXPECT_LT(file.indexOf("Code"), file.indexOf("BarPich"));
}

TEST_F(SettingsTest, environmentOfAFirstStart_isEmpty_andRemembersTheDate)
{
    AppEnv env(dir.path());
    EXPECT_EQ(env.LastUseDate(), QString());
    EXPECT_EQ(env.readerSettings().commPortNo, QString());
    EXPECT_EQ(env.portDevice(3), u"/dev/ttyS2"_s);
    EXPECT_TRUE(env.setLastUseDate(u"20260401"_s));
    EXPECT_EQ(AppEnv(dir.path()).LastUseDate(), u"20260401"_s);
    write(u"AppEnv.ini"_s, "[Reader]\nCommKind=1\nCommPortNo=3\nCommBaud=9600\nCommParity=N\nCommDataBit=8\n"
                           "CommStopBit=1\n[Ports]\n3=/dev/ttyUSB0\n");
    EXPECT_EQ(env.readerSettings().commBaud, u"9600"_s);
    EXPECT_EQ(env.readerSettings().commStopBit, u"1"_s);
    EXPECT_EQ(env.portDevice(3), u"/dev/ttyUSB0"_s);
}

TEST_F(SettingsTest, programFolder_isTheExecutables_whenItHoldsDbOrIni)
{
    EXPECT_EQ(AppEnv::programFolder(dir.path() + u"/suisuitag"_s), dir.path());
    QTemporaryDir bare;
    EXPECT_NE(AppEnv::programFolder(bare.path() + u"/suisuitag"_s), bare.path());
}

TEST_F(SettingsTest, slipSettingsAreStoredByTheirLastStep)
{
    SlipIni slip;
    slip.setIniFolder(dir.path() + u"/Ini"_s);
    slip.setCustomerCode(u"201"_s);
    slip.setCustomerName(u"さくら商店"_s);
    slip.setCustomerDetail(3, u"000-000"_s);
    EXPECT_TRUE(read(u"SlipIni.ini"_s).isEmpty());
    EXPECT_TRUE(slip.setPersonName(u"山田"_s));
    IniFile file;
    file.load(path(u"SlipIni.ini"_s));
    EXPECT_EQ(file.value(u"slip", u"customercode"), u"201"_s);
    EXPECT_EQ(file.value(u"Slip", u"CustomerDetail4"), u"000-000"_s);
    EXPECT_EQ(file.value(u"Slip", u"PersonName"), u"山田"_s);
}

TEST_F(SettingsTest, listOffset_isReadEachTime_andCutToFourCharacters)
{
    EXPECT_EQ(OffSetIchran(dir.path()), QString());
    write(u"TrnPrint.ini"_s, "[FileName]\r\nOffSetIchran=ZERO\r\n");
    EXPECT_EQ(OffSetIchran(dir.path()), u"ZERO"_s);
    write(u"TrnPrint.ini"_s, "[filename]\r\noffsetichran=ZEROES\r\n");
    EXPECT_EQ(OffSetIchran(dir.path()), u"ZERO"_s);
}

TEST_F(SettingsTest, fileThatCannotBeWritten_isReported_andStays)
{
    AppIni ini;
    ini.setIniFolder(dir.path() + u"/nowhere"_s);
    EXPECT_FALSE(ini.setLastHistoryFolder(u"x"_s));
}

TEST_F(SettingsTest, damagedAndHalfWrittenFiles_giveDefaults_andNoCrash)
{
    std::mt19937 random(printedSeed());
    AppEnv(dir.path()).setLastUseDate(u"20260401"_s);
    const QByteArray good = read(u"AppEnv.ini"_s) + "[Reader]\r\nCommPortNo=3\r\n[Term]\r\n0=仕入\r\n";
    for (int i = 0; i < 400; ++i) {
        QByteArray bytes =
            i % 2 == 0 ? good.left(static_cast<qsizetype>(random() % static_cast<unsigned>(good.size())))
                       : good;
        for (int hits = i % 7; hits > 0 && !bytes.isEmpty(); --hits)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        write(u"AppEnv.ini"_s, bytes);
        write(u"AppIni.ini"_s, bytes);
        const AppEnv env(dir.path());
        (void)env.LastUseDate();
        (void)env.readerSettings();
        EXPECT_EQ(words().Term(1), u"出荷"_s);
    }
}

} // namespace suisui::test
