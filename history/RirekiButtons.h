// The two buttons of the main window: 履歴の保存 and 履歴の読込.
#pragma once

#include <functional>

#include "history/RirekiDB.h"

class QWidget;

namespace suisui {

class RirekiButtons
{
public:
    struct Controls
    {
        QWidget& cmdRirekiOut;
        QWidget& cmdRirekiIn;
        std::function<void()> showFirstTab; ///< the tab change routine for tab 0
    };

    RirekiButtons(const Services& services, HistoryPrompts& prompts, RirekiDB& history, Controls controls);

    void cmdRirekiOut_Click();
    void cmdRirekiIn_Click();

private:
    struct Words;

    [[nodiscard]] bool editsAreSettled();
    [[nodiscard]] bool sentinelIsThere();
    [[nodiscard]] bool somethingIsSaved();
    void takeExtension();
    void report(RirekiDB::Result result, const Words& words, const QString& doneText);

    Services m_services;
    HistoryPrompts& m_prompts;
    RirekiDB& m_history;
    Controls m_controls;
};

} // namespace suisui
