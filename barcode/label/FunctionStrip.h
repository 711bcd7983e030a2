// The function codes at the foot of a sheet, with which a reader operates the program: two blocks of bars
// with the words of the shop above them.
#pragma once

#include <vector>

#include <QString>

#include "platform/core/Length.h"

namespace suisui {

class AppIni;

struct StripBar
{
    QString code;
    Millimetres right; ///< to the right of the first bar of its block
    QString first;     ///< caption
    QString second;    ///< second line of the caption, or empty
};

/// The bars that change tabs.
[[nodiscard]] std::vector<StripBar> screenCodes(const AppIni& words);
/// The bars that search.
[[nodiscard]] std::vector<StripBar> searchCodes(const AppIni& words);

} // namespace suisui
