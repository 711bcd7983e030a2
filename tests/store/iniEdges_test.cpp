// Settings files line by line: what counts as a value, what is kept, and what a write leaves alone.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/IniFile.h"
#include "store/SlipIni.h"
#include "store/TrnPrint.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class IniEdgesTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString path() const { return dir.filePath(u"x.ini"_s); }
    void write(const QByteArray& bytes) const { writeTo(path(), bytes); }
    static void writeTo(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] QByteArray read() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// The value that the file holds, or "none".
    [[nodiscard]] QString value(const QString& section, const QString& key) const
    {
        IniFile ini;
        EXPECT_TRUE(ini.load(path()));
        return ini.value(section, key).value_or(u"none"_s);
    }
    [[nodiscard]] QString valueOf(const QByteArray& bytes) const
    {
        write(bytes);
        return value(u"S"_s, u"k"_s);
    }

    QTemporaryDir dir;
};

} // namespace

TEST_F(IniEdgesTest, aValue_isWhatFollowsTheEqualsSign_withoutBlanksAndQuotes)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"[S]\nk=v", u"v"_s},
        {"[s]\nK=v", u"v"_s},
        {" \t[ S ] \r\n\t k \t=  v\t \r\n", u"v"_s},
        {"[S]\nk=\"v\"", u"v"_s},
        {"[S]\nk=\" v \"", u" v "_s},
        {"[S]\nk=\"\"", u""_s},
        {"[S]\nk=\"", u"\""_s},
        {"[S]\nk=\"v", u"\"v"_s},
        {"[S]\nk=v\"", u"v\""_s},
        {"[S]\nk=a=b", u"a=b"_s},
        {"[S]\nk=", u""_s},
        {"[S]\nk", u"none"_s},
        {"[S]\n=v", u"none"_s},
        {"[S]\n;k=v", u"none"_s},
        {"[S]\n[k=v", u"none"_s},
        {"[S]\nk=first\nk=second", u"first"_s},
        {"[T]\nk=other\n[S]\nk=v", u"v"_s},
        {"[S]\n[T]\nk=other", u"none"_s},
        {"[S]\n[T\nk=other", u"none"_s},
        {"[S]rest\nk=v", u"v"_s},
        {"[S\nk=v", u"none"_s}, // no end of the heading
        {"[S]\nk=　v　", u"　v　"_s},
        {QByteArray("[S]\0\nk=v\0\0w", 11), u"vw"_s}, // a power cut leaves zeros
        {"\xEF\xBB\xBF[S]\nk=v", u"v"_s},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(valueOf(bytes), expected) << bytes.toStdString();
}

TEST_F(IniEdgesTest, anEmptyKey_isNeverFound)
{
    write("[S]\n\nplain\n");
    EXPECT_EQ(value(u"S"_s, u""_s), u"none"_s);
}

TEST_F(IniEdgesTest, theEncoding_isThatOfMostLines)
{
    const QByteArray utf8 = "n=仕入\n";
    const QByteArray cp932 = "n=\x8E\x64\x93\xFC\n";
    // As many of each: UTF-8, and the lines in the other one are no values.
    EXPECT_EQ(valueOf("[S]\nk=仕入\n" + cp932), u"仕入"_s);
    EXPECT_EQ(valueOf("[S]\n" + cp932 + "k=仕入\nn=plain\n"), u"仕入"_s);
    EXPECT_EQ(valueOf("[S]\nk=\x8E\x64\x93\xFC\nn=plain\nn=plain\n"), u"仕入"_s) << "plain lines have no say";
    EXPECT_EQ(valueOf("[S]\nk=\x8E\x64\x93\xFC\n" + cp932 + utf8), u"仕入"_s);
    EXPECT_EQ(valueOf("[S]\nk=\x8E\x64\x93\xFC\n" + utf8), u"none"_s);
}

TEST_F(IniEdgesTest, whatCannotBeRead_isNotReplaced)
{
    IniFile ini;
    EXPECT_FALSE(ini.setValue(u"S"_s, u"k"_s, u"v"_s)) << "no file was named";
    EXPECT_TRUE(ini.load(path())) << "a missing file is an empty one";
    ASSERT_TRUE(QFile::link(dir.filePath(u"nowhere"_s), path()));
    EXPECT_FALSE(ini.load(path()));
    EXPECT_FALSE(ini.setValue(u"S"_s, u"k"_s, u"v"_s));
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_FALSE(ini.load(path())) << "a folder";
    EXPECT_EQ(ini.value(u"S", u"k"), std::nullopt);
}

