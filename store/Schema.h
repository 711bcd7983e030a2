// Every table of the working database, described once: its columns in order, its key, its indexes.
// Creation, row sets, INSERT, UPDATE, copying, import and export are all derived from here.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace suisui {

struct IndexDef
{
    std::string_view columns; ///< comma-separated, as in CREATE INDEX
    bool unique = false;
};

struct TableDef
{
    std::string_view name;
    std::span<const std::string_view> columns;
    std::span<const IndexDef> indexes;
    bool keepRowsFlag = false; ///< Select with mode "1" adds only while the keep-rows flag is set

    [[nodiscard]] constexpr int columnCount() const { return static_cast<int>(columns.size()); }
};

// Columns of the tables, in table order, as indexes for the row sets.
enum class InpCol {
    Code,
    Name,
    NameKN,
    NyuSuu,
    NyuPrice,
    NyuSakiCD,
    NysName,
    NyuDate,
    NyuTime,
    Unit,
    NyuNebiki,
    Henkyaku,
    TanCD,
    TanName,
    Bikou,
    InpDate,
    UpdDate,
    Columns
};
enum class OutCol {
    Code,
    Name,
    NameKN,
    SyuSuu,
    SyuPrice,
    SyuSakiCD,
    SysName,
    SyuDate,
    SyuTime,
    Unit,
    SyuNebiki,
    RHenkyaku,
    FHenkyaku,
    TanCD,
    TanName,
    Bikou,
    TyoDate,
    TyoTime,
    InpDate,
    UpdDate,
    Columns
};
enum class ZaikoCol { Code, ZaikoSuu, KuriSuu, InpDate, UpdDate, Columns };
enum class MasterCol {
    Code,
    Name,
    NameKN,
    NyuSuu,
    NyuPrice,
    SyuSuu,
    SyuPrice,
    Unit,
    Stock,
    InpDate,
    UpdDate,
    Columns
};
enum class HSeihinCol { Code, Name, HSeihinCD, Suuryou, HSeihinName, InpDate, UpdDate, Columns };
enum class KokyakuCol {
    Code,
    Name,
    NameKN,
    YubinNo,
    Todoufuken,
    Jyusyo1,
    Jyusyo2,
    Tel,
    Fax,
    Mail,
    Tantou,
    Busyo,
    Keisyo,
    NyuKyk,
    SyuKyk,
    Simebi,
    Siharai,
    Bikou,
    InpDate,
    UpdDate,
    Columns
};
enum class TantouCol {
    Code,
    Name,
    NameKN,
    Busyo,
    Yakusyoku,
    YubinNo,
    Jyusyo1,
    Jyusyo2,
    Tel,
    Fax,
    Mail,
    Nyusya,
    Bikou,
    InpDate,
    UpdDate,
    Columns
};
enum class RirekiCol { DateFrom, DateTo, KakuTyo, FileSize, FileUpdate, Columns };

extern const TableDef inpTable;     // InpTB, receipts
extern const TableDef outTable;     // OutTB, shipments
extern const TableDef zaikoTable;   // ZaikoTB, stock
extern const TableDef masterTable;  // Master, goods
extern const TableDef hseihinTable; // HSeihinTB, components of goods made from others
extern const TableDef kokyakuTable; // KokyakuTB, partners: suppliers and customers
extern const TableDef tantouTable;  // TantouTB, staff
extern const TableDef rirekiTable;  // RirekiTB, saved periods

/// All of them, in the order above.
[[nodiscard]] std::span<const TableDef* const> allTables();

/// Version of the layout that this program writes; PRAGMA user_version of the file.
inline constexpr int schemaVersion = 1;

/// Name of index \a index of \a table, counted from 0.
[[nodiscard]] std::string indexName(const TableDef& table, std::size_t index);

/// CREATE TABLE and CREATE INDEX statements of \a table, one for each entry, the table's first.
[[nodiscard]] std::span<const std::string> createStatements(const TableDef& table);

} // namespace suisui
