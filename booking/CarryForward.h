// The stock carried forward: the part of each stock figure that the movements now in the tables do not
// explain. It is computed anew whenever movements have left the tables or come back, and the stock itself
// never moves.
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
/// over the movements in the tables, returned quantities left out; and UpdDate = \a stamp. A row that a
/// posting of the same second has stamped already goes on from its KuriSuu instead of its ZaikoSuu.
///
/// Good when done. Otherwise nothing may be committed: a number could not be read, or the store has failed.
/// \a stepDone is called after each of the four steps.
[[nodiscard]] DbStatus carryForward(AppDB& db, const std::string& stamp,
                                    const std::function<void()>& stepDone);

} // namespace suisui
