#include "history/UnfinishedSave.h"

#include <filesystem>
#include <optional>

#include <QDir>

#include "history/HistoryFile.h"
#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Schema.h"
#include "store/SqlText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr qsizetype extensionAt = 21; // of "RRK20260101-20260131.hst"
const QString asideEnding = u".new"_s;

QString nameOf(const std::string& path)
{
    return QString::fromStdString(path.substr(path.rfind('/') + 1));
}

bool isThere(const std::string& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

/// The size as the list has it; nothing for a file that cannot be had.
std::optional<std::string> sizeOf(const std::string& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error ? std::nullopt : std::optional(std::to_string(size));
}

/// True when nothing of the save is left to be done.
bool settle(AppDB& db, const std::string& path)
{
    const std::string aside = asideOf(path);
    if (!isThere(aside))
        return isThere(folderOf(path));
    switch (listingOf(db, aside, path)) {
    case Listing::Listed:
        return giveName(aside, path);
    case Listing::NotListed:
        return removeFile(aside);
    case Listing::Unknown:
        break;
    }
    return false;
}

} // namespace

FileFit fitOf(const RirekiRec& rows, int row, const std::string& file)
{
    const std::optional<std::string> size = sizeOf(file);
    if (!size)
        return FileFit::Unreadable;
    if (*size != rows.get(row, RirekiCol::FileSize))
        return FileFit::Differs;
    const std::optional<std::uint32_t> mark = AppDB::MarkOf(file);
    if (!mark)
        return FileFit::Unreadable;
    const bool same = *mark == 0 || *mark == historyMark(rows.get(row, RirekiCol::FileUpdate));
    return same ? FileFit::Fits : FileFit::Differs;
}

Listing listingOf(AppDB& db, const std::string& aside, const std::string& path)
{
    const QString name = nameOf(path);
    const Period period = periodOf(name);
    RirekiRec rows(db, rirekiTable); // RirekiTbl holds what its callers have selected
    const int count =
        rows.Select("Where DateFrom = " + bound(period.from) + "  And DateTo = " + bound(period.to)
                    + "  And KakuTyo = " + bound(name.mid(extensionAt).toStdString()));
    if (count < 0)
        return Listing::Unknown;
    const std::uint32_t mark = AppDB::MarkOf(aside).value_or(0);
    const bool listed = count > 0 && mark != 0 && sizeOf(aside) == rows.get(1, RirekiCol::FileSize)
                        && mark == historyMark(rows.get(1, RirekiCol::FileUpdate));
    return listed ? Listing::Listed : Listing::NotListed;
}

void settleUnfinishedSave(AppDB& db, AppIni& ini)
{
    const std::string path = ini.SaveInTheMaking().toStdString();
    if (!path.empty() && settle(db, path))
        ini.setSaveInTheMaking({});
}

void nameListedFiles(AppDB& db, const QString& folder, const QString& extension)
{
    const QStringList candidates =
        QDir(folder).entryList({u".RRK*."_s + extension + asideEnding}, QDir::Files | QDir::Hidden);
    for (const QString& candidate : candidates) {
        const QString name = candidate.sliced(1).chopped(asideEnding.size());
        const std::string path = QDir(folder).filePath(name).toStdString();
        if (listingOf(db, asideOf(path), path) == Listing::Listed)
            (void)giveName(asideOf(path), path); // a folder that takes no name is not loaded from either
    }
}

} // namespace suisui
