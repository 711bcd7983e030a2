// Settings files of random bytes and of damaged lines: every setting has a value, words that are not in the
// file are the shipped ones, and what the program writes into such a file can be read back and changes
// nothing else. scripts/fuzz.sh runs it for as long as wanted.
#include <random>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/SlipIni.h"
#include "store/TrnPrint.h"
#include "tests/support/InMemory.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr int rounds = 120;

const QStringList labelSettings{u"BarPich"_s, u"PageRows"_s, u"Yousi"_s, u"KinouYPoint1"_s};

class SettingsFuzz : public ::testing::Test
{
protected:
    SettingsFuzz() { QDir(dir.path()).mkpath(u"Ini"_s); }

    std::size_t below(std::size_t bound) { return random() % bound; }

    QByteArray randomBytes(std::size_t most)
    {
        QByteArray bytes;
        for (std::size_t n = below(most); n > 0; --n)
            bytes += static_cast<char>(random());
        return bytes;
    }

    /// Pieces of valid files in any order, with anything between them.
    QByteArray randomFile()
    {
        static const std::array pieces{"[Term]\r\n"_ba,
                                       "[Label3]\n"_ba,
                                       "[Use]\r\n"_ba,
                                       "[Reader]\r\n"_ba,
                                       "[FileName]\r\n"_ba,
                                       "[Ports]\r\n"_ba,
                                       "[Slip]\r\n"_ba,
                                       "[History]\r\n"_ba,
                                       "0=\x8E\x64\x93\xFC\r\n"_ba,
                                       "1=仕入\r\n"_ba,
                                       "3=/dev/x\n"_ba,
                                       "LastUseDate=2026"_ba,
                                       "CommPortNo=3\r\n"_ba,
                                       "TypedScan=0\n"_ba,
                                       "OffSetIchran=ZERO"_ba,
                                       "BarPich=\"3\"\r\n"_ba,
                                       "Yousi=4\r\n"_ba,
                                       "PersonName= \"x\r\n"_ba,
                                       "; 覚え\r\n"_ba,
                                       "[broken\r\n"_ba,
                                       "]=[\r\n"_ba,
                                       "=\r\n"_ba,
                                       "\r\n"_ba,
                                       "\n\n"_ba,
                                       "\r"_ba,
                                       "\xEF\xBB\xBF"_ba,
                                       "\xFF\xFE"_ba,
                                       "\"\"=\"\"\n"_ba};
        QByteArray bytes;
        for (std::size_t n = below(30); n > 0; --n)
            bytes += below(8) == 0 ? randomBytes(40) : pieces.at(below(pieces.size()));
        for (std::size_t hits = below(6); hits > 0 && !bytes.isEmpty(); --hits)
            bytes[static_cast<qsizetype>(below(static_cast<std::size_t>(bytes.size())))] =
                static_cast<char>(random());
        return bytes;
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(dir.path() + u"/Ini/"_s + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// A file of such pieces, or of random bytes.
    QByteArray anyFile(int round) { return round % 4 == 0 ? randomBytes(3000) : randomFile(); }

    /// Reads everything that the program reads from its settings.
    [[nodiscard]] QStringList answers() const
    {
        AppIni ini;
        ini.setIniFolder(dir.path() + u"/Ini"_s);
        const AppEnv env(dir.path());
        const ReaderSettings reader = env.readerSettings();
        QStringList all{env.LastUseDate(),       reader.commKind,        reader.commPortNo,
                        reader.commBaud,         reader.commParity,      reader.commDataBit,
                        reader.commStopBit,      env.portDevice(3),      env.typedScans() ? u"1"_s : u"0"_s,
                        ini.LastHistoryFolder(), ini.LastBackupFolder(), OffSetIchran(dir.path())};
        for (int i = -1; i < 20; ++i)
            all << ini.MasterTerm(i) << ini.TabTitle(i) << ini.Term(i) << ini.InpHeading(i)
                << ini.OutHeading(i) << ini.StockHeading(i) << ini.ReceiptListHeading(i)
                << ini.ShipmentListHeading(i);
        for (const LabelMode mode : {LabelMode::Goods, LabelMode::Components, LabelMode::Partners,
                                     LabelMode::Receipts, LabelMode::Shipments})
            for (const QString& name : labelSettings)
                all << ini.labelSetting(mode, name);
        return all;
    }

    std::mt19937 random{printedSeed()};
    QTemporaryDir dir{inMemory() + u"/suisui-XXXXXX"_s};
};

} // namespace

TEST_F(SettingsFuzz, wordsThatTheFileDoesNotName_areTheShippedOnes)
{
    const QStringList shipped = answers();
    for (int round = 0; round < rounds; ++round) {
        // Without a heading no line belongs to a section that the program knows.
        const QByteArray bytes = anyFile(round).replace('[', "");
        for (const QString& name : {u"AppEnv.ini"_s, u"AppIni.ini"_s, u"TrnPrint.ini"_s})
            write(name, bytes);
        ASSERT_EQ(answers(), shipped) << bytes.toBase64().toStdString();
    }
}

TEST_F(SettingsFuzz, whatIsWrittenIntoADamagedFile_readsBack_andNothingElseMoves)
{
    for (int round = 0; round < rounds; ++round) {
        const QByteArray bytes = anyFile(round);
        for (const QString& name : {u"AppEnv.ini"_s, u"AppIni.ini"_s, u"TrnPrint.ini"_s})
            write(name, bytes);
        QStringList expected = answers();
        ASSERT_LE(expected.at(11).size(), 4);

        ASSERT_TRUE(AppEnv(dir.path()).setLastUseDate(u"20260401"_s));
        AppIni ini;
        ini.setIniFolder(dir.path() + u"/Ini"_s);
        ASSERT_TRUE(ini.setLabelSetting(LabelMode::Shipments, labelSettings.constLast(), u" 12.5 "_s));
        expected.first() = u"20260401"_s;
        expected.last() = u" 12.5 "_s;
        ASSERT_EQ(answers(), expected) << bytes.toBase64().toStdString();
    }
}

TEST_F(SettingsFuzz, slipsOfAnyTexts_areStoredInADamagedFile_lineByLine)
{
    for (int round = 0; round < rounds; ++round) {
        write(u"SlipIni.ini"_s, anyFile(round));
        const QString name = QString::fromUtf8(randomBytes(30));
        SlipIni slip;
        slip.setIniFolder(dir.path() + u"/Ini"_s);
        slip.setCustomerCode(u"201"_s);
        slip.setCustomerName(name);
        ASSERT_TRUE(slip.setPersonName(u"山田"_s));
        IniFile file;
        ASSERT_TRUE(file.load(dir.path() + u"/Ini/SlipIni.ini"_s));
        ASSERT_EQ(file.value(u"Slip", u"CustomerCode"), u"201"_s);
        ASSERT_EQ(file.value(u"Slip", u"PersonName"), u"山田"_s);
        ASSERT_FALSE(file.value(u"Slip", u"CustomerName").value_or(QString()).contains(u'\n'));
    }
}

} // namespace suisui::test
