// The window around a page, as far as a page sees it: records what the page asked for.
#pragma once

#include <array>
#include <vector>

#include "frame/support/Frame.h"

namespace suisui::test {

class TestFrame : public Frame
{
public:
    void BusyOn() override { enabled = false; }
    void BusyOff() override
    {
        enabled = true;
        waitShown = false;
    }
    void setFormEnabled(bool on) override { enabled = on; }
    [[nodiscard]] Tab currentTab() const override { return tab; }
    [[nodiscard]] bool TabLoaded(Tab which) const override
    {
        return loaded.at(static_cast<std::size_t>(which));
    }
    void setTabLoaded(Tab which, bool on) override { loaded.at(static_cast<std::size_t>(which)) = on; }
    [[nodiscard]] bool dirty(Side side) const override { return dirtySides.at(indexOf(side)); }
    void setDirty(Side side, bool on) override { dirtySides.at(indexOf(side)) = on; }
    BoxAnswer EditGuard(Tab) override { return guardAnswer; }
    [[nodiscard]] bool GuardActive() const override { return guardActive; }
    [[nodiscard]] std::string tantouCode() const override { return staffCode; }
    [[nodiscard]] QString tantouName() const override { return staffName; }
    void showWait(const QString& tag, int maximum) override
    {
        waitTags.push_back(tag);
        waitMaximum = maximum;
        waitShown = true;
    }
    [[nodiscard]] bool waitVisible() const override { return waitShown; }
    void unloadWait() override { waitShown = false; }
    void setWaitProgress(int value) override { waitValue = value; }

    bool enabled = true;
    Tab tab = Tab::Receipt;
    std::array<bool, 5> loaded{true, true, true, true, true};
    std::array<bool, 2> dirtySides{};
    BoxAnswer guardAnswer = BoxAnswer::None;
    bool guardActive = false;
    std::string staffCode = "01";
    QString staffName = QStringLiteral("山田　太郎");
    std::vector<QString> waitTags;
    int waitMaximum = 0;
    int waitValue = 0;
    bool waitShown = false;
};

} // namespace suisui::test
