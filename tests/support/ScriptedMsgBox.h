// Answers boxes by script and keeps what was shown, to be compared to the letter.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "platform/core/MsgBox.h"

namespace suisui::test {

class ScriptedMsgBox final : public MsgBox
{
public:
    BoxAnswer show(const Box& box) override
    {
        shown.push_back(box);
        if (onShow)
            onShow(box);
        if (!answers.empty()) {
            const BoxAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::No;
    }

    std::vector<Box> shown;
    std::deque<BoxAnswer> answers;          ///< used up in order; then OK or No
    std::function<void(const Box&)> onShow; ///< runs while the box would be on the screen
};

} // namespace suisui::test
