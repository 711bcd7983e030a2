#include "frame/shell/Main.h"

#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include "frame/shell/frm_End.h"
#include "frame/support/DialogScan.h"
#include "frame/support/FormDisabled.h"
#include "frame/support/ShowModal.h"
#include "lists/ListPrinting.h"
#include "platform/core/AwayFromLoop.h"
#include "platform/core/DoEvents.h"
#include "platform/core/FileLock.h"
#include "platform/core/FillIn.h"
#include "platform/core/FindWindow.h"
#include "platform/core/OwnOnly.h"
#include "platform/core/RunTimeError.h"
#include "platform/core/Shell.h"
#include "store/BackupNote.h"
#include "store/Stamps.h"
#include "store/ShopFiles.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace suisui {

namespace {

constexpr int rowsThatCallForHistory = 25001;
constexpr int pausesBeforeMaster = 30;

const auto masterTitle = u" 基本情報 登録  　【 マスタ管理 】　　Tarnvik Works Co.,Ltd."_s;

/// What the master-data program holds while it runs.
QString masterLock(const QString& base)
{
    return base + u"/.master.lock"_s;
}

bool masterRuns(const QString& base)
{
    return FindWindow(masterTitle) || (windowsMayBeHidden() && isLocked(masterLock(base)));
}

} // namespace

Main_Module::Main_Module(const QString& baseFolder, Clock& clock, ScreenMsgBox& msgBox)
    : m_base(baseFolder), m_clock(clock), m_msgBox(msgBox), m_instance(baseFolder),
      m_atRest([this] { return atWork(); })
{
}

Main_Module::~Main_Module() = default;

int Main_Module::Main()
{
    if (m_instance.prevInstance())
        return EXIT_SUCCESS;
    if (masterRuns(m_base)) {
        m_msgBox.show(
            {u" 【基本情報 登録】が起動中です"_s,
             u"【すいすいＴＡＧ】の起動はできません。　　　　\r\n\r\n【基本情報 登録】が起動しています。"_s,
             BoxIcon::Stop});
        return EXIT_SUCCESS;
    }
    if (!mayWork())
        return EXIT_SUCCESS;
    makeOwnOnly(m_base.toStdString());
    m_appEnv = std::make_unique<AppEnv>(m_base);
    QDir::setCurrent(m_appEnv->BaseFolder());
    const QString iniFolder = m_appEnv->BaseFolder() + u"/Ini"_s;
    m_appIni = std::make_unique<AppIni>();
    m_appIni->setIniFolder(iniFolder);
    m_slipIni = std::make_unique<SlipIni>();
    m_slipIni->setIniFolder(iniFolder);

    m_shortWait = std::make_unique<frm_ShortWait>();
    m_wait = std::make_unique<frm_Wait>();
    m_shortWait->load();
    DoEvents();
    m_endFlag = false;
    m_masterStartFlag = false;
    if (!openDatabase())
        return EXIT_SUCCESS;
    volumeCheck(
        m_appDB->InpList().CountRows({}),
        u"入荷の情報が多くなってきました。\r\n　（入荷の履歴情報： {count} 件）\r\n\r\n履歴が多くなると 処理が遅くなります。　　　　\r\n\r\n 　「履歴の保存」 を行ってください。"_s);
    volumeCheck(
        m_appDB->OutList().CountRows({}),
        u"出荷の情報が多くなってきました。\r\n　（出荷の履歴情報： {count} 件）\r\n\r\n履歴が多くなると 処理が遅くなります。　　　　\r\n\r\n 　「履歴の保存」 を行ってください。"_s);
    m_lastDate = LastDateGet();
    if (loadWindow()) {
        showFailedBackup();
        mainLoop();
    }
    stop();
    return EXIT_SUCCESS;
}

/// Where the folder takes no file, no copy of the program can see the other, while the database may well take
/// the writes of both. A database that takes none has a box of its own.
bool Main_Module::mayWork()
{
    if (m_instance.holds() || !QFileInfo(m_base + u"/DB"_s).isWritable())
        return true;
    m_msgBox.show({u"プログラムフォルダに書き込めません"_s,
                   fillIn(u"【すいすいＴＡＧ】の起動はできません。　　　　\r\n\r\nフォルダ｢{base}"
                          u"｣に書き込めないため、\r\n二重に"
                          u"起動していないことを 確認できません。　　　　\r\n\r\nフォルダの "
                          u"書き込み許可を確認して、再度、起動し"
                          u"て下さい。",
                          {{u"base", QDir::toNativeSeparators(m_base)}}),
                   BoxIcon::Stop});
    return false;
}

