// Changing what goods are made of. Receipts that were booked with the old parts stay in the books, so whoever
// changes HSeihinTB must carry the difference forward, or the stock of those parts would never again be what
// its movements make of it.
#pragma once

#include <functional>
#include <string_view>

namespace suisui {

class AppDB;

/// Runs \a change, which adds, alters and deletes rows of HSeihinTB, and then carries forward for each part
/// of which some product now takes another quantity: KuriSuu becomes what the movements in the tables do not
/// explain, UpdDate becomes \a stamp, and the stock itself does not change. A part without a stock row gets
/// one when its movements now need it. Everything belongs to the unit of work of \a change.
///
/// Returned quantities are left out once a period was saved, as the saving and loading of periods leave them
/// out, and taken off before that, as postings take them off.
///
/// False when \a change says so, or when a table could not be read or written; the caller rolls back.
[[nodiscard]] bool changeComponents(AppDB& db, std::string_view stamp, const std::function<bool()>& change);

} // namespace suisui
