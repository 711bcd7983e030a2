#include "movement/Deltas.h"

#include "store/Numbers.h"

namespace suisui {

std::string componentScanDelta(std::string_view perUnit, std::string_view productQuantity)
{
    return CStr(-static_cast<double>(multiply(CLng(numberOf(perUnit)), CLng(numberOf(productQuantity)))));
}

std::string componentDelta(std::string_view perUnit, double productDelta)
{
    return CStr(numberOf(perUnit) * productDelta * -1);
}

double updateDelta(int stockSign, const Figures& posted, const Figures& now)
{
    return ((posted.quantity - now.quantity) - (posted.returned - now.returned)) * -1 * stockSign;
}

double deleteDelta(int stockSign, const Figures& posted)
{
    return (posted.quantity - posted.returned) * -1 * stockSign;
}

} // namespace suisui
