// Remembers the settings of the last print of labels, separately for each source.
#pragma once

namespace suisui {

class AppIni;
class LabelSetup;
enum class LabelMode;

/// Chooses the sheet that is kept for the source \a mode, the first when none is, and gives the fields what
/// is kept for them. Where nothing good is kept the sheet's own figures stay.
void restoreLabelSettings(LabelSetup& setup, const AppIni& ini, LabelMode mode);
/// Keeps all fields for the source \a mode.
void storeLabelSettings(const LabelSetup& setup, AppIni& ini, LabelMode mode);

} // namespace suisui
