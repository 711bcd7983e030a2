// The function codes that a sheet carries at its foot, so that a reader drives the program: two blocks of
// bars with the words of the shop over them.
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
    QString second;    ///< second line of it, or empty
};

/// Block of the bars that switch the screen.
[[nodiscard]] std::vector<StripBar> screenCodes(const AppIni& words);
/// Block of the bars that search.
[[nodiscard]] std::vector<StripBar> searchCodes(const AppIni& words);

} // namespace suisui
