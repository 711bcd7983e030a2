#include "lists/SlipFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "lists/ListHeadings.h"
#include "platform/core/CodePage.h"
#include "platform/core/Files.h"

namespace suisui {

namespace {

constexpr std::string_view amountHeading = "合計(税込)";

std::array<int, 8> slipCells(const ListCells& cells)
{
    return {cells.code, cells.name,     cells.price,  cells.quantity,
            cells.unit, cells.discount, cells.amount, cells.remark};
}

void addField(std::string& text, std::string_view field)
{
    for (const char c : field) {
        const bool endsLine = c == '\r' || c == '\n' || c == '\0';
        text += endsLine ? ' ' : c;
    }
    text += ',';
}

} // namespace

std::string slipText(const ListSide& side, const AppIni& ini, const vaSpread& grid)
{
    constexpr std::size_t usualLine = 96;
    const std::array<int, 8> cells = slipCells(side.cells);
    std::string text;
    text.reserve(usualLine * static_cast<std::size_t>(grid.MaxRows() + 1));
    for (const int cell : cells)
        addField(text, cell == side.cells.amount ? std::string(amountHeading) : heading(side, ini, cell));
    text += "\r\n";
    for (int row = 1; row <= grid.MaxRows(); ++row) {
        for (const int cell : cells)
            addField(text, grid.text(cell, row));
        text += "\r\n";
    }
    return text;
}

bool writeSlipFile(const QString& path, const std::string& text)
{
    const std::string bytes = toCp932(text, '?');
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    const bool written =
        file.open(QIODevice::WriteOnly)
        && file.write(bytes.data(), static_cast<qint64>(bytes.size())) == static_cast<qint64>(bytes.size())
        && file.flush() // commit() alone misses a full disk
        && file.commit();
    if (written)
        (void)syncToDisk(QFile::encodeName(QFileInfo(path).absolutePath()).toStdString());
    return written;
}

} // namespace suisui