TEST_F(IniEdgesTest, everyValueComesBackAsItWas)
{
    for (const QString& text : {u"v"_s, u""_s, u" "_s, u" v"_s, u"v\t"_s, u"\""_s, u"\"\""_s, u"\"v\""_s,
                                u"\"v"_s, u"v\""_s, u"a=b"_s, u";v"_s, u"[v]"_s, u"　v　"_s, u"①～"_s}) {
        IniFile ini;
        ASSERT_TRUE(ini.load(path()));
        EXPECT_TRUE(ini.setValue(u"S"_s, u"k"_s, text));
        EXPECT_EQ(ini.value(u"S", u"k"), text);
        EXPECT_EQ(value(u"S"_s, u"k"_s), text);
    }
    IniFile ini;
    ASSERT_TRUE(ini.load(path()));
    EXPECT_TRUE(ini.setValue(u"S"_s, u"k"_s, u"a\r\nb"_s + QChar(u'\0') + u"c"_s));
    EXPECT_EQ(value(u"S"_s, u"k"_s), u"abc"_s) << "a value is one line";
    EXPECT_EQ(read(), QByteArray("[S]\r\nk=abc\r\n"));
}

TEST_F(IniEdgesTest, aWrite_changesItsLineOnly_andEndsEachWithCrLf)
{
    write("; ours\n\n[S]\n  k = old\nother=1\n\n[T]\nk=2\n\n\n");
    IniFile ini;
    ASSERT_TRUE(ini.load(path()));
    EXPECT_TRUE(ini.setValue(u"s"_s, u"K"_s, u"new"_s));
    EXPECT_EQ(read(), QByteArray("; ours\r\n\r\n[S]\r\nK=new\r\nother=1\r\n\r\n[T]\r\nk=2\r\n"));
    EXPECT_TRUE(ini.setValues(u"S"_s, {{u"third"_s, u"3"_s}, {u"other"_s, u" 4"_s}}));
    EXPECT_EQ(read(),
              QByteArray("; ours\r\n\r\n[S]\r\nK=new\r\nother=\" 4\"\r\nthird=3\r\n\r\n[T]\r\nk=2\r\n"));
    EXPECT_TRUE(ini.setValue(u"U"_s, u"k"_s, u"5"_s));
    EXPECT_TRUE(read().endsWith("[T]\r\nk=2\r\n[U]\r\nk=5\r\n"));
}

TEST_F(IniEdgesTest, aWrite_keepsWhatAnotherProgramWroteMeanwhile)
{
    write("[S]\nk=1\n");
    IniFile ini;
    ASSERT_TRUE(ini.load(path()));
    write("[S]\nk=1\nother=theirs\n");
    EXPECT_TRUE(ini.setValue(u"S"_s, u"k"_s, u"2"_s));
    EXPECT_EQ(value(u"S"_s, u"other"_s), u"theirs"_s);
    EXPECT_EQ(ini.value(u"S", u"other"), u"theirs"_s);
    ASSERT_TRUE(QDir(dir.path()).removeRecursively());
    EXPECT_FALSE(ini.setValue(u"S"_s, u"k"_s, u"3"_s));
    EXPECT_EQ(ini.value(u"S", u"k"), u"2"_s) << "what could not be stored is not said to be";
}

TEST_F(IniEdgesTest, readerSettings_areReadKeyByKey)
{
    QDir(dir.path()).mkpath(u"Ini"_s);
    writeTo(dir.filePath(u"Ini/AppEnv.ini"_s),
            "[Reader]\nCommKind=a\nCommPortNo=b\nCommBaud=c\nCommParity=d\nCommDataBit=e\nCommStopBit=f\n");
    const AppEnv env(dir.path() + u"/x/.."_s);
    const ReaderSettings reader = env.readerSettings();
    EXPECT_EQ(reader.commKind, u"a"_s);
    EXPECT_EQ(reader.commPortNo, u"b"_s);
    EXPECT_EQ(reader.commBaud, u"c"_s);
    EXPECT_EQ(reader.commParity, u"d"_s);
    EXPECT_EQ(reader.commDataBit, u"e"_s);
    EXPECT_EQ(reader.commStopBit, u"f"_s);
    EXPECT_EQ(env.portDevice(1), u"/dev/ttyS0"_s);
    EXPECT_TRUE(env.typedScans()) << "unless it is switched off";
    for (const bool on : {false, true}) {
        writeTo(dir.filePath(u"Ini/AppEnv.ini"_s), QByteArray("[Reader]\nTypedScan=") + (on ? "1" : "0"));
        EXPECT_EQ(env.typedScans(), on);
    }
}

