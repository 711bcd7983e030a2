#include "tools/Encodings.h"

#include <algorithm>
#include <map>
#include <vector>

#include <QByteArrayView>

#include "platform/core/RunTimeError.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

bool allDigits(std::string_view text, std::size_t length)
{
    return text.size() == length
           && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isKey(std::string_view text)
{
    return !text.empty();
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
    constexpr std::size_t leastDigits = 7;
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    return digits.size() >= leastDigits && allDigits(digits, digits.size());
}

/// Zeros may stand in front: the first posting of a code is stored as the movement had it.
bool isNumber(std::string_view text)
{
    try {
        (void)CDbl(text);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

/// An empty column of the master data is no quantity.
bool isNumberOrBlank(std::string_view text)
{
    return text.empty() || isNumber(text);
}

bool isCount(std::string_view text)
{
    return !text.empty() && allDigits(text, text.size());
}

// The history control has one row that is no period; it holds the extension of the history files.
bool isPeriodBegin(std::string_view text)
{
    return isDate(text) || text == "Trn";
}

bool isPeriodEnd(std::string_view text)
{
    return isDate(text) || text == "Vik";
}

struct Kind
{
    bool (*holds)(std::string_view);
    std::string_view fault;
};

constexpr Kind key{isKey, "is empty"};
constexpr Kind date{isDate, "is no date of eight digits"};
constexpr Kind time{isTime, "is no time of six digits"};
constexpr Kind stamp{isStamp, "is no time stamp of fourteen digits"};
constexpr Kind movement{isMovementNumber, "is no movement number (seven digits or more)"};
constexpr Kind number{isNumber, "is no number"};
constexpr Kind numberOrBlank{isNumberOrBlank, "is no number"};
constexpr Kind count{isCount, "is no count"};
constexpr Kind periodBegin{isPeriodBegin, "is no date of eight digits"};
constexpr Kind periodEnd{isPeriodEnd, "is no date of eight digits"};

struct Encoding
{
    const TableDef* table;
    std::string_view column;
    const Kind* kind;
};

// Columns that are not here hold any text.
constexpr Encoding encodings[] = {
    {&inpTable, "Code", &key},
    {&inpTable, "NyuSuu", &movement},
    {&inpTable, "NyuPrice", &movement},
    {&inpTable, "NyuNebiki", &movement},
    {&inpTable, "Henkyaku", &movement},
    {&inpTable, "NyuDate", &date},
    {&inpTable, "NyuTime", &time},
    {&inpTable, "InpDate", &stamp},
    {&inpTable, "UpdDate", &stamp},
    {&outTable, "Code", &key},
    {&outTable, "SyuSuu", &movement},
    {&outTable, "SyuPrice", &movement},
    {&outTable, "SyuNebiki", &movement},
    {&outTable, "RHenkyaku", &movement},
    {&outTable, "FHenkyaku", &movement},
    {&outTable, "SyuDate", &date},
    {&outTable, "SyuTime", &time},
    {&outTable, "InpDate", &stamp},
    {&outTable, "UpdDate", &stamp},
    {&zaikoTable, "Code", &key},
    {&zaikoTable, "ZaikoSuu", &number},
    {&zaikoTable, "KuriSuu", &number},
    {&zaikoTable, "InpDate", &stamp},
    {&zaikoTable, "UpdDate", &stamp},
    {&masterTable, "Code", &key},
    {&masterTable, "NyuSuu", &numberOrBlank},
    {&masterTable, "NyuPrice", &numberOrBlank},
    {&masterTable, "SyuSuu", &numberOrBlank},
    {&masterTable, "SyuPrice", &numberOrBlank},
    {&masterTable, "Stock", &numberOrBlank},
    {&hseihinTable, "Code", &key},
    {&hseihinTable, "HSeihinCD", &key},
    {&hseihinTable, "Suuryou", &number},
    {&kokyakuTable, "Code", &key},
    {&tantouTable, "Code", &key},
    {&rirekiTable, "DateFrom", &periodBegin},
    {&rirekiTable, "DateTo", &periodEnd},
    {&rirekiTable, "KakuTyo", &key},
    {&rirekiTable, "FileSize", &count},
    {&rirekiTable, "FileUpdate", &stamp},
};

/// Kinds of the columns of \a table in order, null where any text goes.
std::vector<const Kind*> kindsOf(const TableDef& table)
{
    std::vector<const Kind*> kinds(table.columns.size(), nullptr);
    for (const Encoding& encoding : encodings)
        if (encoding.table == &table) {
            const auto at = std::find(table.columns.begin(), table.columns.end(), encoding.column);
            kinds.at(static_cast<std::size_t>(at - table.columns.begin())) = encoding.kind;
        }
    return kinds;
}

const Kind* kindOf(const TableDef& table, int column)
{
    static const auto all = [] {
        std::map<const TableDef*, std::vector<const Kind*>> kinds;
        for (const TableDef* each : allTables())
            kinds.emplace(each, kindsOf(*each));
        return kinds;
    }();
    return all.at(&table).at(static_cast<std::size_t>(column));
}

} // namespace

std::string_view encodingFault(const TableDef& table, int column, std::string_view text)
{
    const bool isText = text.find('\0') == std::string_view::npos
                        && QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
    if (!isText)
        return "is no text in UTF-8";
    const Kind* kind = kindOf(table, column);
    return kind == nullptr || kind->holds(text) ? std::string_view() : kind->fault;
}

} // namespace suisui
