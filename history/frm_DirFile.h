// Picks the folder that a file is saved to, or the file that is loaded.
#pragma once

#include "history/HistoryDialog.h"
#include "history/HistoryPrompts.h"

class QAbstractFileIconProvider;
class QFileSystemModel;
class QModelIndex;

namespace Ui {
class frm_DirFile;
}

namespace suisui {

class AppEnv;
class AppIni;

class frm_DirFile final : public HistoryDialog
{
    Q_OBJECT

public:
    frm_DirFile(const PlaceQuestion& question, const AppIni& ini, const AppEnv& env, MsgBox& msgBox,
                DialogScan::ReadLine readLine, QWidget* parent);
    ~frm_DirFile() override;

    [[nodiscard]] const QString& Folder() const { return m_place.folder; }
    [[nodiscard]] const QString& FullPath() const { return m_place.fullPath; }
    [[nodiscard]] const QString& FileName() const { return m_place.fileName; }
    /// All three; empty for a cancel.
    [[nodiscard]] const Place& place() const { return m_place; }

    /// Shows \a folder, as a click in the tree does. A folder that cannot be reached is passed over: false.
    bool goTo(const QString& folder);

protected:
    void CmdOK_Click() override;
    void CmdEnd_Click() override;
    void showEvent(QShowEvent* event) override;

private:
    void setUpLook(const AppEnv& env);
    void makeTree();
    void keepInSight();
    void DirList_Change(const QModelIndex& current);
    void FileList_Click();
    void showFiles();
    void refuseFolder(const QString& folder);
    void refuse(const QString& title, const QString& text);
    [[nodiscard]] bool nameIsGood(const QString& name);
    [[nodiscard]] bool isFree(const QString& name);

    PlaceQuestion m_question;
    std::unique_ptr<Ui::frm_DirFile> m_ui;
    std::unique_ptr<QAbstractFileIconProvider> m_pictures;
    std::unique_ptr<QFileSystemModel> m_folders; // asks for pictures as long as it lives
    QString m_folder;                            ///< shown now
    QString m_fullPath;                          ///< of the file chosen last
    Place m_place;
};

} // namespace suisui
