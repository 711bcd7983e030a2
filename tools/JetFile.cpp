#include "tools/JetFile.h"

#include <cstdlib>
#include <filesystem>

#include <glib.h>
#include <mdbtools.h>

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
        : m_buffers(table.num_cols, std::string(widestText, '\0')), m_lengths(table.num_cols, 0),
          texts(table.num_cols)
    {
        for (unsigned int i = 0; i < table.num_cols; ++i)
            if (isReadable(columnAt(table, i)->col_type))
                mdb_bind_column(&table, static_cast<int>(i) + 1, m_buffers[i].data(), &m_lengths[i]);
    }

    /// Takes the texts over; the library's own code page is \a oneByte for the older format.
    void take(bool oneByte)
    {
        broken.clear();
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const auto length = static_cast<std::size_t>(m_lengths[i]);
            texts[i].assign(m_buffers[i].c_str());
            if (oneByte)
                texts[i] = fromCp932(bytesOf(texts[i]));
            if (length + 1 >= widestText || texts[i].find("\uFFFD") != std::string::npos)
                broken.push_back(static_cast<int>(i));
            m_buffers[i][0] = '\0';
            m_lengths[i] = 0;
        }
    }

private:
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
        row.take(m_file->mdb->f->jet_version == MDB_VER_JET3);
        handler(++number, row.texts, row.broken);
    }
    return number;
}

} // namespace suisui
