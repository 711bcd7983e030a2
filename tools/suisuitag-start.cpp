// What the entry of the desktop menu starts: a new user, who has no database yet, chooses between an empty
// one and a sample; then the program takes this one's place.
#include <string>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTranslator>

#include "store/AppEnv.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int failure = 2;
const QString title = u"すいすいＴＡＧ"_s;

enum class Choice { Empty, Sample, None };

Choice askForDatabase(const QString& folder)
{
    QMessageBox box(QMessageBox::Question, title,
                    u"データベースがまだありません。どちらを用意しますか？\n\n場所："_s + folder);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(
        u"見本：小さな見本のお店で試すとき\n空　：自分のお店で始めるとき\n　　　（担当者と取引先の登録が先に必要です）"_s);
    const QPushButton* empty = box.addButton(u"空のデータベース(&E)"_s, QMessageBox::AcceptRole);
    const QPushButton* sample = box.addButton(u"見本のデータベース(&S)"_s, QMessageBox::AcceptRole);
    QPushButton* none = box.addButton(u"やめる(&Q)"_s, QMessageBox::RejectRole);
    box.setEscapeButton(none);
    box.exec();
    if (box.clickedButton() == empty)
        return Choice::Empty;
    return box.clickedButton() == sample ? Choice::Sample : Choice::None;
}

/// Runs the data tool; what it complained of, empty when all went well.
QString complaintOf(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    if (!process.waitForFinished(-1))
        return tool + u": "_s + process.errorString();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString said = QString::fromUtf8(process.readAll());
    return said.isEmpty() ? tool + u": "_s + process.errorString() : said;
}

/// Moves a file to a place that is still free; a file that has come there meanwhile stays as it is.
QString moved(const QString& from, const QString& to)
{
    QFile file(from);
    if (!QDir().mkpath(QFileInfo(to).path()))
        return to;
    return file.rename(to) || QFile::exists(to) ? QString() : to + u": "_s + file.errorString();
}

/// Makes the database aside and moves it in whole: an interrupted first start leaves no half-filled database.
QString makeDatabase(const QString& folder, const QString& programs, bool sample)
{
    if (!QDir().mkpath(folder))
        return folder;
    const QTemporaryDir aside(folder + u"/first-XXXXXX"_s);
    if (!aside.isValid())
        return aside.errorString();
    const QString tool = programs + u"/tagdb"_s;
    QString complaint = complaintOf(tool, {u"create"_s, u"--base"_s, aside.path()});
    if (complaint.isEmpty() && sample)
        complaint = complaintOf(tool, {u"sample"_s, u"--base"_s, aside.path()});
    for (const QString& file : {u"/db/trnorg.mdb"_s, u"/DB/trnvik.mdb"_s}) {
        if (complaint.isEmpty())
            complaint = moved(aside.path() + file, folder + file);
    }
    return complaint;
}

/// Gives the user those settings files that are missing; the program works without them as well.
void copySettings(const QString& folder, const QString& programs)
{
    const QDir shipped(programs + u"/../share/suisuitag/Ini"_s);
    const QString place = folder + u"/Ini/"_s;
    if (!QDir().mkpath(place))
        return;
    const QStringList names = shipped.entryList({u"*.ini"_s}, QDir::Files);
    for (const QString& name : names) {
        if (QFile::copy(shipped.filePath(name), place + name))
            QFile::setPermissions(place + name,
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}

int complain(const QString& text)
{
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return failure;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QFont font(u"BIZ UDGothic"_s);
    font.setPixelSize(14); // half-width characters are half as wide as full-width ones
    QApplication::setFont(font);
    QTranslator words;
    if (words.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&words);
    const QString programs = QCoreApplication::applicationDirPath();
    const QString program = programs + u"/suisuitag"_s;
    const QString folder = suisui::AppEnv::programFolder(program);
    if (!QFile::exists(folder + u"/DB/trnvik.mdb"_s)) {
        const Choice choice = askForDatabase(folder);
        if (choice == Choice::None)
            return 0;
        const QString complaint = makeDatabase(folder, programs, choice == Choice::Sample);
        if (!complaint.isEmpty())
            return complain(u"データベースを用意できませんでした。\n\n"_s + complaint);
    }
    copySettings(folder, programs);
    std::string path = QFile::encodeName(program).toStdString();
    char* const command[] = {path.data(), nullptr};
    ::execv(path.c_str(), command);
    return complain(u"プログラムを起動できませんでした。\n\n"_s + program);
}
