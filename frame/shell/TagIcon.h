// The picture of the program: a label tag with bars, for the frames of its windows and the list of those
// open.
#pragma once

#include <QIcon>

namespace suisui {

/// Drawn, as the title bars' pictures are, so that no plug-in for picture files is needed.
[[nodiscard]] QIcon tagIcon();

} // namespace suisui
