#include "platform/core/Code128.h"

#include <algorithm>
#include <memory>

#include <zint.h>

namespace suisui {

namespace {

struct DeleteSymbol
{
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using Symbol = std::unique_ptr<zint_symbol, DeleteSymbol>;

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c > '\0' && c < '\x7F'; });
}

bool isBar(const zint_symbol& symbol, int module)
{
    return ((symbol.encoded_data[0][module >> 3] >> (module & 7)) & 1) != 0;
}

} // namespace

std::optional<BarCodeModules> encodeCode128(std::string_view text)
{
    if (text.empty() || !isAscii(text))
        return std::nullopt;
    const Symbol symbol(ZBarcode_Create());
    if (!symbol)
        return std::nullopt;
    symbol->symbology = BARCODE_CODE128;
    symbol->show_hrt = 0;
    const int status = ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(text.data()),
                                       static_cast<int>(text.size()));
    if (status >= ZINT_ERROR)
        return std::nullopt;
    BarCodeModules result{.width = symbol->width, .bars = {}};
    result.bars.reserve(static_cast<std::size_t>(symbol->width) / 3);
    for (int module = 0; module < symbol->width; ++module) {
        if (!isBar(*symbol, module))
            continue;
        const int start = module;
        while (module < symbol->width && isBar(*symbol, module))
            ++module;
        result.bars.push_back({start, module - start});
    }
    return result;
}

} // namespace suisui
