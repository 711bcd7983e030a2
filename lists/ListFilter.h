// The conditions of a list, as the operator has set them, and the condition text that they make.
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
    /// What stands beside the word for goods: "（すべて）", a pattern or a name. It decides how the code is
    /// compared.
    QString goodsCaption;
    std::string chosenCode;             ///< the last accepted content of the code field
    std::optional<std::string> partner; ///< code; nothing for all of them
    std::optional<std::string> staff;
};

/// The condition, without an order.
[[nodiscard]] SqlText whereText(const ListSide& side, const ListFilter& filter);

} // namespace suisui
