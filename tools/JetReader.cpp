#include "tools/JetReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include <unistd.h>

#include <glib.h>
#include <mdbtools.h>

#include <QString>

#include "platform/core/CodePage.h"

namespace suisui {

namespace {

constexpr std::uintmax_t smallestRow = 4; // bytes on its page, with the entry that points to it
constexpr std::size_t widestText = 65536; // bytes of a column as UTF-8, with the terminating zero

struct CloseTable
{
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using TableDefinition = std::unique_ptr<MdbTableDef, CloseTable>;

bool isReadable(int type)
{
    switch (type) {
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
    case MDB_TEXT:
    case MDB_MEMO:
        return true;
    default:
        return false;
    }
}

/// The original bytes of \a text, of which the library has made one character each.
std::string bytesOf(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        if (lead < 0x80U || i + 1 >= text.size()) {
            bytes += text[i];
            continue;
        }
        const auto trail = static_cast<unsigned char>(text[++i]);
        bytes += static_cast<char>(((lead & 0x03U) << 6U) | (trail & 0x3FU));
    }
    return bytes;
}

/// A text of the newer format as UTF-8. The library makes question marks of characters beyond the first plane
/// and of lone surrogates, so the bytes are decoded here; what is not a character becomes U+FFFD.
std::string fromUtf16(std::span<const unsigned char> bytes)
{
    const bool packed = bytes.size() >= 2 && bytes[0] == 0xFFU && bytes[1] == 0xFEU;
    bool oneByte = packed;
    QString text;
    for (std::size_t i = packed ? 2 : 0; i < bytes.size();) {
        if (packed && bytes[i] == 0) { // switches between one and two bytes a character
            oneByte = !oneByte;
            ++i;
            continue;
        }
        const bool whole = oneByte || i + 1 < bytes.size();
        const unsigned high = oneByte || !whole ? 0U : bytes[i + 1];
        text += whole ? QChar(static_cast<char16_t>(bytes[i] | (high << 8U)))
                      : QChar(QChar::ReplacementCharacter);
        i += oneByte ? 1 : 2;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (text[i].isNull() || (text[i].isSurrogate() && !pair))
            text[i] = QChar::ReplacementCharacter;
        i += pair ? 1 : 0;
    }
    return text.toStdString();
}

TableDefinition definitionOf(MdbHandle* file, std::string_view name)
{
    for (unsigned int i = 0; i < file->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(file->catalog, i));
        if (entry->object_type != MDB_TABLE
            || g_ascii_strcasecmp(entry->object_name, std::string(name).c_str()) != 0)
            continue;
        TableDefinition table(mdb_read_table(entry));
        if (table && mdb_read_columns(table.get()) != nullptr)
            return table;
    }
    return nullptr;
}

const MdbColumn* columnAt(const MdbTableDef& table, unsigned int column)
{
    return static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, column));
}

/// Buffers for the texts of a row, bound to the library's table.
class Row
{
public:
    Row(MdbTableDef& table, std::uintmax_t fileSize)
        : m_table(table), m_fileSize(fileSize), m_buffers(table.num_cols, std::string(widestText, '\0')),
          m_lengths(table.num_cols, 0), texts(table.num_cols)
    {
        for (unsigned int i = 0; i < table.num_cols; ++i)
            if (isReadable(columnAt(table, i)->col_type))
                mdb_bind_column(&table, static_cast<int>(i) + 1, m_buffers[i].data(), &m_lengths[i]);
    }

    void take()
    {
        const bool older = m_table.entry->mdb->f->jet_version == MDB_VER_JET3;
        broken.clear();
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const auto length = static_cast<std::size_t>(m_lengths[i]);
            texts[i].assign(m_buffers[i], 0, m_buffers[i].find('\0'));
            if (older)
                texts[i] = fromCp932(bytesOf(texts[i]));
            else if (length > 0 && columnAt(m_table, static_cast<unsigned int>(i))->col_type == MDB_TEXT)
                texts[i] = fromUtf16(storedBytes(*columnAt(m_table, static_cast<unsigned int>(i))));
            if (length + 1 >= widestText || texts[i].find("\uFFFD") != std::string::npos)
                broken.push_back(static_cast<int>(i));
            m_buffers[i][0] = '\0';
            m_lengths[i] = 0;
        }
    }

    /// Whether the file ends before the current row does. The library reads zeros beyond the end.
    [[nodiscard]] bool isCutOff() const
    {
        MdbHandle* const file = m_table.entry->mdb;
        int start = 0;
        std::size_t length = 0;
        if (m_table.cur_row == 0
            || mdb_find_row(file, static_cast<int>(m_table.cur_row) - 1, &start, &length) != 0)
            return true;
        constexpr unsigned offset = 0x1FFF; // the bits above are flags
        const auto page = static_cast<std::uintmax_t>(m_table.cur_phys_pg)
                          * static_cast<std::uintmax_t>(file->fmt->pg_size);
        return page + (static_cast<unsigned>(start) & offset) + length > m_fileSize;
    }

