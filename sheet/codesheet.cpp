#include <cstdlib>
#include <iostream>

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

#include "platform/core/Files.h"
#include "sheet/CodeSheet.h"
#include "sheet/ShopCodes.h"
#include "store/AppDB.h"
#include "store/ShopFiles.h"
#include "store/AppEnv.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int failed = 2;

int refuse(const QString& reason)
{
    std::cerr << "codesheet: " << reason.toStdString() << '\n';
    return failed;
}

/// Writes the sheet aside and names it when it is whole.
int makeSheet(const QString& base, const QString& file)
{
    if (QFileInfo::exists(file))
        return refuse(u"%1 は既にあります。別の名前を指定してください。"_s.arg(file));
    suisui::AppDB db((base + u"/DB"_s).toStdString());
    const QString shop = QString::fromStdString(suisui::workingPath(base.toStdString()));
    if (db.Open(suisui::workingFile) != suisui::DbStatus::Good)
        return refuse(u"%1 を開けません。"_s.arg(shop));
    const auto groups = suisui::shopCodes(db);
    if (!groups)
        return refuse(u"%1 を読めません。"_s.arg(shop));
    const QString aside = file + u".part"_s;
    const suisui::SheetOutcome made = suisui::writeCodeSheet(*groups, aside);
    if (made.codes + made.bare == 0)
        return refuse(u"担当者も取引先も商品も登録されていません。"_s);
    if (made.status != suisui::PrintStatus::Good
        || !suisui::renameToNew(aside.toStdString(), file.toStdString())) {
        suisui::removeFile(aside.toStdString());
        return refuse(u"%1 に書けません。書き込めるフォルダを指定してください。"_s.arg(file));
    }
    std::cout << u"%1（コード %2 件、%3 ページ）"_s.arg(file).arg(made.codes).arg(made.pages).toStdString()
              << '\n';
    if (made.bare > 0)
        std::cout << u"バーコードにできないコードが %1 件あります。"_s.arg(made.bare).toStdString() << '\n';
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    // It shows nothing, so it needs no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Writes a PDF with the bar codes of the staff, partners and goods of a shop, to be printed and scanned."_s);
    parser.addHelpOption();
    parser.addOption({u"base"_s, u"The program folder (default: the folder of this program)."_s, u"DIR"_s});
    parser.addPositionalArgument(u"FILE"_s, u"The PDF to be written; it must not be there yet."_s);
    parser.process(application);
    const QStringList words = parser.positionalArguments();
    if (words.size() != 1) {
        std::cerr << parser.helpText().toStdString();
        return failed;
    }
    return makeSheet(parser.isSet(u"base"_s)
                         ? parser.value(u"base"_s)
                         : suisui::AppEnv::programFolder(QCoreApplication::applicationFilePath()),
                     words.front());
}
