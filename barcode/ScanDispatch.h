// Decides what a scanned value does on the main window.
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
    /// Takes a goods code on the tab in front.
    virtual void GoodsCodeSet(const QString& code) = 0;
    virtual void TantouCodeSet(const QString& code) = 0;
    virtual void SakiCodeSet(const QString& code) = 0;
    virtual void sendKeys(const QString& expression) = 0;
    /// Runs a function code other than one that changes tabs.
    virtual void MainBarEtc(const QString& function) = 0;
};

/// Classifies \a value and hands it to \a target. An empty value and values without a meaning are ignored.
/// Throws RunTimeError for a function text that sorts between "0" and "4" but is not the number of a tab
/// ("10", "2X"), and for a single "#" or "@".
void MainBarCodeChk(const QString& value, ScanTarget& target);

} // namespace suisui
