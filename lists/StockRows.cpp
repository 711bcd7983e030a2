#include "lists/StockRows.h"

#include <array>
#include <cmath>
#include <cstring>
#include <optional>

#include "frame/support/GridColumns.h"
#include "store/AppIni.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

constexpr std::array columns{
    SpreadColumn{.heading = "コード", .width = codeWidth},
    SpreadColumn{.heading = "名称", .width = 240},
    SpreadColumn{.heading = "在庫数", .type = CellType::Figure, .width = 120},
    SpreadColumn{.heading = "入荷単価", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "出荷単価", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "値引き", .type = CellType::Figure, .width = 94},
    SpreadColumn{.heading = "合計", .type = CellType::Figure, .width = 130},
    SpreadColumn{.heading = "単位", .width = 60},
    SpreadColumn{.heading = "最低在庫", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "", .hidden = true},
};
static_assert(columns.size() == StockCells::index);

const QColor red(255, 0, 0);
const QColor purple(192, 0, 192);
constexpr double widestAmount = 99999999999999.0;
constexpr const char* noFigure = "0";

/// A line as bytes, which its grid row keeps until the texts are needed.
struct LineBytes
{
    StockLineKind kind;
    bool lastGroup;
    double quantity, price, discount, amount;
};

PackedRow packedLine(const StockLine& line)
{
    const LineBytes bytes{line.kind, line.lastGroup, line.quantity, line.price, line.discount, line.amount};
    std::array<char, sizeof bytes> place{};
    std::memcpy(place.data(), &bytes, sizeof bytes);
    const std::string_view texts[] = {{place.data(), place.size()}, line.unit};
    return PackedRow(texts);
}

StockLine unpackedLine(const PackedRow& row)
{
    LineBytes bytes{};
    std::memcpy(&bytes, row.text(0).data(), sizeof bytes);
    return {bytes.kind,     bytes.lastGroup, bytes.quantity,          bytes.price,
            bytes.discount, bytes.amount,    std::string(row.text(1))};
}

constexpr int lineOfBlock = -1; // row number of the lines of a block, which have none in the row set

/// The figure in its mask. A damaged table may hold text that is not a number; that is shown as it is.
std::string shown(std::string_view text, std::string_view mask)
{
    const std::optional<double> figure = toFigure(text);
    return figure ? Format(*figure, mask) : std::string(text);
}

/// The colour of a stock figure that is too low; an invalid colour otherwise.
QColor warning(std::string_view stockText, std::string_view lowestText)
{
    const std::optional<double> stock = toFigure(stockText);
    const std::optional<double> lowest = toFigure(lowestText);
    if (!stock || !lowest)
        return red;
    if (*stock >= *lowest)
        return {};
    return *stock < 1 ? red : purple;
}

void makeGoods(const PackedRow& source, int index, std::span<std::string> texts)
{
    const auto put = [&](int cell, ZaikoViewCol column, std::string_view mask) {
        const std::string_view text = source.text(static_cast<int>(column));
        texts[static_cast<std::size_t>(cell - 1)] = mask.empty() ? std::string(text) : shown(text, mask);
    };
    using enum ZaikoViewCol;
    put(StockCells::code, Code, {});
    put(StockCells::name, Name, {});
    put(StockCells::quantity, ZaikoSuu, maskStock);
    put(StockCells::receiptPrice, NyuPrice, maskPrice);
    put(StockCells::shipmentPrice, SyuPrice, maskPrice);
    put(StockCells::unit, Unit, {});
    put(StockCells::lowest, Stock, maskPrice);
    texts[StockCells::index - 1] = std::to_string(index);
}

} // namespace

StockRows::StockRows(vaSpread& grid, const AppIni& ini) : m_grid(grid), m_ini(ini)
{
    grid.setColumns(columns);
    grid.setRowMaker([this](const PackedRow& source, int number, std::span<std::string> texts) {
        if (number == lineOfBlock)
            makeLine(unpackedLine(source), texts);
        else
            makeGoods(source, number, texts);
    });
}

void StockRows::putGoods(int row, const ZaikoViewRec& goods, int index)
{
    m_grid.setRowSource(row, goods.packed(index), index);
    const QColor color =
        warning(goods.get(index, ZaikoViewCol::ZaikoSuu), goods.get(index, ZaikoViewCol::Stock));
    if (!color.isValid())
        return;
    m_grid.setCellForeColor(StockCells::quantity, row, color);
    m_grid.setCellBold(StockCells::quantity, row, true);
}

void StockRows::putBlock(int row, const StockBlock& block)
{
    const auto warn = [this](int cell, int line, double figure) {
        if (figure >= 0)
            return;
        m_grid.setCellForeColor(cell, line, red);
        m_grid.setCellBold(cell, line, true);
    };
    for (const StockLine& line : block) {
        m_grid.setRowSource(row, packedLine(line), lineOfBlock);
        warn(StockCells::quantity, row, line.quantity);
        warn(StockCells::amount, row, line.amount);
        ++row;
    }
}

std::string StockRows::lineName(StockLineKind kind) const
{
    switch (kind) {
    case StockLineKind::In:
    case StockLineKind::NoIn:
        return "　① " + m_ini.Term(0).toStdString();
    case StockLineKind::Carried:
        return "　② 履歴繰越";
    case StockLineKind::InTotal:
        return "　合計 （ ①＋② ）";
    case StockLineKind::Out:
    case StockLineKind::NoOut:
        return "　③ " + m_ini.Term(1).toStdString();
    case StockLineKind::Consumed:
        return "　④ " + m_ini.MasterTerm(1).toStdString() + "消費";
    case StockLineKind::OutTotal:
        break;
    }
    return "　合計 （ ③＋④ ）";
}

void StockRows::makeLine(const StockLine& line, std::span<std::string> texts) const
{
    const auto put = [&texts](int cell, std::string text) {
        texts[static_cast<std::size_t>(cell - 1)] = std::move(text);
    };
    using enum StockLineKind;
    const bool none = line.kind == NoIn || line.kind == NoOut;
    const bool group = line.kind == In || line.kind == Out;
    const bool total = line.kind == InTotal || line.kind == OutTotal;
    put(StockCells::name, lineName(line.kind));
    put(StockCells::quantity, none ? noFigure : Format(line.quantity, maskA));
    if (!total) {
        const std::string_view mask =
            group && !line.lastGroup ? maskB : (group || none ? maskSmall : maskPrice);
        const bool shipment = line.kind == Out || line.kind == NoOut;
        put(shipment ? StockCells::shipmentPrice : StockCells::receiptPrice, Format(line.price, mask));
    }
    if (none)
        put(StockCells::discount, noFigure);
    else if (group || total)
        put(StockCells::discount, Format(line.discount, maskA));
    if (none)
        put(StockCells::amount, noFigure);
    else if (std::abs(line.amount) <= widestAmount)
        put(StockCells::amount, Format(line.amount, maskA));
    put(StockCells::unit, line.unit);
}

} // namespace suisui
