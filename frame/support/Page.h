// What the main window asks of each of its five tab pages.
#pragma once

#include <string>
#include <vector>

#include <QString>
#include <QWidget>

class QComboBox;
class QLineEdit;

namespace suisui {

class AppIni;
class vaSpread;

/// An entry of a combo box of staff or partners, and the code that it is for.
struct Choice
{
    std::string code;
    QString name;
};
using ChoiceList = std::vector<Choice>;

class Page : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// The tab's bar-code field and grid.
    [[nodiscard]] virtual QLineEdit* barCodeField() = 0;
    [[nodiscard]] virtual vaSpread* grid() = 0;

    /// The key-press routine of the bar-code field; a scan calls it with Enter.
    virtual void barCode_KeyPress(int& keyAscii) = 0;
    /// What the first sight of the tab runs, and the first after it was marked stale.
    virtual void firstShow() = 0;
    /// Puts the settings' words on the page.
    virtual void setCaptions(const AppIni& ini) = 0;
    /// Dates "YYYYMMDD" of the page's search, and today as it is spoken. Pages without them leave this alone.
    virtual void setDefaultDates(const QString& /*from*/, const QString& /*to*/) {}
    virtual void setToday(const QString& /*text*/) {}
};

} // namespace suisui