TEST_F(IniEdgesTest, firstDate_makesTheFolderOfTheSettings)
{
    const QString base = dir.filePath(u"new"_s);
    EXPECT_TRUE(AppEnv(base).setLastUseDate(u"20260401"_s));
    EXPECT_TRUE(QFile::exists(base + u"/Ini/AppEnv.ini"_s));
    IniFile ini;
    ASSERT_TRUE(ini.load(base + u"/Ini/AppEnv.ini"_s));
    EXPECT_EQ(ini.value(u"Use", u"LastUseDate"), u"20260401"_s);
}

TEST_F(IniEdgesTest, programFolder_isKnownByEitherOfItsFolders)
{
    for (const QString& name : {u"DB"_s, u"Ini"_s}) {
        const QString base = dir.filePath(u"with"_s + name);
        ASSERT_TRUE(QDir().mkpath(base + u'/' + name));
        EXPECT_EQ(AppEnv::programFolder(base + u"/suisuitag"_s), base);
    }
    EXPECT_TRUE(AppEnv::programFolder(dir.filePath(u"suisuitag"_s)).endsWith(u"/suisuitag"_s));
    EXPECT_NE(AppEnv::programFolder(dir.filePath(u"suisuitag"_s)), dir.path());
}

TEST_F(IniEdgesTest, rememberedValues_haveTheirKeys)
{
    AppIni ini;
    ini.setIniFolder(dir.path());
    EXPECT_TRUE(ini.setLastHistoryFolder(u"/h"_s));
    EXPECT_TRUE(ini.setSaveInTheMaking(u"/h/file"_s));
    EXPECT_EQ(ini.SaveInTheMaking(), u"/h/file"_s);
    IniFile file;
    ASSERT_TRUE(file.load(dir.filePath(u"AppIni.ini"_s)));
    EXPECT_EQ(file.value(u"Folder", u"LastHistory"), u"/h"_s);
    EXPECT_EQ(file.value(u"Folder", u"SaveInTheMaking"), u"/h/file"_s);
    EXPECT_TRUE(ini.setLastSave(u"/i"_s, u"20260331"_s, u""_s));
    EXPECT_TRUE(ini.setLabelSetting(LabelMode::Receipts, u"XPoint"_s, u"30.00"_s));
    EXPECT_TRUE(ini.setLabelSettings(LabelMode::Shipments, {{u"XPoint"_s, u"40.00"_s}}));
    ASSERT_TRUE(file.load(dir.filePath(u"AppIni.ini"_s)));
    EXPECT_EQ(file.value(u"Folder", u"LastHistory"), u"/i"_s);
    EXPECT_EQ(file.value(u"Folder", u"LastHistoryTo"), u"20260331"_s);
    EXPECT_EQ(file.value(u"Folder", u"SaveInTheMaking"), u""_s);
    EXPECT_EQ(file.value(u"Label3", u"XPoint"), u"30.00"_s);
    EXPECT_EQ(file.value(u"Label4", u"XPoint"), u"40.00"_s);
    ASSERT_TRUE(file.setValue(u"Folder"_s, u"LastBackup"_s, u"/b"_s));
    ini.setIniFolder(dir.path());
    EXPECT_EQ(ini.LastBackupFolder(), u"/b"_s);
}

TEST_F(IniEdgesTest, slipOfAnotherCustomer_hasNothingOfTheOneBefore)
{
    SlipIni slip;
    slip.setIniFolder(dir.path());
    slip.setCustomerCode(u"201"_s);
    slip.setCustomerName(u"西商店"_s);
    for (int detail = 0; detail < SlipIni::customerDetails; ++detail)
        slip.setCustomerDetail(detail, u"d%1"_s.arg(detail));
    EXPECT_ANY_THROW(slip.setCustomerDetail(SlipIni::customerDetails, u"x"_s));
    ASSERT_TRUE(slip.setPersonName(u"山田"_s));
    QFile file(dir.filePath(u"SlipIni.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
              QByteArray("[Slip]\r\nCustomerCode=201\r\nCustomerName=西商店\r\nCustomerDetail1=d0\r\n"
                         "CustomerDetail2=d1\r\nCustomerDetail3=d2\r\nCustomerDetail4=d3\r\n"
                         "PersonName=山田\r\n"));
    slip.setCustomerCode(u"202"_s);
    ASSERT_TRUE(slip.setPersonName(u""_s));
    IniFile stored;
    ASSERT_TRUE(stored.load(dir.filePath(u"SlipIni.ini"_s)));
    EXPECT_EQ(stored.value(u"Slip", u"CustomerCode"), u"202"_s);
    for (const char16_t* key : {u"CustomerName", u"CustomerDetail1", u"CustomerDetail4", u"PersonName"})
        EXPECT_EQ(stored.value(u"Slip", key), u""_s);
}

} // namespace suisui::test
