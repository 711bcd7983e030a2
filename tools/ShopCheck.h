// Whether a shop's books hold together: the encodings of all columns, and for every code that the stock
// figure is what its movements make of it.
#pragma once

#include <string>
#include <vector>

#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// What does not hold, a line each; empty when all is well. \a db must be open.
///
/// For a code c: ZaikoSuu = KuriSuu + received - shipped - consumed. Received is NyuSuu less Henkyaku of its
/// receipts, as postings have it; shipped is SyuSuu, since a shipment's returns never reach the stock;
/// consumed is what receipts of products took of c as their component. The carry-forward that goes with
/// saving and loading periods counts NyuSuu alone, so from the first one on either is right.
[[nodiscard]] std::vector<std::string> checkShop(AppDB& db, Language language = Language::English);

} // namespace suisui
