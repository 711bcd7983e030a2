#include "tools/TagDb.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>

#include <QStringDecoder>

#include "platform/core/CodePage.h"
#include "store/AppDB.h"
#include "store/ComponentChange.h"
#include "store/Stamps.h"
#include "tools/Csv.h"
#include "tools/OldTexts.h"
#include "tools/SampleData.h"
#include "tools/ShopCheck.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr const char* workingFile = "trnvik.mdb";

bool sameLetters(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

const TableDef* tableNamed(std::string_view name, std::ostream& err)
{
    for (const TableDef* table : allTables())
        if (sameLetters(table->name, name))
            return table;
    err << "tagdb: no table " << name << "; there are";
    for (const TableDef* table : allTables())
        err << ' ' << table->name;
    err << '\n';
    return nullptr;
}

bool opened(AppDB& db, const std::string& base, std::ostream& err)
{
    if (db.Open(workingFile) == 0)
        return true;
    err << "tagdb: cannot open " << base << "/DB/" << workingFile << ": " << db.LastErrText() << '\n';
    return false;
}

/// Where each field of a record goes; nothing when a name is no column of the table.
std::optional<std::vector<int>> columnPlaces(const TableDef& table, const std::vector<std::string>& names,
                                             std::string& error)
{
    std::vector<int> places;
    for (const std::string& name : names) {
        int found = -1;
        for (int i = 0; i < table.columnCount(); ++i)
            if (sameLetters(table.columns[static_cast<std::size_t>(i)], name))
                found = i;
        if (found < 0) {
            error = "line 1: no column \"" + name + "\" in " + std::string(table.name);
            return std::nullopt;
        }
        if (std::find(places.begin(), places.end(), found) != places.end()) {
            error = "line 1: column \"" + name + "\" stands there twice";
            return std::nullopt;
        }
        places.push_back(found);
    }
    return places;
}

/// Makes the record the one row of \a rows, each text in the form that its column holds; what it cannot hold
/// is the fault that is returned.
std::string fillRow(RowSet& rows, const std::vector<int>& places, const std::vector<std::string>& record)
{
    std::vector<std::string> texts(rows.table().columns.size());
    for (std::size_t i = 0; i < record.size(); ++i)
        texts[static_cast<std::size_t>(places[i])] = record[i];
    rows.Clear();
    rows.NewRows(1);
    for (std::size_t column = 0; column < texts.size(); ++column) {
        const std::string_view name = rows.table().columns[column];
        const auto stored = asStored(rows.table().name, name, texts[column]);
        if (!stored)
            return "column " + std::string(name) + ": \"" + texts[column] + "\" is no "
                   + std::string(meaningOf(rows.table().name, name));
        rows.set(1, static_cast<int>(column), *stored);
    }
    return {};
}

/// Place of the first byte of \a text that is no text in UTF-8, or of a character that was none before it was
/// decoded; npos when all is well.
std::size_t noTextAt(std::string_view text, bool decoded)
{
    const std::size_t broken =
        std::min(text.find('\0'), decoded ? text.find("\uFFFD") : std::string_view::npos);
    if (QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8())
        return broken;
    QStringDecoder decoder(QStringDecoder::Utf8);
    std::size_t at = 0;
    for (; at + 1 < text.size(); ++at)
        if (const QString next = decoder(QByteArrayView(text.data() + at, 1)); decoder.hasError())
            break;
    return std::min(broken, at);
}

/// What to tell of bytes that are no text; empty when there are none.
std::string textFault(std::string_view text, bool cp932)
{
    const std::size_t at = noTextAt(text, cp932);
    if (at == std::string_view::npos)
        return {};
    const std::string_view before = text.substr(0, at);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = at - (before.rfind('\n') + 1) + 1; // npos + 1 is 0
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": no text in "
           + (cp932 ? "code page 932" : "UTF-8 (a file in code page 932 needs --cp932)");
}

/// Inserts the records of \a text; pending until the caller's Commit. Returns their number, -1 at a fault.
int insertCsv(AppDB& db, const TableDef& table, std::string_view text, std::string& error)
{
    CsvReader reader(text);
    const auto header = reader.next();
    if (!header) {
        error = reader.error().empty() ? "the file is empty" : reader.error();
        return -1;
    }
    const auto places = columnPlaces(table, *header, error);
    if (!places)
        return -1;
    RowSet rows(db, table);
    int count = 0;
    while (const auto record = reader.next()) {
        const std::string where = "line " + std::to_string(reader.line()) + ": ";
        if (record->size() != places->size()) {
            error = where + std::to_string(record->size()) + " fields instead of "
                    + std::to_string(places->size());
            return -1;
        }
        error = fillRow(rows, *places, *record);
        if (!error.empty()) {
            error.insert(0, where);
            return -1;
        }
        if (rows.InsertRow(1) != 0) {
            error = where + (db.LastErrNo() == "3022" ? "this key is there already" : db.LastErrText());
            return -1;
        }
        ++count;
    }
    error = reader.error();
    return error.empty() ? count : -1;
}

} // namespace

