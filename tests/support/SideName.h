// The sides in the names of parametrised tests.
#pragma once

#include <string>

#include "store/Side.h"

namespace suisui::test {

[[nodiscard]] inline std::string sideName(Side side)
{
    return side == Side::Receipt ? "receipts" : "shipments";
}

} // namespace suisui::test
