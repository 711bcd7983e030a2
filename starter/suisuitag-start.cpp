// What the entry of the desktop menu starts. A new user, who has no database yet, chooses between an empty
// one and a sample. Where staff or partners are missing, without which the program cannot start, this offers
// forms to fill in and takes them over; "--forms" does so at any other time. Then it becomes the program.
#include <optional>
#include <sstream>
#include <string>
#include <unistd.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTranslator>
#include <QUrl>

#include "platform/core/Files.h"
#include "platform/core/FontName.h"
#include "platform/core/OwnOnly.h"
#include "platform/core/SingleInstance.h"
#include "store/AppDB.h"
#include "store/AppEnv.h"
#include "store/ShopFiles.h"
#include "tools/Forms.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int failure = 2;
constexpr int lineWidth = 540; // 38 full-width characters and a little
const QString title = u"すいすいＴＡＧ"_s;

/// Shows the box with lines that are long enough for its texts.
void show(QMessageBox& box)
{
    for (const auto& name : {u"qt_msgbox_label"_s, u"qt_msgbox_informativelabel"_s})
        if (auto* label = box.findChild<QLabel*>(name))
            label->setMinimumWidth(lineWidth);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// \a path as a shop would say it: a folder of the user begins at home.
QString placeOf(const QString& path)
{
    const QString home = QDir::homePath() + u'/';
    return u"\n\n場所："_s + (path.startsWith(home) ? u"ホーム/"_s + path.mid(home.size()) : path);
}

enum class Choice { Empty, Sample, None };

Choice askForDatabase(const QString& folder)
{
    QMessageBox box(QMessageBox::Question, title,
                    u"データベースがまだありません。どちらを用意しますか？"_s + placeOf(folder));
    box.setInformativeText(
        u"見本：小さな見本のお店で試すとき\n空　：自分のお店で始めるとき\n　　　（続けて、担当者・取引先・商品の表をお渡しします）"_s);
    const QPushButton* empty = box.addButton(u"空のデータベース(&E)"_s, QMessageBox::AcceptRole);
    const QPushButton* sample = box.addButton(u"見本のデータベース(&S)"_s, QMessageBox::AcceptRole);
    QPushButton* none = box.addButton(u"やめる(&Q)"_s, QMessageBox::RejectRole);
    box.setEscapeButton(none);
    show(box);
    if (box.clickedButton() == empty)
        return Choice::Empty;
    return box.clickedButton() == sample ? Choice::Sample : Choice::None;
}

/// Runs the data tool; returns its complaint, empty when all went well.
QString complaintOf(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    // Its complaint is shown in a box of this program, so it must be in Japanese.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"LC_ALL"_s);
    environment.insert(u"LC_MESSAGES"_s, u"ja_JP.UTF-8"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    if (!process.waitForFinished(-1))
        return tool + u": "_s + process.errorString();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString said = QString::fromUtf8(process.readAll());
    return said.isEmpty() ? tool + u": "_s + process.errorString() : said;
}

/// Moves a file to a place that is still free; a file that has appeared there meanwhile is not replaced.
QString moved(const QString& from, const QString& to)
{
    QFile file(from);
    if (!QDir().mkpath(QFileInfo(to).path()))
        return to;
    if (!file.rename(to) && !QFile::exists(to))
        return to + u": "_s + file.errorString();
    // The name, and the name of the folder that it may have come with.
    const std::string folder = suisui::folderOf(QFile::encodeName(to).toStdString());
    (void)suisui::syncToDisk(folder);
    (void)suisui::syncToDisk(suisui::folderOf(folder));
    return {};
}

/// Makes the database aside and then moves it: an interrupted first start leaves no half-filled database.
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
    for (const auto pathIn : {&suisui::emptyPath, &suisui::workingPath}) {
        const auto path = [pathIn](const QString& base) {
            return QString::fromStdString(pathIn(base.toStdString()));
        };
        if (complaint.isEmpty())
            complaint = moved(path(aside.path()), path(folder));
    }
    return complaint;
}

/// Copies the settings files that the user lacks; the program works without them too.
void copySettings(const QString& folder, const QString& programs)
{
    const QDir shipped(programs + u"/../share/suisuitag/Ini"_s);
    const QString place = folder + u"/Ini/"_s;
    if (!QDir().mkpath(place))
        return;
    const QStringList names = shipped.entryList({u"*.ini"_s}, QDir::Files);
    for (const QString& name : names) {
        if (QFile::copy(shipped.filePath(name), place + name))
            QFile::setPermissions(place + name, QFile::ReadOwner | QFile::WriteOwner);
    }
}

/// Makes the daily backup look where the shop is. The manager of the user's services may start it before it
/// knows the session's XDG_DATA_HOME, so the name of the folder goes into the manager's own settings.
void nameFolderToBackup()
{
    const QString settings = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                             + u"/systemd/user/suisuitag-backup.service.d"_s;
    const QString file = settings + u"/folder.conf"_s;
    const QString place = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (place == QDir::homePath() + u"/.local/share"_s) {
        QFile::remove(file);
        return;
    }
    QString quoted = place;
    quoted.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s).replace(u'%', u"%%"_s);
    QDir().mkpath(settings);
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        return; // the manager may still know it from the session
    target.write((u"[Service]\nEnvironment=\"XDG_DATA_HOME="_s + quoted + u"\"\n"_s).toUtf8());
    target.commit();
}

