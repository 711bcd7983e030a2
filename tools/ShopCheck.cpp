#include "tools/ShopCheck.h"

#include <algorithm>
#include <initializer_list>

#include <QString>
#include <QStringDecoder>

#include "booking/BooksCheck.h"
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
    return toNumber(text).has_value();
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
                problems.push_back({phrases::isNotText, {place(rows, row, column)}});
            for (const Encoding& encoding : encodings)
                if (encoding.column == table.columns[column] && !encoding.holds(text))
                    problems.push_back(
                        {phrases::isNot, {place(rows, row, column), kindNamed(encoding.meaning)}});
        }
    }
}

Message messageOf(const BooksDifference& difference)
{
    if (difference.kind == BooksDifference::Kind::NoStockRow)
        return {phrases::noStockRow, {difference.code, CStr(difference.expected)}};
    return {phrases::stockDiffers, {difference.code, CStr(difference.stock), CStr(difference.expected)}};
}

Problems problemsOf(AppDB& db)
{
    Problems problems;
    if (db.OpenRecordset("SELECT integrity_check AS result FROM pragma_integrity_check") != DbStatus::Good)
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
        for (const BooksDifference& difference : checkBooks(
                 db, {.receipts = receipts, .shipments = shipments, .components = parts, .stock = stock}))
            problems.push_back(messageOf(difference));
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
