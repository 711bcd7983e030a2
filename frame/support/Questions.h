// Questions and complaints that several screens put in the same words.
#pragma once

#include <string_view>

namespace suisui {

class AppIni;
class MsgBox;

/// Asks whether \a count found rows shall be shown, although that takes its time.
[[nodiscard]] bool agreesToManyRows(MsgBox& msgBox, int count);

/// Says that the goods master does not know \a code, and that a registered one is wanted.
void sayUnregistered(MsgBox& msgBox, const AppIni& ini, std::string_view code);

} // namespace suisui
