#include "tests/tools/JetWriter.h"

#include <algorithm>
#include <array>
#include <numeric>

#include <QString>

#include "platform/core/CodePage.h"

namespace suisui::test {

namespace {

/// Offsets in which the two formats differ.
struct Layout
{
    std::size_t page, rowCount, rows, columnCount, indexCount, usageMap, freeMap, columns, columnEntry;
    std::size_t number, varNumber, rowNumber, flags, fixedOffset, size;
};
constexpr Layout three{2048, 8, 12, 25, 27, 35, 39, 43, 18, 1, 3, 5, 13, 14, 16};
constexpr Layout four{4096, 12, 16, 45, 47, 55, 59, 63, 25, 5, 7, 9, 15, 21, 23};

const Layout& layoutOf(Jet version)
{
    return version == Jet::Three ? three : four;
}

std::string little(std::uint32_t value, std::size_t bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i));
    return text;
}

void put(std::string& page, std::size_t at, std::size_t value, std::size_t bytes)
{
    page.replace(at, bytes, little(static_cast<std::uint32_t>(value), bytes));
}

/// RC4 (Schneier, Applied Cryptography, 17.1): the header is scrambled with a key that everybody knows.
void scramble(std::string& bytes, std::size_t from, std::size_t count)
{
    constexpr std::array<unsigned, 4> key{0xC7, 0xDA, 0x39, 0x6B};
    std::array<unsigned, 256> s{};
    std::iota(s.begin(), s.end(), 0U);
    for (unsigned i = 0, j = 0; i < 256; ++i) {
        j = (j + s[i] + key[i % 4]) % 256;
        std::swap(s[i], s[j]);
    }
    unsigned a = 0;
    unsigned b = 0;
    for (std::size_t i = from; i < from + count; ++i) {
        a = (a + 1) % 256;
        b = (b + s[a]) % 256;
        std::swap(s[a], s[b]);
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes[i]) ^ s[(s[a] + s[b]) % 256]);
    }
}

bool isFixed(const JetTable::Column& column)
{
    return column.type == JetTable::Integer || column.type == JetTable::Long || column.type == JetTable::Date;
}

std::size_t sizeOf(const JetTable::Column& column)
{
    switch (column.type) {
    case JetTable::Integer:
        return 2;
    case JetTable::Long:
        return 4;
    case JetTable::Date:
        return 8;
    default:
        return 255;
    }
}

/// The ends of a row of the older format: offsets of one byte, and a table of where they pass a multiple of
/// 256.
std::string tailOfThree(const std::vector<std::size_t>& offsets, std::size_t maskBytes)
{
    // One entry for each 256 bytes of the finished row, these entries included; the unused ones hold a number
    // that no column has.
    const std::size_t others = offsets.back() + offsets.size() + 1 + maskBytes;
    std::size_t jumps = 0;
    while ((others + jumps - 1) / 256 > jumps)
        ++jumps;
    std::string tail;
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
        tail += static_cast<char>(*offset % 256);
    for (std::size_t jump = jumps; jump > 0; --jump) {
        const auto first = std::ranges::find_if(offsets, [&](std::size_t at) { return at >= jump * 256; });
        tail += static_cast<char>(first == offsets.end() ? 0xFF : first - offsets.begin());
    }
    return tail + static_cast<char>(offsets.size() - 1);
}

std::string rowBytes(Jet version, const JetTable& table, const std::vector<JetTable::Value>& row)
{
    const std::size_t width = table.columns.size();
    std::string bytes = little(static_cast<std::uint32_t>(width), version == Jet::Three ? 1 : 2);
    std::string mask((width + 7) / 8, '\0');
    for (std::size_t i = 0; i < width; ++i) {
        if (!row[i].null)
            mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << (i % 8));
        if (isFixed(table.columns[i]))
            bytes +=
                little(static_cast<std::uint32_t>(std::atoi(row[i].bytes.c_str())), sizeOf(table.columns[i]));
    }
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < width; ++i)
        if (!isFixed(table.columns[i])) {
            offsets.push_back(bytes.size());
            bytes += row[i].null ? std::string() : row[i].bytes;
        }
    offsets.push_back(bytes.size());
    if (version == Jet::Three)
        return bytes + tailOfThree(offsets, mask.size()) + mask;
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
        bytes += little(static_cast<std::uint32_t>(*offset), 2);
    return bytes + little(static_cast<std::uint32_t>(offsets.size() - 1), 2) + mask;
}

class File
{
public:
    explicit File(Jet version) : m_version(version), m_layout(layoutOf(version)), m_pages(2) {}

