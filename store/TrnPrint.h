// TrnPrint.ini: where a list report is printed on its paper.
#pragma once

#include <QString>

namespace suisui {

/// Key OffSetIchran of section FileName in {base}/Ini/TrnPrint.ini, at most four characters; empty when it is
/// missing. "ZERO" moves a list report to the corner of the printable area. Read at each call, so that a
/// change needs no restart.
[[nodiscard]] QString OffSetIchran(const QString& baseFolder);

} // namespace suisui
