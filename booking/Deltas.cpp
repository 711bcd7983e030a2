#include "booking/Deltas.h"

#include "booking/StockEffect.h"
#include "store/Numbers.h"

namespace suisui {

std::string componentScanDelta(std::string_view perUnit, std::string_view productQuantity)
{
    return CStr(-static_cast<double>(multiply(CLng(numberOf(perUnit)), CLng(numberOf(productQuantity)))));
}

std::string componentDelta(std::string_view perUnit, double productDelta)
{
    return CStr(componentEffect(productDelta, numberOf(perUnit)));
}

double updateDelta(int stockSign, const Figures& posted, const Figures& now)
{
    const double quantity = plus(now.quantity, -posted.quantity);
    const double returned = plus(now.returned, -posted.returned);
    return plus(quantity, -returned) * stockSign;
}

double deleteDelta(int stockSign, const Figures& posted)
{
    return plus(posted.returned, -posted.quantity) * stockSign;
}

} // namespace suisui
