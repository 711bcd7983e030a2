#include "tools/ShopCheck.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>

#include <QString>
#include <QStringDecoder>

#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "tools/Cause.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

using Problems = std::vector<Message>;

bool allDigits(std::string_view text, std::size_t length)
{
    return text.size() == length
           && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isDate(std::string_view text)
{
    return allDigits(text, 8);
}
bool isTime(std::string_view text)
{
    return allDigits(text, 6);
}
bool isStamp(std::string_view text)
{
    return allDigits(text, 14);
}

bool isMovementNumber(std::string_view text)
{
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    return digits.size() >= 7 && allDigits(digits, digits.size());
}

bool isNumber(std::string_view text)
{
    try {
        (void)CDbl(text);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

struct Encoding
{
    std::string_view column;
    bool (*holds)(std::string_view);
    std::string_view meaning;
};

constexpr Encoding movementEncodings[] = {
    {"NyuSuu", isMovementNumber, "movement number"},
    {"NyuPrice", isMovementNumber, "movement number"},
    {"NyuNebiki", isMovementNumber, "movement number"},
    {"Henkyaku", isMovementNumber, "movement number"},
    {"SyuSuu", isMovementNumber, "movement number"},
    {"SyuPrice", isMovementNumber, "movement number"},
    {"SyuNebiki", isMovementNumber, "movement number"},
    {"RHenkyaku", isMovementNumber, "movement number"},
    {"FHenkyaku", isMovementNumber, "movement number"},
    {"NyuDate", isDate, "date"},
    {"SyuDate", isDate, "date"},
    {"NyuTime", isTime, "time"},
    {"SyuTime", isTime, "time"},
    {"InpDate", isStamp, "time stamp"},
    {"UpdDate", isStamp, "time stamp"},
};
constexpr Encoding stockEncodings[] = {
    {"ZaikoSuu", isNumber, "stock number"},
    {"KuriSuu", isNumber, "stock number"},
    {"InpDate", isStamp, "time stamp"},
    {"UpdDate", isStamp, "time stamp"},
};

bool isUtf8(std::string_view text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    return !decoder.hasError() && decoded.size() >= 0;
}

Message place(const RowSet& rows, int row, std::size_t column)
{
    return {phrases::cellOf,
            {rows.table().name, std::to_string(row), rows.table().columns[column],
             rows.get(row, static_cast<int>(column))}};
}

void checkEncodings(const RowSet& rows, std::span<const Encoding> encodings, Problems& problems)
{
    const TableDef& table = rows.table();
    for (int row = 1; row <= rows.Count(); ++row) {
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            const std::string_view text = rows.get(row, static_cast<int>(column));
            if (!isUtf8(text))
                problems.push_back({phrases::isNoText, {place(rows, row, column)}});
            for (const Encoding& encoding : encodings)
                if (encoding.column == table.columns[column] && !encoding.holds(text))
                    problems.push_back(
                        {phrases::isNo, {place(rows, row, column), kindNamed(encoding.meaning)}});
        }
    }
}

std::string folded(std::string_view code)
{
    std::string text(code);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
    return text;
}

/// A stock figure as it stands in the table, and the part of it that was carried forward.
struct StockFigure
{
    double figure = 0;
    double carried = 0;
};

/// What movements make of a code's stock.
struct Moved
{
    double net = 0;   ///< with the returns of receipts taken off, as postings have it
    double gross = 0; ///< without, as the carry-forward has it
    double size = 0;  ///< all that came and went, whichever way

    void add(double netQuantity, double grossQuantity)
    {
        net = plus(net, netQuantity);
        gross = plus(gross, grossQuantity);
        size += std::abs(netQuantity) + std::abs(grossQuantity);
    }
    /// Whether they make \a stock, on 15 digits counted from the largest figure that had a part in it: what a
    /// text carries, and what older versions of the program have lost behind them. Once periods were saved a
    /// movement may be counted either way: without returns up to the last save or load, with them since.
    [[nodiscard]] bool make(const StockFigure& stock, bool periodsWereSaved) const
    {
        constexpr double lastDigit = 1e-15;
        const double quantity = plus(stock.figure, -stock.carried);
        const double other = periodsWereSaved ? gross : net;
        const double room = (size + std::abs(stock.figure) + std::abs(stock.carried)) * lastDigit;
        return quantity >= std::min(net, other) - room && quantity <= std::max(net, other) + room;
    }
};

/// What the movements now in the tables make of each code's stock.
std::map<std::string, Moved> movedStock(const InpRec& receipts, const OutRec& shipments,
                                        const HSeihinRec& parts)
{
    std::multimap<std::string, std::pair<std::string, double>> components;
    for (int row = 1; row <= parts.Count(); ++row)
        components.emplace(folded(parts.get(row, HSeihinCol::Code)),
                           std::pair(folded(parts.get(row, HSeihinCol::HSeihinCD)),
                                     numberOf(parts.get(row, HSeihinCol::Suuryou))));
    std::map<std::string, Moved> moved;
    for (int row = 1; row <= receipts.Count(); ++row) {
        const std::string code = folded(receipts.get(row, InpCol::Code));
        const double gross = numberOf(receipts.get(row, InpCol::NyuSuu));
        const double net = plus(gross, -numberOf(receipts.get(row, InpCol::Henkyaku)));
        moved[code].add(net, gross);
        const auto [first, last] = components.equal_range(code);
        for (auto part = first; part != last; ++part)
            moved[part->second.first].add(-times(net, part->second.second),
                                          -times(gross, part->second.second));
    }
    for (int row = 1; row <= shipments.Count(); ++row) {
        const double shipped = numberOf(shipments.get(row, OutCol::SyuSuu));
        moved[folded(shipments.get(row, OutCol::Code))].add(-shipped, -shipped);
    }
    return moved;
}

void checkStock(AppDB& db, const ZaikoRec& stock, std::map<std::string, Moved> moved, Problems& problems)
{
    const bool periodsWereSaved = db.RirekiTbl().CountRows("WHERE DateFrom='Trn'") > 0;
    for (int row = 1; row <= stock.Count(); ++row) {
        const std::string code = folded(stock.get(row, ZaikoCol::Code));
        const StockFigure figures{.figure = numberOf(stock.get(row, ZaikoCol::ZaikoSuu)),
                                  .carried = numberOf(stock.get(row, ZaikoCol::KuriSuu))};
        const Moved made = moved[code];
        moved.erase(code);
        if (!made.make(figures, periodsWereSaved))
            problems.push_back({phrases::stockDiffers,
                                {stock.get(row, ZaikoCol::Code), CStr(figures.figure),
                                 CStr(plus(figures.carried, made.net))}});
    }
    MasterRec& master = db.MasterPost();
    std::map<std::string, bool> known;
    master.Select({});
    for (int row = 1; row <= master.Count(); ++row)
        known[folded(master.get(row, MasterCol::Code))] = true;
    master.Clear();
    // A code that is in neither table is skipped by the postings, so it owes nothing here either.
    for (const auto& [code, quantity] : moved)
        if (!quantity.make({}, false) && known.contains(code))
            problems.push_back({phrases::noStockRow, {code, CStr(quantity.net)}});
}

Problems problemsOf(AppDB& db)
{
    Problems problems;
    if (db.OpenRecordset("SELECT integrity_check AS result FROM pragma_integrity_check") != 0)
        return {{phrases::fileUnreadable, {causeOf(db)}}};
    for (; !db.recordset().atEof(); db.recordset().MoveNext())
        if (const std::string result = db.recordset().Fields("result"); result != "ok")
            problems.push_back({phrases::fileDamaged, {result}});
    db.CloseRecordset();
    InpRec receipts(db, inpTable);
    OutRec shipments(db, outTable);
    ZaikoRec stock(db, zaikoTable);
    HSeihinRec parts(db, hseihinTable);
    MasterRec goods(db, masterTable);
    KokyakuRec partners(db, kokyakuTable);
    TantouRec staff(db, tantouTable);
    RirekiRec periods(db, rirekiTable);
    RowSet* const all[] = {&receipts, &shipments, &stock, &parts, &goods, &partners, &staff, &periods};
    for (RowSet* rows : all)
        if (rows->Select({}) < 0)
            return {{phrases::tableUnreadable, {rows->table().name, causeOf(db)}}};
    checkEncodings(receipts, movementEncodings, problems);
    checkEncodings(shipments, movementEncodings, problems);
    checkEncodings(stock, stockEncodings, problems);
    for (const RowSet* rows :
         std::initializer_list<const RowSet*>{&parts, &goods, &partners, &staff, &periods})
        checkEncodings(*rows, {}, problems);
    try {
        checkStock(db, stock, movedStock(receipts, shipments, parts), problems);
    } catch (const RunTimeError& error) {
        problems.push_back({phrases::stockNotComputed, {error.what()}});
    }
    return problems;
}

} // namespace

std::vector<std::string> checkShop(AppDB& db, Language language)
{
    std::vector<std::string> lines;
    for (const Message& problem : problemsOf(db))
        lines.push_back(problem.in(language));
    return lines;
}

} // namespace suisui