/// Once for each failure: the note goes when it has been read.
void Main_Module::showFailedBackup()
{
    const BackupNote note(m_base);
    const std::optional<FailedBackup> failed = note.read();
    if (!failed)
        return;
    m_msgBox.show(
        {u" バックアップの失敗"_s,
         fillIn(u"自動のバックアップに 失敗しました。　　　　\r\n\r\n　（ 日時 ： {when} ）\r\n　（ 理由 ： "
                u"{why} "
                u"）　　　　\r\n\r\n{advice}\r\n\r\nその後、端末で 「 tagdb backup 」 を実行すると、"
                u"\r\nすぐに バックアップを作れます。　　　　",
                {{u"when", failed->when.toString(u"yyyy/MM/dd HH:mm"_s)},
                 {u"why", failed->why},
                 {u"advice", failed->advice}}),
         BoxIcon::Exclamation});
    note.clear();
}

bool Main_Module::openDatabase()
{
    const auto showError = [this](const std::string& text) {
        // Long work on the database runs away from the loop; a box never does.
        inLoop([this, &text] {
            unloadWaits();
            m_msgBox.show({u"データベースエラー"_s, QString::fromStdString(text), BoxIcon::Stop});
        });
    };
    m_appDB = std::make_unique<AppDB>((m_base + u"/DB"_s).toStdString(), showError);
    m_appDB->ShowErrors(false);
    if (m_appDB->Open(workingFile) == DbStatus::Good) {
        m_appDB->ShowErrors(true);
        return true;
    }
    m_shortWait->unload();
    m_msgBox.show({u"データベースがありません"_s,
                   fillIn(u"データファイル｢{base}\\DB\\trnvik.mdb｣が見つかりません。",
                          {{u"base", QDir::toNativeSeparators(m_appEnv->BaseFolder())}}),
                   BoxIcon::Stop});
    m_appDB->Release();
    m_shortWait.reset();
    m_wait.reset();
    m_appDB.reset();
    m_appEnv.reset();
    m_appIni.reset();
    m_slipIni.reset();
    return false;
}

/// Before a box, which could not be answered under a wait window.
void Main_Module::unloadWaits()
{
    m_shortWait->unload();
    m_wait->unload();
}

/// A warning only: it asks the operator to move old movements out.
void Main_Module::volumeCheck(int count, const QString& text)
{
    if (count < rowsThatCallForHistory)
        return;
    m_shortWait->unload();
    m_msgBox.show({u" 履歴を保存して下さい"_s, fillIn(text, {{u"count", QString::number(count)}}),
                   BoxIcon::Exclamation});
    m_shortWait->load();
    DoEvents();
}

QString Main_Module::LastDateGet() const
{
    const QString stored = m_appEnv->LastUseDate();
    return stored.isEmpty() ? QString::fromStdString(dateOf(m_clock.now())) : stored;
}

/// What a dialog reads; before the reader is there, and when it has been released, there is nothing.
QString Main_Module::nextLine()
{
    return m_barcode ? m_barcode->line() : QString();
}

/// Boxes and dialogs wait for their operator, so only what the reader has for a dialog is work then. Behind
/// them a scan may well wait; it is nobody's turn.
bool Main_Module::atWork() const
{
    const bool lineWaits = m_barcode && m_barcode->hasLine();
    if (const QWidget* dialog = QApplication::activeModalWidget())
        return lineWaits && readsScans(*dialog);
    return !m_barcode || !m_frmMain || lineWaits || m_frmMain->atWork() || m_shortWait->isVisible()
           || m_wait->isVisible();
}

