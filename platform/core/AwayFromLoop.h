// Long work and waits for a disk, done beside the loop: the windows go on painting and timers go on firing,
// however slow the disk is. Nothing runs in parallel by that: the caller waits, and what it works on is used
// by the work alone until it is done. The caller sees to it that no input can start anything else meanwhile.
//
// A thread of its own and not QtConcurrent: where no thread can be had, the work is done all the same.
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
