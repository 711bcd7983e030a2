// Remembers the settings of the last print of labels, separately for each source.
#pragma once

namespace suisui {

class AppIni;
class LabelSetup;
enum class LabelMode;

/// Chooses the sheet that is saved for the source \a mode, or else the first, and fills the fields with their
/// saved texts. A field without a valid saved text keeps the figure of the sheet.
void restoreLabelSettings(LabelSetup& setup, const AppIni& ini, LabelMode mode);
/// Saves the fields that have a key in the settings, for the source \a mode.
void storeLabelSettings(const LabelSetup& setup, AppIni& ini, LabelMode mode);

} // namespace suisui
