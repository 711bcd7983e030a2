// The stock carried forward: the part of each stock figure that the movements now in the tables do not
// explain. It is computed again whenever movements have left the tables or come back; the stock itself does
// not change.
#pragma once

#include <functional>
#include <string>

#include "store/DbStatus.h"

namespace suisui {

class AppDB;

/// For every stock row, whatever was carried before:
///
///     KuriSuu = ZaikoSuu - received + shipped + taken as a component of received products
///
/// over the movements in the tables, without returned quantities; and UpdDate = \a stamp. For a row that a
/// posting of the same second has already stamped, KuriSuu takes the place of ZaikoSuu in this.
///
/// Good when done. Otherwise nothing may be committed: a number could not be read, or the store has failed.
/// \a stepDone is called after each of the four steps.
[[nodiscard]] DbStatus carryForward(AppDB& db, const std::string& stamp,
                                    const std::function<void()>& stepDone);

} // namespace suisui
