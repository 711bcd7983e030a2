// Where each scanned value goes on the main window.
#pragma once

#include <QString>

namespace suisui {

/// What a scanned value acts on.
class ScanTarget
{
public:
    virtual ~ScanTarget() = default;

    /// Brings a tab to the front. Throws RunTimeError::SubscriptOutOfRange for a number without a tab.
    virtual void selectTab(int tab) = 0;
    /// A goods code for the tab in front.
    virtual void GoodsCodeSet(const QString& code) = 0;
    virtual void TantouCodeSet(const QString& code) = 0;
    virtual void SakiCodeSet(const QString& code) = 0;
    virtual void sendKeys(const QString& expression) = 0;
    /// A function code other than a tab switch.
    virtual void MainBarEtc(const QString& function) = 0;
};

/// Classifies \a value and hands it to \a target; an empty value is nothing. Values that mean nothing are
/// dropped without a word. A function text between "0" and "4" as text that is no number of a tab ("10",
/// "2X") is a RunTimeError, as is a single "#" or "@".
void MainBarCodeChk(const QString& value, ScanTarget& target);

} // namespace suisui
