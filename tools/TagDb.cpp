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
#include "booking/ComponentChange.h"
#include "store/Stamps.h"
#include "store/ShopFiles.h"
#include "tools/Cause.h"
#include "tools/Csv.h"
#include "tools/ExportFile.h"
#include "tools/OldTexts.h"
#include "tools/Phrases.h"
#include "tools/SampleData.h"
#include "tools/ShopCheck.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

bool sameLetters(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

ToolStatus complain(std::ostream& err, const Message& what)
{
    err << Message(phrases::complaint, {what});
    return ToolStatus::Failed;
}

const TableDef* tableNamed(std::string_view name, std::ostream& err)
{
    for (const TableDef* table : allTables())
        if (sameLetters(table->name, name))
            return table;
    std::string names;
    for (const TableDef* table : allTables())
        names += " " + std::string(table->name);
    (void)complain(err, {phrases::noTable, {name, names}});
    return nullptr;
}

bool opened(AppDB& db, const std::string& base, std::ostream& err)
{
    if (db.Open(workingFile) == DbStatus::Good)
        return true;
    (void)complain(err, {phrases::cannotOpen, {workingPath(base), causeOf(db)}});
    return false;
}

/// The column for each field of a record; none, with the reason in \a error, when a name is not a column of
/// the table or occurs twice.
std::optional<std::vector<int>> columnPlaces(const TableDef& table, const std::vector<std::string>& names,
                                             Message& error)
{
    std::vector<int> places;
    for (const std::string& name : names) {
        int found = -1;
        for (int i = 0; i < table.columnCount(); ++i)
            if (sameLetters(table.columns[static_cast<std::size_t>(i)], name))
                found = i;
        if (found < 0) {
            error = {phrases::atLine, {"1", {phrases::noColumn, {name, table.name}}}};
            return std::nullopt;
        }
        if (std::find(places.begin(), places.end(), found) != places.end()) {
            error = {phrases::atLine, {"1", {phrases::columnTwice, {name}}}};
            return std::nullopt;
        }
        places.push_back(found);
    }
    return places;
}

/// Makes the record the only row of \a rows, each text in the format of its column. Returns the fault of the
/// first text that cannot be; empty when there is none.
Message fillRow(RowSet& rows, const std::vector<int>& places, const std::vector<std::string>& record)
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
            return {phrases::notThatKind,
                    {name, texts[column], kindNamed(meaningOf(rows.table().name, name))}};
        rows.set(1, static_cast<int>(column), *stored);
    }
    return {};
}

/// Position of the first byte of \a text that is not UTF-8 or is zero, or, when \a text has been decoded from
/// another encoding, of the first character that could not be; npos when all is well.
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

/// The message about bytes that are not text; empty when there are none.
Message textFault(std::string_view text, bool cp932)
{
    const std::size_t at = noTextAt(text, cp932);
    if (at == std::string_view::npos)
        return {};
    const std::string_view before = text.substr(0, at);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = at - (before.rfind('\n') + 1) + 1; // npos + 1 is 0
    return {phrases::atPlace,
            {std::to_string(line), std::to_string(column), cp932 ? phrases::notCp932 : phrases::notUtf8}};
}

/// Inserts the records of \a text, pending until the caller's Commit. Returns their number, -1 after a fault.
int insertCsv(AppDB& db, const TableDef& table, std::string_view text, Message& error)
{
    CsvReader reader(text);
    const auto header = reader.next();
    if (!header) {
        error = reader.error().empty() ? Message(phrases::fileIsEmpty) : reader.error();
        return -1;
    }
    const auto places = columnPlaces(table, *header, error);
    if (!places)
        return -1;
    RowSet rows(db, table);
    int count = 0;
    while (const auto record = reader.next()) {
        Message what;
        if (record->size() != places->size())
            what = {phrases::fieldCount, {std::to_string(record->size()), std::to_string(places->size())}};
        else
            what = fillRow(rows, *places, *record);
        if (what.empty())
            if (const DbStatus status = rows.InsertRow(1); status != DbStatus::Good)
                what = status == DbStatus::DuplicateKey ? Message(phrases::keyThere) : causeOf(db);
        if (!what.empty()) {
            error = {phrases::atLine, {std::to_string(reader.line()), what}};
            return -1;
        }
        ++count;
    }
    error = reader.error();
    return error.empty() ? count : -1;
}

