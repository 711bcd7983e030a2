// The dialog in which the operator chooses a sheet of bar-code labels and what goes on it: four sheets that
// the shop can buy and a free one, with a picture of the page in which the first label is chosen, and the
// number of pages. Every field is checked before paper is spent. The settings of the last print are proposed
// again, separately for each source.
//
// The dialog shows a LabelSetup and passes on what is typed; LabelFields is the table of its fields.
// All measures are in millimetres.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include <QDialog>
#include <QTimer>

#include "barcode/label/LabelRows.h"
#include "barcode/label/LabelSetup.h"
#include "barcode/label/LabelSource.h"
#include "frame/support/DialogScan.h"
#include "frame/support/FormGate.h"

class QAbstractButton;
class QComboBox;
class QRadioButton;

namespace Ui {
class frm_PriCheck;
}

namespace suisui {

class AppIni;
class BarPrt;
class FocusPaint;
class KeyField;
class MsgBox;
class SheetPicture;
struct LabelRefusal;

class frm_PriCheck final : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        AppIni& ini;
        MsgBox& msgBox;
        BarPrt& barPrt;
        DialogScan::ReadLine readLine;
    };

    frm_PriCheck(const LabelSource& source, const Surroundings& around, QWidget* parent);
    ~frm_PriCheck() override;

    /// The number of pages that the job needs.
    [[nodiscard]] std::int32_t PageTotal() const { return m_setup.pageTotal(); }
    /// True after a print has finished.
    [[nodiscard]] bool printed() const { return m_printed; }

    void CmdOK_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    // What is typed goes to the setup, and what follows is shown (frm_PriCheck.cpp).
    void prepareForm();
    void wire();
    void wireField(LabelField field, QWidget* widget);
    void wireSheets();
    void take(LabelField field, const QString& text);
    void showSetup();
    void showField(const LabelFieldRow& row);
    void showStarts();
    void showSheet();
    void showPositions();
    [[nodiscard]] QWidget* controlOf(LabelField field) const;
    [[nodiscard]] SheetPicture* picture() const;
    [[nodiscard]] QRadioButton* positionButton() const;

    // Keys (frm_PriCheckKeys.cpp).
    void wireKeys();
    void limitKeysOf(KeyField& control, const LabelFieldRow& row);
    void enterFrom(QWidget* widget);
    [[nodiscard]] std::optional<LabelField> fieldOf(const QWidget* widget) const;
    bool eventFilter(QObject* object, QEvent* event) override;

    // The print (frm_PriCheckPrint.cpp).
    void refuse(const LabelRefusal& refusal);
    void print();

    // The picture of the page (frm_PriCheckPicture.cpp).
    void wirePicture();
    void refreshLater();
    void refreshPicture();
    void showLarge();
    [[nodiscard]] LabelRows trialRows(const LabelJob& wanted) const;
    [[nodiscard]] int barPitch() const;

    LabelSource m_source;
    Surroundings m_around;
    std::unique_ptr<Ui::frm_PriCheck> m_ui;
    FormGate m_gate;
    std::unique_ptr<FocusPaint> m_focusPaint;
    DialogScan* m_scan = nullptr;
    LabelRows m_rows;
    LabelSetup m_setup;
    QTimer m_refresh;

    // The controls: by field, then by sheet.
    std::array<QWidget*, labelFieldCount> m_controls{}; ///< null where the control depends on the sheet
    std::array<std::array<QWidget*, 2>, labelFieldCount> m_labels{};
    std::array<QRadioButton*, 5> m_optYousi{};
    std::array<QWidget*, 5> m_frames{};
    std::array<SheetPicture*, 5> m_pictures{};

    std::int32_t m_shownPage = 1;
    bool m_showing = false; ///< the setup changes the controls, not the operator
    bool m_printing = false;
    bool m_printed = false;
};

} // namespace suisui
