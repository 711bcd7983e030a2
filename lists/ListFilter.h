// What the operator asks a list for (period, goods, partner, staff), and the WHERE text that selects it.
#pragma once

#include <optional>
#include <string>

#include <QString>

#include "lists/ListSide.h"
#include "store/SqlText.h"

namespace suisui {

struct ListFilter
{
    std::string from; ///< "YYYYMMDD", both days included
    std::string to;
    /// Shown beside the word for goods: "（すべて）", a pattern or a name. It decides how the code is
    /// compared.
    QString goodsCaption;
    std::string chosenCode;             ///< the last accepted content of the code field
    std::optional<std::string> partner; ///< code; none for all partners
    std::optional<std::string> staff;
};

/// The condition, without an order.
[[nodiscard]] SqlText whereText(const ListSide& side, const ListFilter& filter);

} // namespace suisui