private:
    /// The bytes of a column of the current row, as in the file.
    [[nodiscard]] std::span<const unsigned char> storedBytes(const MdbColumn& column) const
    {
        const std::span<const unsigned char> page(m_table.entry->mdb->pg_buf);
        const auto start = std::min(static_cast<std::size_t>(column.cur_value_start), page.size());
        return page.subspan(start,
                            std::min(static_cast<std::size_t>(column.cur_value_len), page.size() - start));
    }

    MdbTableDef& m_table;
    std::uintmax_t m_fileSize;
    std::vector<std::string> m_buffers;
    std::vector<int> m_lengths;

public:
    std::vector<std::string> texts;
    std::vector<int> broken;
};

/// Collects records and writes them in large pieces.
class Writing
{
public:
    explicit Writing(int to) : m_to(to) {}

    Writing& operator<<(JetMark mark)
    {
        m_bytes += static_cast<char>(mark);
        return *this;
    }
    Writing& operator<<(std::uint32_t number)
    {
        m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
        return *this;
    }
    Writing& operator<<(std::string_view text)
    {
        *this << static_cast<std::uint32_t>(text.size());
        m_bytes += text;
        return *this;
    }

    [[nodiscard]] bool flush(std::size_t atLeast = 0)
    {
        std::size_t done = 0;
        while (m_bytes.size() >= atLeast && done < m_bytes.size()) {
            const ssize_t written = ::write(m_to, m_bytes.data() + done, m_bytes.size() - done);
            if (written < 0 && errno != EINTR)
                return false;
            done += written > 0 ? static_cast<std::size_t>(written) : 0;
        }
        m_bytes.erase(0, done);
        return true;
    }

private:
    int m_to;
    std::string m_bytes;
};

/// Writes all rows of \a table. False when there are more than \a fileSize bytes can hold, since a page then
/// leads back to itself, or when they cannot be written.
bool writeRows(Writing& out, MdbTableDef& table, std::uintmax_t fileSize)
{
    constexpr std::size_t piece = 65536;
    std::uintmax_t most = fileSize / smallestRow;
    Row row(table, fileSize);
    mdb_rewind_table(&table);
    while (mdb_fetch_row(&table) != 0) {
        if (most-- == 0)
            return false;
        row.take();
        out << JetMark::Row << std::uint32_t{row.isCutOff()};
        for (const std::string& text : row.texts)
            out << text;
        out << static_cast<std::uint32_t>(row.broken.size());
        for (const int place : row.broken)
            out << static_cast<std::uint32_t>(place);
        if (!out.flush(piece))
            return false;
    }
    return true;
}

bool writeTable(Writing& out, MdbHandle* file, std::string_view name, std::uintmax_t fileSize)
{
    const TableDefinition table = definitionOf(file, name);
    if (!table)
        return true;
    out << JetMark::Table << name << static_cast<std::uint32_t>(table->num_rows) << table->num_cols;
    for (unsigned int i = 0; i < table->num_cols; ++i) {
        const MdbColumn* column = columnAt(*table, i);
        out << std::string_view(column->name) << std::uint32_t{isReadable(column->col_type)};
    }
    return writeRows(out, *table, fileSize);
}

} // namespace

bool writeJetTables(int to, const std::string& path, std::span<const std::string_view> tables)
{
    Writing out(to);
    const auto refuse = [&out](std::string_view why) {
        out << JetMark::Refused << why;
        return out.flush();
    };
    // In texts of the older format the library makes question marks of bytes that it cannot decode. As
    // ISO-8859-1 every byte survives, so that the text is decoded here and broken bytes are noticed.
    ::setenv("MDB_JET3_CHARSET", "ISO-8859-1", 1);
    ::setenv("MDBICONV", "UTF-8", 1);
    MdbHandle* file = mdb_open(path.c_str(), MDB_NOFLAGS);
    if (file == nullptr)
        return refuse("this is not a Jet database");
    if (file->f->jet_version != MDB_VER_JET3 && file->f->jet_version != MDB_VER_JET4)
        return refuse("this is neither a Jet 3 nor a Jet 4 database");
    if (mdb_read_catalog(file, MDB_TABLE) == nullptr)
        return refuse("its list of tables cannot be read");
    mdb_set_bind_size(file, widestText);
    const std::uintmax_t fileSize = std::filesystem::file_size(path);
    for (const std::string_view table : tables)
        if (!writeTable(out, file, table, fileSize))
            return false;
    const auto pageSize = static_cast<std::uintmax_t>(file->fmt->pg_size);
    if (const std::uintmax_t over = fileSize % pageSize; over > 0)
        out << JetMark::CutOff << static_cast<std::uint32_t>(pageSize - over);
    out << JetMark::End;
    return out.flush();
}

} // namespace suisui
