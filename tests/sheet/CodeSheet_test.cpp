// The sheet of codes, read back from the paper: every code by a reader, every name where it belongs.
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "sheet/CodeSheet.h"
#include "sheet/ShopCodes.h"
#include "tests/support/BarReader.h"
#include "tests/support/PdfText.h"
#include "tests/support/TempShop.h"
#include "tools/TagDb.h"

namespace suisui::test {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int readerDpi = 300;

std::set<std::string> codesOnPaper(const QString& file)
{
    std::set<std::string> codes;
    for (int page = 1; page <= pdfPages(file); ++page) {
        std::istringstream texts(readBarCodes(pdfPicture(file, page, readerDpi)));
        for (std::string code; texts >> code;)
            codes.insert(code);
    }
    return codes;
}

struct CodeSheet : ::testing::Test
{
    TempShop shop;
    QTemporaryDir folder;
    QString file = folder.filePath(u"コード表.pdf"_s);

    void fillWithTheSample() const
    {
        std::ostringstream said;
        ASSERT_EQ(sampleShop(shop.base().toStdString(), said, said), ToolStatus::Good) << said.str();
    }
    /// Status of the program, and what it has said.
    std::pair<int, QString> codesheet() const
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QStringLiteral(CODESHEET), {u"--base"_s, shop.base(), file});
        EXPECT_TRUE(program.waitForFinished());
        return {program.exitCode(), QString::fromUtf8(program.readAll())};
    }
};

} // namespace

TEST_F(CodeSheet, ofTheSampleShop_givesEveryCodeBackToAReader)
{
    fillWithTheSample();
    const auto [status, said] = codesheet();
    ASSERT_EQ(status, 0) << said.toStdString();
    std::set<std::string> wanted;
    for (const char* select : {"SELECT '@' || Code || '@' FROM TantouTB",
                               "SELECT '#' || Code || '#' FROM KokyakuTB", "SELECT Code FROM Master"})
        for (const std::string& code : shop.query(select))
            wanted.insert(code);
    ASSERT_GT(wanted.size(), 200U);
    EXPECT_EQ(codesOnPaper(file), wanted);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(CodeSheet, hasEachNameInTheRowOfItsCode_andNothingBeyondThePage)
{
    fillWithTheSample();
    ASSERT_EQ(codesheet().first, 0);
    const std::vector<PdfWord> words = pdfWords(file);
    const QRectF paper(0, 0, 595, 842);
    int names = 0;
    for (const PdfWord& word : words) {
        EXPECT_TRUE(paper.adjusted(20, 20, -20, -20).contains(word.box)) << word.text.toStdString();
        for (const std::string& name : shop.query("SELECT Name FROM TantouTB WHERE Code = '"
                                                  + QString(word.text).remove(u'@').toStdString() + "'")) {
            const QRectF above(word.box.left() - 1, word.box.top() - 18, 150, 16);
            EXPECT_EQ(textIn(words, word.page, above).toStdString(),
                      QString::fromStdString(name).remove(u'　').remove(u' ').toStdString());
            ++names;
        }
    }
    EXPECT_EQ(names, 5);
}

TEST_F(CodeSheet, ofLongCodesAndNames_keepsToItsColumns_andIsStillRead)
{
    std::vector<CodeGroup> groups(1);
    groups[0].heading = u"商品"_s;
    for (int i = 10; i < 60; ++i)
        groups[0].codes.push_back({.scan = u"#aB-cD.eF+gH/xY%1#"_s.arg(i), .name = QString(20, u'国')});
    const SheetOutcome made = writeCodeSheet(groups, file);
    EXPECT_EQ(made.status, PrintStatus::Good);
    EXPECT_EQ(made.codes, 50);
    EXPECT_EQ(made.pages, pdfPages(file));
    std::set<std::string> wanted;
    for (const ScanCode& code : groups[0].codes)
        wanted.insert(code.scan.toStdString());
    EXPECT_EQ(codesOnPaper(file),
              wanted); // a name that ran into the bars beside it would keep them from being read
}

TEST_F(CodeSheet, saysWhichCodesBarsCannotCarry)
{
    const std::vector<CodeGroup> groups{
        {.heading = u"商品"_s,
         .codes = {{.scan = u"りんご"_s, .name = u"りんご"_s}, {.scan = u"1"_s, .name = u"梨"_s}}}};
    const SheetOutcome made = writeCodeSheet(groups, file);
    EXPECT_EQ(made.status, PrintStatus::Good);
    EXPECT_EQ(made.codes, 1);
    EXPECT_EQ(made.bare, 1);
    EXPECT_EQ(codesOnPaper(file), std::set<std::string>{"1"});
}

TEST_F(CodeSheet, overwritesNoFile)
{
    fillWithTheSample();
    QFile there(file);
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    there.write("somebody's own");
    there.close();
    const auto [status, said] = codesheet();
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(said.contains(u"既にあります"_s)) << said.toStdString();
    ASSERT_TRUE(there.open(QIODevice::ReadOnly));
    EXPECT_EQ(there.readAll(), "somebody's own");
}

TEST_F(CodeSheet, ofAShopWithNothingInIt_isRefused_andLeavesNoFile)
{
    const auto [status, said] = codesheet();
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(said.contains(u"登録されていません"_s)) << said.toStdString();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(CodeSheet, intoAFolderThatIsNotThere_isRefused)
{
    fillWithTheSample();
    file = folder.filePath(u"なし/コード表.pdf"_s);
    const auto [status, said] = codesheet();
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(said.contains(u"書けません"_s)) << said.toStdString();
}

} // namespace suisui::test