/// The table as CSV, with the names of its columns.
std::string csvOf(const RowSet& rows)
{
    const TableDef& table = rows.table();
    std::string text = csvRecord({table.columns.begin(), table.columns.end()});
    for (int row = 1; row <= rows.Count(); ++row) {
        std::vector<std::string_view> fields;
        fields.reserve(table.columns.size());
        for (int column = 0; column < table.columnCount(); ++column)
            fields.push_back(rows.get(row, column));
        text += csvRecord(fields);
    }
    return text;
}

} // namespace

ToolStatus createShop(const std::string& base, std::ostream& out, std::ostream& err)
{
    bool made = false;
    for (const fs::path& file : {fs::path(workingPath(base)), fs::path(emptyPath(base))}) {
        std::error_code code;
        if (fs::exists(file, code)) {
            (void)complain(err, {phrases::staysAsItIs, {file.string()}});
            continue;
        }
        fs::create_directories(file.parent_path(), code);
        std::string why;
        if (AppDB::Create(file.string(), &why) != DbStatus::Good)
            return complain(err, {phrases::cannotMake, {file.string(), why}});
        out << Message(phrases::made, {file.string()});
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
        if (rows.CountRows({}) != 0)
            return complain(err, {phrases::hasRows, {table->name}});
    }
    for (const SampleTable& sample : sampleTables) {
        const TableDef* table = tableNamed(sample.table, err);
        Message error;
        const int count = table == nullptr ? -1 : insertCsv(db, *table, sample.csv, error);
        if (count < 0) {
            db.Rollback();
            return complain(err, {phrases::sampleOf, {sample.table, error}});
        }
        out << Message(phrases::rowsOf, {sample.table, std::to_string(count)});
    }
    db.Commit();
    if (db.LastStatus() == DbStatus::Good)
        return ToolStatus::Good;
    (void)complain(err, causeOf(db));
    db.Rollback();
    return ToolStatus::Failed;
}

ToolStatus checkBooks(const std::string& base, std::ostream& out, std::ostream& err)
{
    AppDB db(base + "/DB");
    if (!opened(db, base, err))
        return ToolStatus::Failed;
    const std::vector<std::string> problems = checkShop(db, languageOf(out));
    for (const std::string& problem : problems)
        out << problem << '\n';
    out << (problems.empty() ? Message(phrases::allIsWell)
                             : Message(phrases::problemCount, {std::to_string(problems.size())}));
    return problems.empty() ? ToolStatus::Good : ToolStatus::Found;
}

ToolStatus exportTable(const std::string& base, const ExportOrder& order, std::ostream& out,
                       std::ostream& err)
{
    const TableDef* table = tableNamed(order.table, err);
    AppDB db(base + "/DB");
    if (table == nullptr || !opened(db, base, err))
        return ToolStatus::Failed;
    RowSet rows(db, *table);
    if (rows.Select({}) < 0)
        return complain(err, causeOf(db));
    std::string text = csvOf(rows);
    if (order.cp932) {
        auto encoded = toCp932(text);
        if (!encoded)
            return complain(err, {phrases::notInCp932, {table->name}});
        text = std::move(*encoded);
    }
    const Message fault = writeExport(base, order, text);
    if (!fault.empty())
        return complain(err, fault);
    out << Message(phrases::rowsOf, {table->name, std::to_string(rows.Count())});
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
    if (!stream)
        return complain(err, {phrases::cannotRead, {file}});
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (cp932)
        text = fromCp932(text);
    if (text.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    Message error = textFault(text, cp932);
    int count = -1;
    const auto insert = [&] { return (count = insertCsv(db, *table, text, error)) >= 0; };
    const std::string stamp = stampOf(QDateTime::currentDateTime());
    if (error.empty() && !(table == &hseihinTable ? changeComponents(db, stamp, insert) : insert())) {
        count = -1;
        if (error.empty())
            error = {phrases::partsNotCarried, {causeOf(db)}};
    }
    if (count >= 0) {
        db.Commit();
        error = db.LastStatus() == DbStatus::Good ? Message() : causeOf(db);
    }
    if (!error.empty()) {
        db.Rollback();
        return complain(err, {phrases::nothingStored, {file, error}});
    }
    out << Message(phrases::rowsOf, {table->name, std::to_string(count)});
    return ToolStatus::Good;
}

} // namespace suisui
