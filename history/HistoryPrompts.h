// What saving and loading a period ask the operator. The rules know this interface; the dialogs
// implement it.
#pragma once

#include <functional>
#include <optional>

#include <QString>

#include "history/HistoryFile.h"

namespace suisui {

/// The question for a folder, when a period is saved, or for a file, when one is loaded.
struct PlaceQuestion
{
    QString kind = QStringLiteral("履歴"); ///< what the files are; each kind remembers a folder of its own
    bool saveMode = false;
    QString caption;
    QString pattern;                                               ///< of the files that are shown
    QString fileName;                                              ///< proposed for a new file
    std::function<void(const QString& folder)> beforeListing = {}; ///< runs before a folder's files are shown
};

struct Place
{
    QString folder;   ///< empty: the operator has cancelled
    QString fullPath; ///< of the file
    QString fileName; ///< of a file to be loaded without its extension
};

class HistoryPrompts
{
public:
    virtual ~HistoryPrompts() = default;

    /// The extension that all history files of this database will carry; empty for a cancel.
    [[nodiscard]] virtual QString askExtension() = 0;
    /// The period to save; nothing for a cancel.
    [[nodiscard]] virtual std::optional<Period> askPeriod() = 0;
    [[nodiscard]] virtual Place askPlace(const PlaceQuestion& question) = 0;
};

} // namespace suisui