ToolStatus createShop(const std::string& base, std::ostream& out, std::ostream& err)
{
    bool made = false;
    for (const fs::path& file : {fs::path(base) / "DB" / workingFile, fs::path(base) / "db" / "trnorg.mdb"}) {
        std::error_code code;
        if (fs::exists(file, code)) {
            err << "tagdb: " << file.string() << " is there already and stays as it is\n";
            continue;
        }
        fs::create_directories(file.parent_path(), code);
        std::string why;
        if (AppDB::Create(file.string(), &why) != 0) {
            err << "tagdb: cannot make " << file.string() << ": " << why << '\n';
            return ToolStatus::Failed;
        }
        out << "made " << file.string() << '\n';
        made = true;
    }
    return made ? ToolStatus::Good : ToolStatus::Failed;
}

ToolStatus sampleShop(const std::string& base, std::ostream& out, std::ostream& err)
{
    AppDB db(base + "/DB");
    if (!opened(db, base, err))
        return ToolStatus::Failed;
    for (const TableDef* table : allTables()) {
        RowSet rows(db, *table);
        if (rows.CountRows({}) != 0) {
            err << "tagdb: " << table->name << " has rows; the sample goes into an empty database only\n";
            return ToolStatus::Failed;
        }
    }
    for (const SampleTable& sample : sampleTables) {
        const TableDef* table = tableNamed(sample.table, err);
        std::string error;
        const int count = table == nullptr ? -1 : insertCsv(db, *table, sample.csv, error);
        if (count < 0) {
            db.Rollback();
            err << "tagdb: sample of " << sample.table << ": " << error << '\n';
            return ToolStatus::Failed;
        }
        out << sample.table << ": " << count << " rows\n";
    }
    db.Commit();
    if (db.LastStatus() == 0)
        return ToolStatus::Good;
    err << "tagdb: " << db.LastErrText() << '\n';
    db.Rollback();
    return ToolStatus::Failed;
}

ToolStatus checkBooks(const std::string& base, std::ostream& out, std::ostream& err)
{
    AppDB db(base + "/DB");
    if (!opened(db, base, err))
        return ToolStatus::Failed;
    const std::vector<std::string> problems = checkShop(db);
    for (const std::string& problem : problems)
        out << problem << '\n';
    out << (problems.empty() ? "all is well\n" : std::to_string(problems.size()) + " problems\n");
    return problems.empty() ? ToolStatus::Good : ToolStatus::Found;
}

ToolStatus exportTable(const std::string& base, std::string_view name, const std::string& file, bool cp932,
                       std::ostream& out, std::ostream& err)
{
    const TableDef* table = tableNamed(name, err);
    AppDB db(base + "/DB");
    if (table == nullptr || !opened(db, base, err))
        return ToolStatus::Failed;
    RowSet rows(db, *table);
    if (rows.Select({}) < 0) {
        err << "tagdb: " << db.LastErrText() << '\n';
        return ToolStatus::Failed;
    }
    std::string text = csvRecord({table->columns.begin(), table->columns.end()});
    for (int row = 1; row <= rows.Count(); ++row) {
        std::vector<std::string_view> fields;
        fields.reserve(table->columns.size());
        for (int column = 0; column < table->columnCount(); ++column)
            fields.push_back(rows.get(row, column));
        text += csvRecord(fields);
    }
    if (cp932) {
        const auto encoded = toCp932(text);
        if (!encoded) {
            err << "tagdb: " << table->name << " holds characters that code page 932 does not have\n";
            return ToolStatus::Failed;
        }
        text = *encoded;
    }
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (!stream) {
        err << "tagdb: cannot write " << file << '\n';
        return ToolStatus::Failed;
    }
    out << table->name << ": " << rows.Count() << " rows\n";
    return ToolStatus::Good;
}

ToolStatus importTable(const std::string& base, std::string_view name, const std::string& file, bool cp932,
                       std::ostream& out, std::ostream& err)
{
    const TableDef* table = tableNamed(name, err);
    AppDB db(base + "/DB");
    if (table == nullptr || !opened(db, base, err))
        return ToolStatus::Failed;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        err << "tagdb: cannot read " << file << '\n';
        return ToolStatus::Failed;
    }
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (cp932)
        text = fromCp932(text);
    if (text.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    std::string error = textFault(text, cp932);
    int count = -1;
    const auto insert = [&] { return (count = insertCsv(db, *table, text, error)) >= 0; };
    const std::string stamp = stampOf(QDateTime::currentDateTime());
    if (error.empty() && !(table == &hseihinTable ? changeComponents(db, stamp, insert) : insert())) {
        count = -1;
        if (error.empty())
            error = "the stock of the parts cannot be carried forward: " + db.LastErrText();
    }
    if (count >= 0) {
        db.Commit();
        error = db.LastStatus() == 0 ? std::string() : db.LastErrText();
    }
    if (!error.empty()) {
        db.Rollback();
        err << "tagdb: " << file << ": " << error << "; nothing was stored\n";
        return ToolStatus::Failed;
    }
    out << table->name << ": " << count << " rows\n";
    return ToolStatus::Good;
}

} // namespace suisui
