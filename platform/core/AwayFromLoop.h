// Long work and waits for a disk, done outside the event loop: windows repaint and timers fire, however slow
// the disk is. Nothing is used in parallel: the caller waits, and only the work uses its data until it is
// done. The caller ensures that no input can start anything else meanwhile.
//
// This uses a thread of its own and not QtConcurrent, so that the work is done even when no thread can be
// started.
#pragma once

#include <functional>

namespace suisui {

/// Runs \a work on a thread of its own and lets events run until it is done. An exception of the work is
/// thrown here.
void awayFromLoop(const std::function<void()>& work);

/// For work that runs away from the loop and has to show something: runs \a work where the windows live, and
/// waits for it. Called from there it simply runs it.
void inLoop(const std::function<void()>& work);

} // namespace suisui
