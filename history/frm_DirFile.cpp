#include "history/frm_DirFile.h"

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QDir>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QPushButton>
#include <QStyle>

#include "frame/support/FocusPaint.h"
#include "history/FileChoice.h"
#include "platform/core/FillIn.h"
#include "platform/core/MsgBox.h"
#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/Dialect.h"
#include "ui_frm_DirFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// Where each kind of file was last.
constexpr struct
{
    QStringView kind;
    QString (AppIni::*lastFolder)() const;
} kinds[] = {{u"履歴", &AppIni::LastHistoryFolder}, {u"バックアップ", &AppIni::LastBackupFolder}};

/// Pictures of the style: a desktop without an icon theme shows them as well.
class StylePictures final : public QAbstractFileIconProvider
{
public:
    [[nodiscard]] QIcon icon(IconType type) const override
    {
        const bool file = type == File;
        return QApplication::style()->standardIcon(file ? QStyle::SP_FileIcon : QStyle::SP_DirIcon);
    }
    [[nodiscard]] QIcon icon(const QFileInfo& info) const override
    {
        return icon(info.isDir() ? Folder : File);
    }
};

bool canBeReached(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() && info.isReadable() && info.isExecutable();
}

QString pathIn(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace

frm_DirFile::frm_DirFile(const PlaceQuestion& question, const AppIni& ini, const AppEnv& env, MsgBox& msgBox,
                         DialogScan::ReadLine readLine, QWidget* parent)
    : HistoryDialog(msgBox, std::move(readLine), parent), m_question(question),
      m_ui(std::make_unique<Ui::frm_DirFile>()), m_pictures(std::make_unique<StylePictures>())
{
    m_ui->setupUi(this);
    makeTree();
    setUpLook(env);
    for (const auto& kind : kinds)
        if (kind.kind == m_question.kind)
            goTo((ini.*kind.lastFolder)());
    if (m_folder.isEmpty() && !goTo(QDir::currentPath()))
        goTo(QDir::rootPath());
    wire(*m_ui->CmdOK, *m_ui->CmdEnd, 1);
    focusPaint().keepSelection(m_ui->txtFileName);
    // The next Enter saves to the folder that is shown; a file has to be chosen first.
    if (m_question.saveMode)
        m_ui->CmdOK->setFocus();
    else
        m_ui->FileList->setFocus();
}

frm_DirFile::~frm_DirFile() = default;

void frm_DirFile::setUpLook(const AppEnv& env)
{
    QPalette band = m_ui->fraBand->palette();
    band.setColor(QPalette::Window, m_question.saveMode ? QColor(255, 0, 255) : QColor(0, 255, 0));
    m_ui->fraBand->setPalette(band);
    m_ui->fraBand->setAutoFillBackground(true);
    m_ui->lblCaption->setText(m_question.caption);
    m_ui->FileList->setEnabled(!m_question.saveMode);
    m_ui->txtFileName->setEnabled(false);
    m_ui->txtFileName->setText(m_question.fileName);
    QPalette name = m_ui->txtFileName->palette(); // to be read, though not to be typed in
    name.setColor(QPalette::Disabled, QPalette::Text, Qt::black);
    m_ui->txtFileName->setPalette(name);
    connect(m_ui->FileList, &QListWidget::itemSelectionChanged, this, &frm_DirFile::FileList_Click);
    // A click chooses and two decide, also where the desktop opens things by one.
    m_ui->FileList->setStyleSheet(u"activate-on-singleclick: 0"_s);
    connect(m_ui->FileList, &QListWidget::itemActivated, m_ui->CmdOK, &QPushButton::click);
    connect(m_ui->FileList, &FileChoice::decided, m_ui->CmdOK, &QPushButton::click);
    const std::pair<QPushButton*, QString> places[] = {{m_ui->cmdMyDoc, env.MyDocFolder()},
                                                       {m_ui->cmdDeskTop, env.DeskTopFolder()}};
    for (const auto& [button, folder] : places) {
        button->setHidden(folder.isEmpty());
        connect(button, &QPushButton::clicked, this, [this, folder = folder] { goTo(folder); });
    }
}

void frm_DirFile::makeTree()
{
    m_folders = std::make_unique<QFileSystemModel>();
    m_folders->setIconProvider(m_pictures.get());
    m_folders->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    m_folders->setRootPath(QDir::rootPath());
    QTreeView& tree = *m_ui->DirList;
    tree.setModel(m_folders.get());
    tree.setHeaderHidden(true);
    for (int column = 1; column < m_folders->columnCount(); ++column)
        tree.hideColumn(column);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, &frm_DirFile::DirList_Change);
    connect(m_folders.get(), &QFileSystemModel::directoryLoaded, this, &frm_DirFile::keepInSight);
    connect(m_folders.get(), &QFileSystemModel::layoutChanged, this, &frm_DirFile::keepInSight);
    connect(&tree, &QTreeView::activated, &tree,
            [&tree](const QModelIndex& index) { tree.setExpanded(index, !tree.isExpanded(index)); });
    tree.setExpandsOnDoubleClick(false); // activated does it, by key or mouse
}