/// The window with everything that it is given by the run.
void Main_Module::makeWindow()
{
    m_printer = std::make_unique<Printer>();
    m_barPrt1 = std::make_unique<PrinterBarPrt>(*m_printer, [this] {
        m_msgBox.show({u" 印刷エラー"_s,
                       u"印刷中に エラーが発生しました。　　　\r\n\r\n　　印刷を中止します。"_s,
                       BoxIcon::Stop});
    });
    m_frmMain = std::make_unique<frmMain>(Surroundings{*m_appDB, *m_appEnv, *m_appIni, *m_slipIni, m_clock,
                                                       m_msgBox, *m_shortWait, *m_wait, *m_printer,
                                                       *m_barPrt1, *this, m_lastDate});
}

/// False when the master data calls for the master-data program instead.
bool Main_Module::loadWindow()
{
    makeWindow();
    m_frmMain->load();
    m_shortWait->setEndMark();
    DoEvents();
    if (m_frmMain->MasterMissing()) {
        m_frmMain->cmdMaster_Click();
        return false;
    }
    {
        const FormDisabled disabled(*m_frmMain);
        m_msgBox.setParent(m_frmMain.get());
        m_frmMain->show();
        m_frmMain->showTab(Tab::Receipt);
    }
    if (m_appEnv->typedScans())
        m_frmMain->recogniseTypedScans();
    openReader();
    return true;
}

void Main_Module::openReader()
{
    m_msComm1 = std::make_unique<MSComm>([this](int port) { return m_appEnv->portDevice(port); });
    m_barcode = std::make_unique<Barcode>([this] { return m_appEnv->readerSettings(); }, m_msgBox,
                                          [this] { unloadWaits(); });
    m_barcode->BarCodeInit(m_msComm1.get());
}

/// Runs until the window has agreed to close. A disabled window stops the reading; scans then wait in the
/// reader's buffers. It sleeps only when nothing at all is pending.
void Main_Module::mainLoop()
{
    while (true) {
        const bool lineWaits =
            m_barcode && m_frmMain->formEnabled() && (m_frmMain->hasTypedScan() || m_barcode->hasLine());
        if (lineWaits || m_endFlag)
            DoEvents();
        else
            DoEventsOrWait();
        if (m_endFlag)
            return;
        if (!m_frmMain->formEnabled())
            continue;
        const QString typed = m_frmMain->takeTypedScan();
        MainBarCodeChk(typed.isEmpty() ? m_barcode->line() : typed, *m_frmMain);
    }
}

bool Main_Module::askEnd()
{
    frm_End dialog([this] { return nextLine(); }, m_frmMain.get());
    showModal(dialog);
    return dialog.result();
}

void Main_Module::windowUnloaded()
{
    m_appEnv->setLastUseDate(QString::fromStdString(dateOf(m_clock.now())));
    m_barcode.reset();
    m_endFlag = true;
    wakeEvents();
}

void Main_Module::stop()
{
    if (m_appDB) {
        m_appDB->CloseFile();
        m_appDB->Release();
    }
    m_barcode.reset();
    m_msComm1.reset();
    m_msgBox.setParent(nullptr);
    m_frmMain.reset();
    m_barPrt1.reset();
    m_printer.reset();
    m_shortWait.reset();
    m_wait.reset();
    m_appDB.reset(); // the pages refer to it until they are gone
    if (m_masterStartFlag) {
        for (int i = 0; i < pausesBeforeMaster; ++i)
            m_clock.letPass(10ms);
        // It keeps the lock while it runs.
        const FileLock lock(masterLock(m_base), LockKeeper::StartedPrograms);
        Shell(m_appEnv->BaseFolder() + u"/exe/Master.exe"_s, m_appEnv->BaseFolder());
    }
    m_appEnv.reset();
    m_appIni.reset();
    m_slipIni.reset();
}

void Main_Module::endOnError(const QString& what)
{
    if (m_appDB) {
        m_appDB->Rollback();
        m_appDB->CloseFile();
    }
    m_barcode.reset();
    m_msgBox.show(
        {u"実行時エラー"_s,
         u"予期しないエラーが発生したため、プログラムを終了します。　　　\r\n\r\n　　"_s + what
             + u"\r\n\r\n登録の途中だった情報は 取り消されました。\r\n再度、起動して 確認して下さい。"_s,
         BoxIcon::Stop});
    std::_Exit(EXIT_FAILURE);
}

} // namespace suisui
