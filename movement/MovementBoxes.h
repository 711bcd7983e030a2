// The words of the boxes that an entry tab shows. What a side calls itself (term) and the goods are words of
// the shop.
#pragma once

#include <QString>

#include "platform/core/MsgBox.h"
#include "movement/MovementSide.h"

namespace suisui {

/// The goods master does not know \a code.
[[nodiscard]] Box unregisteredBox(const QString& goods, const QString& code);
/// The new row is not in the table.
[[nodiscard]] Box notStoredBox(const MovementSide& side);
/// Whether \a typed, which is a code, shall be the quantity in place of \a quantity.
[[nodiscard]] Box quantityQuestion(const QString& typed, const QString& goods, const QString& quantity);
[[nodiscard]] Box updateQuestion(const QString& term);
[[nodiscard]] Box updatedBox(const QString& term);
[[nodiscard]] Box deleteQuestion(const MovementSide& side, const QString& term);
[[nodiscard]] Box deletedBox(const QString& term);
/// Another program has changed the rows that were to be updated or deleted.
[[nodiscard]] Box concurrentChangeBox(const QString& term, bool deleting);

} // namespace suisui
