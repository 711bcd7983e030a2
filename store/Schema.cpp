#include "store/Schema.h"

#include <iterator>
#include <map>
#include <vector>

namespace suisui {

namespace {

constexpr std::string_view inpColumns[]{"Code",    "Name",    "NameKN",  "NyuSuu",  "NyuPrice",  "NyuSakiCD",
                                        "NysName", "NyuDate", "NyuTime", "Unit",    "NyuNebiki", "Henkyaku",
                                        "TanCD",   "TanName", "Bikou",   "InpDate", "UpdDate"};
constexpr std::string_view outColumns[]{"Code",      "Name",      "NameKN",    "SyuSuu",  "SyuPrice",
                                        "SyuSakiCD", "SysName",   "SyuDate",   "SyuTime", "Unit",
                                        "SyuNebiki", "RHenkyaku", "FHenkyaku", "TanCD",   "TanName",
                                        "Bikou",     "TyoDate",   "TyoTime",   "InpDate", "UpdDate"};
constexpr std::string_view zaikoColumns[]{"Code", "ZaikoSuu", "KuriSuu", "InpDate", "UpdDate"};
constexpr std::string_view masterColumns[]{"Code",     "Name", "NameKN", "NyuSuu",  "NyuPrice", "SyuSuu",
                                           "SyuPrice", "Unit", "Stock",  "InpDate", "UpdDate"};
constexpr std::string_view hseihinColumns[]{"Code",        "Name",    "HSeihinCD", "Suuryou",
                                            "HSeihinName", "InpDate", "UpdDate"};
constexpr std::string_view kokyakuColumns[]{"Code",    "Name",    "NameKN", "YubinNo", "Todoufuken",
                                            "Jyusyo1", "Jyusyo2", "Tel",    "Fax",     "Mail",
                                            "Tantou",  "Busyo",   "Keisyo", "NyuKyk",  "SyuKyk",
                                            "Simebi",  "Siharai", "Bikou",  "InpDate", "UpdDate"};
constexpr std::string_view tantouColumns[]{"Code",    "Name",    "NameKN",  "Busyo",   "Yakusyoku",
                                           "YubinNo", "Jyusyo1", "Jyusyo2", "Tel",     "Fax",
                                           "Mail",    "Nyusya",  "Bikou",   "InpDate", "UpdDate"};
constexpr std::string_view rirekiColumns[]{"DateFrom", "DateTo", "KakuTyo", "FileSize", "FileUpdate"};

template <typename Column, std::size_t N> constexpr bool matches(const std::string_view (&)[N])
{
    return static_cast<std::size_t>(Column::Columns) == N;
}
static_assert(matches<InpCol>(inpColumns) && std::size(inpColumns) == 17);
static_assert(matches<OutCol>(outColumns) && std::size(outColumns) == 20);
static_assert(matches<ZaikoCol>(zaikoColumns) && std::size(zaikoColumns) == 5);
static_assert(matches<MasterCol>(masterColumns) && std::size(masterColumns) == 11);
static_assert(matches<HSeihinCol>(hseihinColumns) && std::size(hseihinColumns) == 7);
static_assert(matches<KokyakuCol>(kokyakuColumns) && std::size(kokyakuColumns) == 20);
static_assert(matches<TantouCol>(tantouColumns) && std::size(tantouColumns) == 15);
static_assert(matches<RirekiCol>(rirekiColumns) && std::size(rirekiColumns) == 5);

// The unique key first, if there is one, then the columns that are searched by.
constexpr IndexDef inpIndexes[] = {{"InpDate, Code", true}, {"NyuDate, NyuTime"}, {"Code"}};
constexpr IndexDef outIndexes[] = {{"InpDate, Code", true}, {"SyuDate, SyuTime"}, {"Code"}};
constexpr IndexDef codeIndex[] = {{"Code", true}};
constexpr IndexDef hseihinIndexes[] = {{"Code"}, {"HSeihinCD"}};
constexpr IndexDef rirekiIndexes[] = {{"DateFrom, DateTo", true}};

std::vector<std::string> statementsFor(const TableDef& table)
{
    std::string create = "CREATE TABLE " + std::string(table.name) + " (";
    for (const std::string_view column : table.columns) {
        create += column;
        // Codes are compared without regard to case, since shops type them either way.
        create += " TEXT NOT NULL DEFAULT '' COLLATE NOCASE, ";
    }
    create.replace(create.size() - 2, 2, ")");
    std::vector<std::string> statements{create};
    for (std::size_t i = 0; i < table.indexes.size(); ++i) {
        const IndexDef& index = table.indexes[i];
        statements.push_back("CREATE " + std::string(index.unique ? "UNIQUE INDEX " : "INDEX ")
                             + indexName(table, i) + " ON " + std::string(table.name) + " ("
                             + std::string(index.columns) + ")");
    }
    return statements;
}

} // namespace

const TableDef inpTable{.name = "InpTB", .columns = inpColumns, .indexes = inpIndexes};
const TableDef outTable{.name = "OutTB", .columns = outColumns, .indexes = outIndexes};
const TableDef zaikoTable{.name = "ZaikoTB", .columns = zaikoColumns, .indexes = codeIndex};
const TableDef masterTable{
    .name = "Master", .columns = masterColumns, .indexes = codeIndex, .keepRowsFlag = true};
const TableDef hseihinTable{.name = "HSeihinTB", .columns = hseihinColumns, .indexes = hseihinIndexes};
const TableDef kokyakuTable{
    .name = "KokyakuTB", .columns = kokyakuColumns, .indexes = codeIndex, .keepRowsFlag = true};
const TableDef tantouTable{
    .name = "TantouTB", .columns = tantouColumns, .indexes = codeIndex, .keepRowsFlag = true};
const TableDef rirekiTable{.name = "RirekiTB", .columns = rirekiColumns, .indexes = rirekiIndexes};

std::span<const TableDef* const> allTables()
{
    static constexpr std::array tables{&inpTable,     &outTable,     &zaikoTable,  &masterTable,
                                       &hseihinTable, &kokyakuTable, &tantouTable, &rirekiTable};
    return tables;
}

std::string indexName(const TableDef& table, std::size_t index)
{
    return std::string(table.name) + "_" + std::to_string(index + 1);
}

std::span<const std::string> createStatements(const TableDef& table)
{
    static const std::map<std::string_view, std::vector<std::string>> statements = [] {
        std::map<std::string_view, std::vector<std::string>> all;
        for (const TableDef* each : allTables())
            all.emplace(each->name, statementsFor(*each));
        return all;
    }();
    return statements.at(table.name);
}

} // namespace suisui
