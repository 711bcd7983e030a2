// What saving and loading a period share, for the sources of RirekiDB alone.
#pragma once

#include <QString>

#include "history/RirekiDB.h"
#include "platform/core/AwayFromLoop.h"
#include "store/Side.h"

namespace suisui {

/// A save or a load, as far as the operator sees a difference.
struct RirekiDB::Job
{
    QString waitTag;
    QString errorTitle;
    QString errorText;
    QString writeRefused; ///< reason where the file system takes no write
};

inline constexpr Side sides[] = {Side::Receipt, Side::Shipment};

inline const QString deviceNotReady = QStringLiteral("　　　デバイス（ドライブ）の準備ができていません。");

/// Result of \a work, done away from the loop.
template <typename Work> auto away(Work work)
{
    decltype(work()) result{};
    awayFromLoop([&] { result = work(); });
    return result;
}

} // namespace suisui
