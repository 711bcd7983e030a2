// The colour of whatever has the focus: a control, the bar of a grid, the button of a box.
#pragma once

#include <QColor>

namespace suisui {

inline const QColor focusColor(0, 255, 255); ///< cyan

} // namespace suisui
