#include "tools/JetFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <glib.h>
#include <mdbtools.h>

#include <QString>

#include "platform/core/CodePage.h"

namespace suisui {

namespace {

constexpr std::size_t widestText = 65536; // bytes of a column as UTF-8, its end included

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

/// The bytes behind \a text, which the library has read one letter a byte.
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

/// A text of the newer format as UTF-8. The library takes a letter beyond the first plane, and half of one,
/// for question marks, so the bytes are decoded here; what is no letter becomes U+FFFD.
std::string fromUtf16(std::span<const unsigned char> bytes)
{
    const bool packed = bytes.size() >= 2 && bytes[0] == 0xFFU && bytes[1] == 0xFEU;
    bool oneByte = packed;
    QString text;
    for (std::size_t i = packed ? 2 : 0; i < bytes.size();) {
        if (packed && bytes[i] == 0) { // from here on in the other width
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

/// Room for the texts of a row, tied to the library's table.
class Row
{
public:
    explicit Row(MdbTableDef& table)
        : m_table(table), m_buffers(table.num_cols, std::string(widestText, '\0')),
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

private:
    /// A column of the row at hand as it lies in the file.
    [[nodiscard]] std::span<const unsigned char> storedBytes(const MdbColumn& column) const
    {
        const std::span<const unsigned char> page(m_table.entry->mdb->pg_buf);
        const auto start = std::min(static_cast<std::size_t>(column.cur_value_start), page.size());
        return page.subspan(start,
                            std::min(static_cast<std::size_t>(column.cur_value_len), page.size() - start));
    }

    MdbTableDef& m_table;
    std::vector<std::string> m_buffers;
    std::vector<int> m_lengths;

public:
    std::vector<std::string> texts;
    std::vector<int> broken;
};

} // namespace

struct JetFile::Handle
{
    explicit Handle(MdbHandle* opened) : mdb(opened) {}
    ~Handle() { mdb_close(mdb); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    MdbHandle* mdb;
};

JetFile::JetFile() = default;
JetFile::~JetFile() = default;

bool JetFile::open(const std::string& path, std::string& why)
{
    std::error_code code;
    if (!std::filesystem::is_regular_file(path, code)) {
        why = "there is no such file";
        return false;
    }
    // The library takes a byte of the older format that it cannot read for a question mark. Read one letter a
    // byte, the text is ours to decode, and what is no text is seen.
    ::setenv("MDB_JET3_CHARSET", "ISO-8859-1", 1);
    ::setenv("MDBICONV", "UTF-8", 1);
    MdbHandle* opened = mdb_open(path.c_str(), MDB_NOFLAGS);
    if (opened == nullptr) {
        why = "this is no Jet database";
        return false;
    }
    m_file = std::make_unique<Handle>(opened);
    if (opened->f->jet_version != MDB_VER_JET3 && opened->f->jet_version != MDB_VER_JET4)
        why = "this is neither a Jet 3 nor a Jet 4 database";
    else if (mdb_read_catalog(opened, MDB_TABLE) == nullptr)
        why = "its list of tables cannot be read";
    else {
        mdb_set_bind_size(opened, widestText);
        return true;
    }
    m_file.reset();
    return false;
}

bool JetFile::describe(std::string_view name, Table& table)
{
    const TableDefinition definition = definitionOf(m_file->mdb, name);
    if (!definition)
        return false;
    table = {
        .name = std::string(name), .columns = {}, .declaredRows = static_cast<int>(definition->num_rows)};
    for (unsigned int i = 0; i < definition->num_cols; ++i) {
        const MdbColumn* column = columnAt(*definition, i);
        table.columns.push_back({.name = column->name, .readable = isReadable(column->col_type)});
    }
    return true;
}

int JetFile::read(const Table& table, const RowHandler& handler)
{
    const TableDefinition definition = definitionOf(m_file->mdb, table.name);
    if (!definition)
        return -1;
    Row row(*definition);
    mdb_rewind_table(definition.get());
    int number = 0;
    while (mdb_fetch_row(definition.get()) != 0) {
        row.take();
        handler(++number, row.texts, row.broken);
    }
    return number;
}

} // namespace suisui