void tell(QMessageBox::Icon icon, const QString& text)
{
    QMessageBox box(icon, title, text, QMessageBox::Ok);
    show(box);
}

int complain(const QString& text)
{
    tell(QMessageBox::Critical, text);
    return failure;
}

/// What is missing for the program to start. None when the master-data program is there to help, or when the
/// database cannot be read, which the program reports itself.
QString lackingIn(const QString& folder)
{
    suisui::AppDB db((folder + u"/DB"_s).toStdString());
    db.ShowErrors(false);
    if (QFile::exists(folder + u"/exe/Master.exe"_s)
        || db.Open(suisui::workingFile) != suisui::DbStatus::Good)
        return {};
    QStringList lacking;
    for (const std::string& one : suisui::missingForStart(db))
        lacking += QString::fromStdString(one);
    return lacking.join(u"・"_s);
}

enum class WithForms { Take, ShowFolder, Leave };

WithForms askForForms(const QString& forms, const QString& lacking)
{
    QMessageBox box(QMessageBox::Information, title,
                    lacking.isEmpty()
                        ? u"担当者・取引先・商品を、表から取り込みます。"_s
                        : lacking
                              + u"がまだ登録されていません。\n次の表に記入すると、すぐに始められます。"_s);
    box.setInformativeText(u"１．「フォルダを開く」を押し、表を表計算ソフトで開いて記入します。\n"
                           u"　　担当者.csv　取引先.csv　商品.csv　（セット商品があれば 部品.csv）\n"
                           u"　　・取引先の「入荷先」「出荷先」の欄には、あてはまる方に 1 を入れます。\n"
                           u"　　・商品コードの列は、書式を「文字列」にしてから入れます。\n"
                           u"２．CSV のまま保存します。\n"
                           u"３．「取り込む」を押します。同じコードの行は、表の内容に変わります。"_s
                           + placeOf(forms));
    const QPushButton* take = box.addButton(u"取り込む(&I)"_s, QMessageBox::AcceptRole);
    QPushButton* look = box.addButton(u"フォルダを開く(&O)"_s, QMessageBox::ActionRole);
    box.setDefaultButton(look);
    QPushButton* leave = box.addButton(u"やめる(&Q)"_s, QMessageBox::RejectRole);
    box.setEscapeButton(leave);
    show(box);
    if (box.clickedButton() == take)
        return WithForms::Take;
    return box.clickedButton() == look ? WithForms::ShowFolder : WithForms::Leave;
}

