// What each of the six movements posts to stock. Pure arithmetic; ZaikoPost takes the texts as they are.
#pragma once

#include <string>
#include <string_view>

namespace suisui {

/// Quantity and returned quantity of a movement row.
struct Figures
{
    double quantity = 0;
    double returned = 0; ///< 0 where returns do not move stock
};

/// A component's delta on the scan of its product: minus per-unit quantity times the product's, both rounded
/// to whole numbers first. Throws RunTimeError::Overflow beyond 32 bits.
[[nodiscard]] std::string componentScanDelta(std::string_view perUnit, std::string_view productQuantity);

/// A component's delta on update and delete of its product: minus per-unit quantity times the product's
/// delta.
[[nodiscard]] std::string componentDelta(std::string_view perUnit, double productDelta);

/// The goods item's delta when a row changes from \a posted to \a now. \a stockSign is +1 for receipts and
/// -1 for shipments.
[[nodiscard]] double updateDelta(int stockSign, const Figures& posted, const Figures& now);

/// The goods item's delta when a row that was posted as \a posted is deleted.
[[nodiscard]] double deleteDelta(int stockSign, const Figures& posted);

} // namespace suisui
