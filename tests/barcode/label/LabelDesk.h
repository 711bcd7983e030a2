// The label dialog for a grid of rows, with a printer that records what it is given.
#pragma once

#include <memory>

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>

#include "barcode/label/frm_PriCheck.h"
#include "store/AppIni.h"
#include "tests/barcode/label/LabelledGrid.h"
#include "tests/support/RecordingBarPrt.h"
#include "tests/support/ScriptedMsgBox.h"

namespace suisui::test {

struct LabelDialogDesk
{
    using Row = LabelledRow;

    explicit LabelDialogDesk(const std::vector<Row>& rows = {{"A"}, {"B"}, {"C"}})
    {
        fill(rows);
        QDir(folder.path()).mkpath(QStringLiteral("Ini"));
        iniFolder = folder.filePath(QStringLiteral("Ini"));
        ini.setIniFolder(iniFolder);
    }

    void fill(const std::vector<Row>& rows)
    {
        grid.fill(rows);
        source = {.mode = LabelMode::Receipts,
                  .grid = &grid,
                  .checkColumn = labelMarkColumn,
                  .quantityColumn = labelQuantityColumn,
                  .firstRow = 1,
                  .lastRow = grid.MaxRows(),
                  .asksForNumber = true,
                  .word = QStringLiteral("入荷"),
                  .markedCaption = {}};
    }

    frm_PriCheck& open()
    {
        dialog = std::make_unique<frm_PriCheck>(
            source, frm_PriCheck::Surroundings{ini, box, paper, [this] { return std::exchange(scan, {}); }},
            nullptr);
        dialog->show();
        dialog->activateWindow();
        return *dialog;
    }

    /// The free sheet of two by six with every box ticked, so that every field is enabled.
    void openWithEverything()
    {
        open();
        sheet(4);
        button("chkKinou_0")->setChecked(true);
        button("chkKinou_1")->setChecked(true);
    }

    template <typename Widget> [[nodiscard]] Widget* find(const char* name) const
    {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr)
            throw std::runtime_error(std::string("no control ") + name);
        return widget;
    }
    [[nodiscard]] QLineEdit* field(const char* name) const { return find<QLineEdit>(name); }
    [[nodiscard]] QAbstractButton* button(const char* name) const { return find<QAbstractButton>(name); }
    [[nodiscard]] QComboBox* choice(const char* name) const { return find<QComboBox>(name); }
    [[nodiscard]] std::string text(const char* name) const { return field(name)->text().toStdString(); }
    void type(const char* name, const char16_t* text) const
    {
        field(name)->setText(QString::fromUtf16(text));
    }
    void sheet(int index) const { button(("optYousi_" + std::to_string(index)).c_str())->setChecked(true); }
    [[nodiscard]] std::string pages() const { return text("txtPage_0") + "-" + text("txtPage_1"); }
    [[nodiscard]] std::string marks() const { return grid.marks(); }

    QTemporaryDir folder;
    QString iniFolder;
    LabelledGrid grid;
    AppIni ini;
    RecordingBarPrt paper;
    ScriptedMsgBox box;
    LabelSource source;
    QString scan; ///< the next line of the reader
    std::unique_ptr<frm_PriCheck> dialog;
};

[[nodiscard]] inline std::vector<LabelledRow> oneRowOf(const char* quantity)
{
    return {{"A", quantity}};
}

} // namespace suisui::test
