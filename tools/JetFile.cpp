#include "tools/JetFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tools/JetReader.h"

namespace suisui {

namespace {

constexpr const char* damaged = "the file is damaged and cannot be read to its end";

/// Splits the output into records; anything unexpected makes the rest empty.
class Records
{
public:
    explicit Records(std::string_view bytes) : m_rest(bytes) {}

    [[nodiscard]] bool good() const { return m_good; }
    [[nodiscard]] std::string_view rest() const { return m_rest; }
    [[nodiscard]] bool at(JetMark mark) const
    {
        return !m_rest.empty() && m_rest.front() == static_cast<char>(mark);
    }
    bool skip(JetMark mark)
    {
        const bool there = at(mark);
        if (there)
            m_rest.remove_prefix(1);
        return there;
    }
    std::uint32_t number()
    {
        std::uint32_t value = 0;
        const std::string_view bytes = take(sizeof value);
        if (m_good)
            std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    std::string_view text() { return take(number()); }

private:
    std::string_view take(std::size_t length)
    {
        m_good = m_good && length <= m_rest.size();
        if (!m_good)
            return m_rest = {};
        const std::string_view taken = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return taken;
    }

    std::string_view m_rest;
    bool m_good = true;
};

/// Limits the reading process: a file that keeps it longer leads it in circles.
void limitReading(std::uintmax_t bytes)
{
    constexpr rlim_t seconds = 60;
    constexpr rlim_t bytesASecond = 200000; // a tenth of what a slow computer reads
    const rlimit noCore{0, 0};
    const rlimit time{seconds + bytes / bytesASecond, seconds + bytes / bytesASecond};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::setrlimit(RLIMIT_CPU, &time);
}

std::string readAll(int from)
{
    constexpr std::size_t piece = 65536;
    std::string bytes;
    std::array<char, piece> buffer{};
    while (true) {
        const ssize_t count = ::read(from, buffer.data(), buffer.size());
        if (count > 0)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return bytes;
    }
}

/// Has a separate process read the file; false when that did not end well.
bool readApart(const std::string& path, std::span<const std::string_view> tables, std::string& bytes)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        return false;
    const pid_t reader = ::fork();
    if (reader == 0) {
        ::close(ends[0]);
        limitReading(std::filesystem::file_size(path));
        ::_exit(writeJetTables(ends[1], path, tables) ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    ::close(ends[1]);
    bytes = readAll(ends[0]);
    ::close(ends[0]);
    int status = 0;
    while (reader > 0 && ::waitpid(reader, &status, 0) < 0 && errno == EINTR)
        ;
    return reader > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

/// Reads the next row, of \a columns columns.
void takeRow(Records& records, std::size_t columns, JetFile::Row& row)
{
    ++row.number;
    row.texts.clear();
    row.broken.clear();
    row.cutOff = records.number() != 0;
    for (std::size_t i = 0; i < columns; ++i)
        row.texts.emplace_back(records.text());
    for (std::uint32_t n = records.number(); n > 0 && records.good(); --n)
        row.broken.push_back(static_cast<int>(records.number()));
}

} // namespace

bool JetFile::open(const std::string& path, std::span<const std::string_view> tables, std::string& why)
{
    std::error_code code;
    if (!std::filesystem::is_regular_file(path, code)) {
        why = "there is no such file";
        return false;
    }
    why = damaged;
    return readApart(path, tables, m_bytes) && index(why);
}

/// Finds where the rows of each table begin.
bool JetFile::index(std::string& why)
{
    Records records(m_bytes);
    if (records.skip(JetMark::Refused)) {
        why = records.text();
        return false;
    }
    Row row;
    while (records.skip(JetMark::Table)) {
        Table table{.name = std::string(records.text()), .columns = {}, .declaredRows = 0};
        table.declaredRows = static_cast<int>(records.number());
        for (std::uint32_t n = records.number(); n > 0 && records.good(); --n) {
            std::string name(records.text());
            table.columns.push_back({.name = std::move(name), .readable = records.number() != 0});
        }
        m_tables.push_back({std::move(table), m_bytes.size() - records.rest().size()});
        while (records.skip(JetMark::Row))
            takeRow(records, m_tables.back().table.columns.size(), row);
    }
    if (records.skip(JetMark::CutOff))
        m_missingBytes = records.number();
    return records.good() && records.skip(JetMark::End) && records.rest().empty();
}

const JetFile::Place* JetFile::placeOf(std::string_view name) const
{
    const auto found = std::find_if(m_tables.begin(), m_tables.end(),
                                    [name](const Place& each) { return each.table.name == name; });
    return found != m_tables.end() ? &*found : nullptr;
}

bool JetFile::describe(std::string_view name, Table& table) const
{
    const Place* place = placeOf(name);
    if (place == nullptr)
        return false;
    table = place->table;
    return true;
}

int JetFile::read(const Table& table, const RowHandler& handler) const
{
    const Place* place = placeOf(table.name);
    if (place == nullptr)
        return -1;
    Records records(std::string_view(m_bytes).substr(place->rows));
    Row row;
    while (records.skip(JetMark::Row)) {
        takeRow(records, place->table.columns.size(), row);
        handler(row);
    }
    return row.number;
}

} // namespace suisui
