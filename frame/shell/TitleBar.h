// The coloured bar over each tab, with a picture of what the tab is for.
#pragma once

#include "frame/support/Frame.h"

class QFrame;
class QLabel;

namespace suisui {

/// Gives \a bar the colour of \a tab and \a picture its picture.
void paintTitleBar(Tab tab, QFrame& bar, QLabel& picture);

} // namespace suisui