    /// Writes the pages of \a table; its definition goes to page \a at and its rows to the pages from \a
    /// rowsAt on, or after the others.
    std::size_t add(const JetTable& table, std::size_t at = 0, std::size_t rowsAt = 0)
    {
        const std::size_t definition = at == 0 ? next() : at;
        std::string map(1 + 4 + 64, '\0'); // kind 0: one bit a page, from page 0 on
        for (const std::size_t page : addRows(table, definition, rowsAt))
            map[5 + page / 8] = static_cast<char>(map[5 + page / 8] | 1 << (page % 8));
        m_maps.push_back(map);
        m_pages[definition] = define(table, m_maps.size() - 1);
        return definition;
    }
    std::size_t next()
    {
        m_pages.emplace_back();
        return m_pages.size() - 1;
    }
    std::string bytes()
    {
        std::string header(m_layout.page, '\0');
        header.replace(0, 20, std::string("\0\1\0\0Standard Jet DB\0", 20));
        header[0x14] = m_version == Jet::Three ? 0 : 1;
        scramble(header, 0x18, m_version == Jet::Three ? 126 : 128);
        m_pages[0] = header;
        m_pages[1] = dataPage(0, m_maps);
        std::string all;
        for (const std::string& page : m_pages)
            all += page;
        return all;
    }

private:
    [[nodiscard]] std::string dataPage(std::size_t owner, const std::vector<std::string>& rows) const
    {
        std::string page(m_layout.page, '\0');
        put(page, 0, 0x0101, 2);
        put(page, 4, owner, 4);
        put(page, m_layout.rowCount, rows.size(), 2);
        std::size_t end = page.size();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            end -= rows[i].size();
            page.replace(end, rows[i].size(), rows[i]);
            put(page, m_layout.rowCount + 2 + 2 * i, end, 2);
        }
        return page;
    }
    std::vector<std::size_t> addRows(const JetTable& table, std::size_t owner, std::size_t firstAt)
    {
        std::vector<std::size_t> pages;
        std::vector<std::string> rows;
        std::size_t used = m_layout.rowCount + 2;
        const auto flush = [&] {
            if (rows.empty())
                return;
            pages.push_back(pages.empty() && firstAt != 0 ? firstAt : next());
            m_pages[pages.back()] = dataPage(owner, rows);
            rows.clear();
            used = m_layout.rowCount + 2;
        };
        for (const auto& row : table.rows) {
            std::string bytes = rowBytes(m_version, table, row);
            if (used + bytes.size() + 2 > m_layout.page)
                flush();
            used += bytes.size() + 2;
            rows.push_back(std::move(bytes));
        }
        flush();
        return pages;
    }
    [[nodiscard]] std::string define(const JetTable& table, std::size_t map) const
    {
        std::string page(m_layout.columns, '\0');
        put(page, 0, 0x0102, 2);
        put(page, m_layout.rows, table.rows.size() + static_cast<std::size_t>(table.declaredMore), 4);
        put(page, m_layout.columnCount, table.columns.size(), 2);
        put(page, m_layout.usageMap, 1U << 8U | map, 4); // row and page
        put(page, m_layout.freeMap, 1U << 8U | map, 4);
        std::size_t fixedAt = 0;
        std::size_t variable = 0;
        std::string names;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const JetTable::Column& column = table.columns[i];
            std::string entry(m_layout.columnEntry, '\0');
            entry[0] = static_cast<char>(column.type);
            put(entry, m_layout.number, i, 2);
            put(entry, m_layout.rowNumber, i, 2);
            put(entry, m_layout.varNumber, isFixed(column) ? 0 : variable++, 2);
            entry[m_layout.flags] = isFixed(column) ? 3 : 2;
            put(entry, m_layout.fixedOffset, fixedAt, 2);
            put(entry, m_layout.size, sizeOf(column), 2);
            fixedAt += isFixed(column) ? sizeOf(column) : 0;
            page += entry;
            const std::string name = jetText(m_version, column.name);
            names += little(static_cast<std::uint32_t>(name.size()), m_version == Jet::Three ? 1 : 2) + name;
        }
        put(page, m_layout.columnCount - 2, variable, 2);
        page += names;
        put(page, 8, page.size(), 4);
        page.resize(m_layout.page, '\0');
        return page;
    }

    Jet m_version;
    const Layout& m_layout;
    std::vector<std::string> m_pages;
    std::vector<std::string> m_maps;
};

} // namespace

std::string jetText(Jet version, const std::string& utf8)
{
    if (version == Jet::Three)
        return toCp932(utf8, '?');
    const QString text = QString::fromStdString(utf8);
    return {reinterpret_cast<const char*>(text.utf16()), static_cast<std::size_t>(text.size()) * 2};
}

std::string jetFile(Jet version, const std::vector<JetTable>& tables)
{
    File file(version);
    const std::size_t catalogPage = file.next(); // where every reader looks for it
    const std::size_t namesPage = file.next();   // first, so that a file cut short loses rows but no name
    JetTable catalog{.name = "MSysObjects",
                     .columns = {{"Id", JetTable::Long},
                                 {"Name", JetTable::Text},
                                 {"Type", JetTable::Integer},
                                 {"Flags", JetTable::Long},
                                 {"LvProp", JetTable::Picture}},
                     .rows = {}};
    for (const JetTable& table : tables)
        catalog.rows.push_back({{std::to_string(file.add(table))},
                                {jetText(version, table.name)},
                                {"1"},
                                {"0"},
                                {.bytes = {}, .null = true}});
    (void)file.add(catalog, catalogPage, namesPage);
    return file.bytes();
}

} // namespace suisui::test
