// What a printer is asked for and how that ended, by name. The figures are those of the printing interfaces
// that the rules speak of.
#pragma once

namespace suisui {

/// How a page or a document has ended.
enum class PrintStatus {
    Good = 0,
    Failed = -1, ///< the printer or the file is not there, takes no more, or did not get the document whole
};

/// What has come of the printer dialog.
enum class PrinterChoice {
    Cancelled = 0,
    GoOn = 1,
};

enum class PaperOrientation {
    Portrait = 1,
    Landscape = 2,
};

} // namespace suisui