/// The beginning of a text that may be too long for a screen.
QString shortened(const std::string& text)
{
    constexpr qsizetype limit = 12;
    QStringList lines = QString::fromStdString(text).split(u'\n', Qt::SkipEmptyParts);
    if (const qsizetype more = lines.size() - limit; more > 0)
        lines = lines.first(limit) << u"ほかに "_s + QString::number(more) + u" 件あります。"_s;
    return lines.join(u'\n');
}

bool takeOver(const std::string& base, const std::string& forms)
{
    std::ostringstream done;
    std::ostringstream faults;
    const bool taken = suisui::takeForms(base, forms, done, faults) == suisui::ToolStatus::Good;
    if (taken)
        tell(QMessageBox::Information, u"取り込みました。\n\n"_s + shortened(done.str()));
    else
        tell(QMessageBox::Warning, u"取り込めませんでした。今回は何も取り込んでいません。\n"
                                   "次のところを直して保存し、もう一度「取り込む」を押して下さい。\n\n"_s
                                       + shortened(faults.str()));
    return taken;
}

/// Has the operator fill in the forms and takes them over, until the shop has what it needs; \a once: at
/// least once. False when the operator gives up.
bool fillIn(const QString& folder, bool once)
{
    const QString forms = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u'/' + title;
    QString lacking = lackingIn(folder);
    while (once || !lacking.isEmpty()) {
        std::ostringstream said;
        std::ostringstream complaint;
        if (suisui::writeForms(folder.toStdString(), forms.toStdString(), said, complaint)
            != suisui::ToolStatus::Good) {
            tell(QMessageBox::Critical, QString::fromStdString(complaint.str()));
            return false;
        }
        const WithForms choice = askForForms(forms, lacking);
        if (choice == WithForms::Leave)
            return false;
        if (choice == WithForms::ShowFolder) {
            if (!QDesktopServices::openUrl(QUrl::fromLocalFile(forms)))
                tell(QMessageBox::Information,
                     u"フォルダを開けませんでした。ファイルの画面で開いて下さい。\n\n"_s + forms);
            continue;
        }
        if (takeOver(folder.toStdString(), forms.toStdString()))
            once = false;
        lacking = lackingIn(folder);
    }
    return true;
}

/// Makes the database that the operator wants if there is none. When a status is returned, the starter ends
/// with it.
std::optional<int> provideDatabase(const QString& folder, const QString& programs)
{
    if (QFile::exists(QString::fromStdString(suisui::workingPath(folder.toStdString()))))
        return std::nullopt;
    const Choice choice = askForDatabase(folder);
    if (choice == Choice::None)
        return 0;
    const QString complaint = makeDatabase(folder, programs, choice == Choice::Sample);
    if (complaint.isEmpty())
        return std::nullopt;
    return complain(u"データベースを用意できませんでした。\n\n"_s + complaint);
}

} // namespace

int main(int argc, char** argv)
{
    suisui::beginProgram();
    const QApplication application(argc, argv);
    QFont font(QString::fromUtf16(suisui::fontName));
    font.setPixelSize(suisui::screenFontPixels);
    QApplication::setFont(font);
    QTranslator words;
    if (words.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&words);
    const QString programs = QCoreApplication::applicationDirPath();
    const QString program = programs + u"/suisuitag"_s;
    const QString folder = suisui::AppEnv::programFolder(program);
    const bool formsWanted = QCoreApplication::arguments().contains(u"--forms"_s);
    if (formsWanted && suisui::SingleInstance(folder).prevInstance())
        return complain(u"すいすいＴＡＧが動いています。終了してから、もう一度選んで下さい。"_s);
    suisui::makeOwnOnly(folder.toStdString());
    if (const auto status = provideDatabase(folder, programs))
        return *status;
    nameFolderToBackup();
    copySettings(folder, programs);
    if (!fillIn(folder, formsWanted))
        return 0;
    std::string path = QFile::encodeName(program).toStdString();
    char* const command[] = {path.data(), nullptr};
    ::execv(path.c_str(), command);
    return complain(u"プログラムを起動できませんでした。\n\n"_s + program);
}