/// The folders come in bit by bit and are sorted afterwards; the one that is shown stays in sight, unless the
/// operator is moving about in the tree.
void frm_DirFile::keepInSight()
{
    if (!m_ui->DirList->hasFocus())
        m_ui->DirList->scrollTo(m_ui->DirList->currentIndex());
}

void frm_DirFile::showEvent(QShowEvent* event)
{
    HistoryDialog::showEvent(event);
    keepInSight();
}

bool frm_DirFile::goTo(const QString& folder)
{
    if (folder.isEmpty() || !canBeReached(folder))
        return false;
    const QModelIndex index = m_folders->index(folder);
    m_ui->DirList->setCurrentIndex(index);
    m_ui->DirList->expand(index.parent());
    keepInSight();
    return true;
}

void frm_DirFile::DirList_Change(const QModelIndex& current)
{
    const QString folder = m_folders->filePath(current);
    if (folder == m_folder)
        return;
    if (!canBeReached(folder)) {
        const QString back = m_folder;
        refuseFolder(folder);
        // The tree is in the middle of its own change.
        QMetaObject::invokeMethod(
            this, [this, back] { goTo(back); }, Qt::QueuedConnection);
        return;
    }
    m_folder = folder;
    m_ui->lblFolder->setText(QDir::toNativeSeparators(folder));
    showFiles();
}

void frm_DirFile::showFiles()
{
    if (m_question.beforeListing)
        m_question.beforeListing(m_folder);
    QListWidget& list = *m_ui->FileList;
    const QSignalBlocker quiet(list);
    list.clear();
    const std::string pattern = m_question.pattern.toStdString();
    for (const QFileInfo& file : QDir(m_folder).entryInfoList(QDir::Files, QDir::Name))
        if (like(file.fileName().toStdString(), pattern))
            new QListWidgetItem(m_pictures->icon(file), file.fileName(), &list);
    if (list.count() > 0)
        return;
    m_fullPath.clear();
    if (!m_question.saveMode)
        m_ui->txtFileName->clear();
}

void frm_DirFile::FileList_Click()
{
    const QListWidgetItem* file = m_ui->FileList->currentItem();
    if (file == nullptr)
        return;
    m_fullPath = pathIn(m_folder, file->text());
    m_ui->txtFileName->setText(file->text().left(file->text().lastIndexOf(u'.')));
}

void frm_DirFile::CmdOK_Click()
{
    stopTimer();
    const QString name = m_ui->txtFileName->text().trimmed();
    if (!nameIsGood(name) || (m_question.saveMode && !isFree(name)))
        return;
    if (!canBeReached(m_folder)) { // a stick may have been pulled out meanwhile
        refuseFolder(m_folder);
        return;
    }
    // Events run while the box is up, and the tree leaves a folder that disappears.
    const Place confirmed{m_folder, m_fullPath, name};
    if (m_msgBox.show({u"決定の確認"_s, u"「決定」 します。　よろしいですか？　　　　"_s, BoxIcon::Question,
                       BoxButtons::YesNo})
        != BoxAnswer::Yes) {
        restartTimer();
        return;
    }
    if (!canBeReached(confirmed.folder)) {
        refuseFolder(confirmed.folder);
        return;
    }
    m_place = confirmed;
    unload();
}

void frm_DirFile::CmdEnd_Click()
{
    m_place = {};
    unload();
}

bool frm_DirFile::nameIsGood(const QString& name)
{
    if (name.isEmpty())
        refuse(
            u"ファイル名 未指定エラー"_s,
            u"「ファイル名」 が指定されていません。\r\n\r\nファイル名を指定した後に、再度、決定して下さい。　　　"_s);
    else if (holdsForbidden(name))
        refuse(
            u"ファイル名 使用文字エラー"_s,
            u"「ファイル名」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\nファイル名を修正した後に、再度、決定して下さい。　　　"_s);
    else
        return true;
    if (m_ui->txtFileName->isEnabled())
        m_ui->txtFileName->setFocus();
    return false;
}

/// Whether a new file may have the name.
bool frm_DirFile::isFree(const QString& name)
{
    m_fullPath = pathIn(m_folder, name);
    if (!QFileInfo::exists(m_fullPath))
        return true;
    refuse(
        u"ファイル 既存エラー"_s,
        u"同じファイル名のファイルが既に存在します。　　　\r\n\r\n　保存先の 「フォルダ （ディレクトリ）」 を変更した後に　　　\r\n　再度、決定して下さい。"_s);
    return false;
}

void frm_DirFile::refuseFolder(const QString& folder)
{
    refuse(
        u"フォルダの準備エラー"_s,
        folder
            + u"\r\n\r\nフォルダの準備ができていません。\r\n\r\n準備した後に、再度、選択して下さい。　　"_s);
}

void frm_DirFile::refuse(const QString& title, const QString& text)
{
    stopTimer();
    m_msgBox.show({title, text, BoxIcon::Stop});
    restartTimer();
}

} // namespace suisui
