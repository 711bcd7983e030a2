// The dialog in which the operator describes a sheet of bar-code labels and picks what goes on it: four
// sheets that the shop can buy and a free one, shown as a picture in which the first label is picked; how
// many pages it takes; every field checked before paper is spent. What was printed last is proposed again,
// for each source apart.
//
// All measures are millimetres with two decimals.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include <QDialog>
#include <QTimer>

#include "barcode/label/LabelJob.h"
#include "barcode/label/LabelRows.h"
#include "frame/support/DialogScan.h"
#include "frame/support/FormGate.h"

class QAbstractButton;
class QLineEdit;
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
class vaSpread;
struct LabelSheet;

/// What is printed. The first two columns of the grid are code and name.
struct LabelSource
{
    int mode = 0; ///< 0, 1, 2 the lists of master data, 3 receipts, 4 shipments; the settings are kept by it
    vaSpread* grid = nullptr;
    int checkColumn = 0;
    int quantityColumn = 0; ///< 0: each row gets the same number
    int firstRow = 1;       ///< proposed rows
    int lastRow = 0;
    bool asksForNumber = true; ///< the operator may say how many labels each row gets
    QString word;              ///< name of the source
    QString markedCaption;     ///< in place of the designed caption of the first choice of rows, if any
};

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

    /// Pages that the job needs.
    [[nodiscard]] std::int32_t PageTotal() const { return m_pageTotal; }
    /// True when a print has been finished.
    [[nodiscard]] bool printed() const { return m_printed; }
    /// Text in front of the code and behind it; empty.
    QString LabelWrap;

    void CmdOK_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    // Controls (frm_PriCheck.cpp).
    void wire();
    void wireSheets();
    void wireFields();
    void wirePicture();
    void nameTables();
    void optYousi_Click(int sheet);
    void txtOnePageNum_Change();
    void txtLine_Change();
    void optPrint_Click();
    void cmbStart_Click();
    void chkKinou_Click();
    void followTicks();
    void LabelPageCalc();
    void setPages(const QString& first, const QString& last);
    [[nodiscard]] SheetPicture* picture() const;
    [[nodiscard]] QRadioButton* positionButton() const;

    // Sheets and what is remembered (frm_PriCheckSettings.cpp).
    void writeSheet(int sheet);
    void enableForSheet(const LabelSheet* figures);
    void writeFigures(const LabelSheet& figures);
    void Form_Load();
    void restoreSettings();
    void saveSettings();

    // Keys (frm_PriCheckKeys.cpp).
    void wireKeys();
    void wireLimits();
    void wireSteps();
    void enterFrom(QWidget* widget);
    bool eventFilter(QObject* object, QEvent* event) override;

    // Checks and print (frm_PriCheckPrint.cpp).
    [[nodiscard]] bool fieldsAreGood();
    [[nodiscard]] bool rowsAreGood();
    bool refuse(const QString& title, const QString& text, QWidget* field);
    [[nodiscard]] bool enoughToPrint();
    void print();
    [[nodiscard]] LabelJob job() const;

    // The page as it will be (frm_PriCheckPicture.cpp).
    void refreshLater();
    void refreshPicture();
    void showLarge();
    [[nodiscard]] LabelRows trialRows(const LabelJob& wanted) const;

    LabelSource m_source;
    Surroundings m_around;
    std::unique_ptr<Ui::frm_PriCheck> m_ui;
    FormGate m_gate;
    std::unique_ptr<FocusPaint> m_focusPaint;
    DialogScan* m_scan = nullptr;
    LabelRows m_rows;
    QTimer m_refresh;

    // The control arrays, by index.
    std::array<QRadioButton*, 5> m_optYousi{};
    std::array<QWidget*, 5> m_frames{};
    std::array<SheetPicture*, 5> m_pictures{};
    std::array<KeyField*, 2> m_txtOnePageNum{};
    std::array<KeyField*, 2> m_txtWHPich{};
    std::array<KeyField*, 2> m_txtLine{};
    std::array<KeyField*, 2> m_txtPage{};
    struct Part ///< a box, and the fields and labels that follow its tick
    {
        QAbstractButton* box = nullptr;
        std::array<KeyField*, 2> place{};
        std::vector<QWidget*> labels;
    };
    Part m_name;
    Part m_code;
    std::array<Part, 2> m_kinou;
    struct Step ///< Enter goes to the first of the places that can take the focus
    {
        QWidget* from;
        std::vector<QWidget*> to;
    };
    std::vector<Step> m_steps;

    QString m_startRow;
    QString m_endRow;
    std::int32_t m_pageTotal = 0;
    std::int32_t m_shownPage = 1;
    int m_sheet = 0;
    bool m_printing = false;
    bool m_printed = false;
};

} // namespace suisui
