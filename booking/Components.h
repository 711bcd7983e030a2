// Moving the stock of a product's components.
#pragma once

#include <string>
#include <string_view>

#include "booking/ZaikoPost.h"
#include "store/AppDB.h"
#include "store/Where.h"

namespace suisui {

/// Posts each component of \a product, in the order of the table. \a deltaOf turns the component's quantity
/// in one unit (Suuryou) into its delta text. False when a posting failed; the caller rolls back. A list of
/// components that cannot be read counts as a failure: half a movement is worse than none.
template <typename DeltaOf>
[[nodiscard]] bool postComponents(AppDB& db, MsgBox& msgBox, std::string_view product, std::string_view stamp,
                                  DeltaOf deltaOf)
{
    HSeihinRec& components = db.HSeihinTbl();
    const int count = components.Select(whereCode(product));
    for (int row = 1; row <= count; ++row) {
        const std::string delta = deltaOf(components.get(row, HSeihinCol::Suuryou));
        std::string name;
        if (ZaikoPost(db, msgBox, components.get(row, HSeihinCol::HSeihinCD), delta, name, stamp)
            != PostResult::Posted)
            return false;
    }
    components.Clear();
    return count >= 0;
}

} // namespace suisui
