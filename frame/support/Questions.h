// Questions and complaints that several screens put in the same words.
#pragma once

#include <string_view>

namespace suisui {

class AppIni;
class WaitWindows;
class MsgBox;

/// Asks whether \a count found rows shall be shown, although that takes its time. No wait window of \a frame
/// is in front of the question: at the start one shows while the tabs search.
[[nodiscard]] bool agreesToManyRows(WaitWindows& frame, MsgBox& msgBox, int count);

/// Says that the goods master does not know \a code, and that a registered one is wanted.
void sayUnregistered(MsgBox& msgBox, const AppIni& ini, std::string_view code);

} // namespace suisui
