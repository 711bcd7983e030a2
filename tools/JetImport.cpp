#include "tools/JetImport.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <vector>

#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "store/ShopFiles.h"
#include "tools/JetFile.h"
#include "tools/OldTexts.h"
#include "tools/Phrases.h"
#include "tools/ShopCheck.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr int notThere = -1;

bool sameLetters(std::string_view a, std::string_view b)
{
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// What the operator reads at the end.
struct Report
{
    std::ostream& out;
    int problems = 0;

    void problem(std::string_view table, int row, const std::string& reason)
    {
        ++problems;
        const Message where = recognised(phrases::jetPlaces, table);
        const Message why = recognised(phrases::jetReasons, reason);
        out << (row > 0 ? Message(phrases::ofRow, {where, std::to_string(row), why})
                        : Message(phrases::ofTable, {where, why}));
    }
};

/// For each column of \a ours its position in \a theirs.
std::vector<int> placesOf(const TableDef& ours, const JetFile::Table& theirs, Report& report)
{
    const auto width = static_cast<int>(theirs.columns.size());
    std::vector<int> places(ours.columns.size(), notThere);
    std::vector<bool> taken(theirs.columns.size(), false);
    for (std::size_t i = 0; i < places.size(); ++i)
        for (int j = 0; j < width; ++j)
            if (sameLetters(ours.columns[i], theirs.columns[static_cast<std::size_t>(j)].name)) {
                places[i] = j;
                taken[static_cast<std::size_t>(j)] = true;
            }
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == notThere && i < taken.size() && !taken[i]) {
            places[i] = static_cast<int>(i);
            taken[i] = true;
            report.out << Message(phrases::columnByPlace,
                                  {ours.name, ours.columns[i], theirs.columns[i].name});
        }
        const int place = places[i];
        if (place == notThere)
            report.problem(ours.name, 0, "there is no column " + std::string(ours.columns[i]));
        else if (!theirs.columns[static_cast<std::size_t>(place)].readable)
            report.problem(ours.name, 0,
                           "column " + std::string(ours.columns[i]) + " is neither text nor number");
    }
    return places;
}

/// Columns of \a theirs that no column here takes.
std::vector<int> leftOver(const JetFile::Table& theirs, const std::vector<int>& places)
{
    std::vector<int> left;
    for (int j = 0; j < static_cast<int>(theirs.columns.size()); ++j)
        if (std::ranges::find(places, j) == places.end())
            left.push_back(j);
    return left;
}

/// Imports one table.
class TableCarrier
{
public:
    TableCarrier(AppDB& db, const TableDef& ours, const JetFile::Table& theirs, Report& report)
        : m_db(db), m_ours(ours), m_theirs(theirs), m_report(report), m_rows(db, ours),
          m_places(placesOf(ours, theirs, report)), m_leftOver(leftOver(theirs, m_places)),
          m_lost(theirs.columns.size(), 0)
    {
    }

    void carry(const JetFile::Row& row)
    {
        if (row.cutOff) {
            m_report.problem(m_ours.name, row.number, "the file ends before this row does");
            return;
        }
        for (const int j : m_leftOver)
            m_lost[static_cast<std::size_t>(j)] += row.texts[static_cast<std::size_t>(j)].empty() ? 0 : 1;
        m_rows.Clear();
        m_rows.NewRows(1);
        bool good = true;
        for (std::size_t i = 0; i < m_places.size(); ++i)
            good = set(row, i) && good;
        if (!good)
            return;
        const DbStatus status = m_rows.InsertRow(1);
        if (status == DbStatus::Good) {
            ++m_carried;
            return;
        }
        m_report.problem(m_ours.name, row.number,
                         status == DbStatus::DuplicateKey
                             ? "a row with the key " + keyOf() + " is there already"
                             : m_db.LastErrText());
    }

    void finish(int read)
    {
        for (const int j : m_leftOver)
            if (const int count = m_lost[static_cast<std::size_t>(j)]; count > 0)
                m_report.problem(m_ours.name, 0,
                                 "column " + m_theirs.columns[static_cast<std::size_t>(j)].name
                                     + " has no place here; it holds texts in " + std::to_string(count)
                                     + " rows");
        if (read != m_theirs.declaredRows)
            m_report.problem(m_ours.name, 0,
                             "the file has " + std::to_string(m_theirs.declaredRows) + " rows, "
                                 + std::to_string(std::max(read, 0)) + " can be read");
        m_report.out << Message(phrases::rowsCarried, {m_ours.name, std::to_string(m_carried),
                                                       std::to_string(m_theirs.declaredRows)});
    }

private:
    bool set(const JetFile::Row& row, std::size_t column)
    {
        const std::string name(m_ours.columns[column]);
        const int place = m_places[column];
        std::string text = place == notThere ? std::string() : row.texts[static_cast<std::size_t>(place)];
        const auto refuse = [&](const std::string& why) {
            m_report.problem(m_ours.name, row.number, name + " \"" + text + "\" " + why);
            return false;
        };
        if (place != notThere && std::ranges::find(row.broken, place) != row.broken.end())
            return refuse("is not text");
        if (std::ranges::any_of(text, isControl)) {
            // Reported, but a line break in a remark is no reason to lose the whole movement.
            std::ranges::replace_if(text, isControl, ' ');
            (void)refuse("has control characters, here as blanks");
        }
        const auto stored = asStored(m_ours.name, name, text);
        if (!stored)
            return refuse("is not a " + std::string(meaningOf(m_ours.name, name)));
        m_rows.set(1, static_cast<int>(column), *stored);
        return true;
    }

    /// The columns of the unique key with the texts of the current row.
    [[nodiscard]] std::string keyOf() const
    {
        std::string key;
        for (int i = 0; i < m_ours.columnCount(); ++i) {
            const std::string_view name = m_ours.columns[static_cast<std::size_t>(i)];
            if ((", " + std::string(m_ours.indexes[0].columns) + ",").find(" " + std::string(name) + ",")
                != std::string::npos)
                key += (key.empty() ? "" : ", ") + std::string(name) + " " + std::string(m_rows.get(1, i));
        }
        return key;
    }

    AppDB& m_db;
    const TableDef& m_ours;
    const JetFile::Table& m_theirs;
    Report& m_report;
    RowSet m_rows;
    std::vector<int> m_places;
    std::vector<int> m_leftOver;
    std::vector<int> m_lost; ///< number of rows with a text, by column of theirs
    int m_carried = 0;
};

void carryTable(const JetFile& file, AppDB& db, const TableDef& table, Report& report)
{
    JetFile::Table theirs;
    if (!file.describe(table.name, theirs)) {
        report.problem(table.name, 0, "there is no such table");
        return;
    }
    TableCarrier carrier(db, table, theirs, report);
    carrier.finish(file.read(theirs, [&carrier](const JetFile::Row& row) { carrier.carry(row); }));
}

/// Fills the new database \a aside. Empty on success, else what failed.
std::string fill(const JetFile& file, const std::string& aside, Report& report)
{
    std::string why;
    if (AppDB::Create(aside, &why) != DbStatus::Good)
        return why;
    AppDB db(folderOf(aside));
    if (db.OpenForFilling(aside) != DbStatus::Good)
        return db.LastErrText();
    if (file.missingBytes() > 0)
        report.problem("file", 0,
                       "it ends inside its last page, " + std::to_string(file.missingBytes())
                           + " bytes are missing");
    for (const TableDef* table : allTables())
        carryTable(file, db, *table, report);
    if (db.FinishFilling() != DbStatus::Good)
        return db.LastErrText();
    for (const std::string& problem : checkShop(db, languageOf(report.out)))
        report.problem("books", 0, problem);
    db.CloseFile();
    return db.CloseAfterSave() == DbStatus::Good ? std::string() : aside + " cannot be flushed";
}

void removeAside(const std::string& aside)
{
    std::error_code code;
    for (const char* ending : {"", "-journal", ".new"})
        fs::remove(aside + ending, code);
}

} // namespace

ToolStatus importJet(const std::string& base, const std::string& file, bool anyway, std::ostream& out,
                     std::ostream& err)
{
    const std::string target = workingPath(base);
    const std::string empty = emptyPath(base); // which every shop has beside its own
    const std::string aside = target + ".importing";
    const auto failed = [&](const std::string& why) {
        removeAside(aside);
        const Message reason = recognised(phrases::jetReasons, why);
        err << Message(phrases::complaint, {{phrases::nothingWritten, {file, reason}}});
        return ToolStatus::Failed;
    };
    std::error_code code;
    if (fs::exists(target, code))
        return failed(target + " is there already, and an import makes a new one: move it away first");
    JetFile jet;
    std::string why;
    std::vector<std::string_view> names;
    for (const TableDef* table : allTables())
        names.push_back(table->name);
    if (!jet.open(file, names, why))
        return failed(why);
    fs::create_directories(folderOf(target), code);
    removeAside(aside);
    Report report{.out = out};
    why = fill(jet, aside, report);
    if (!why.empty())
        return failed(why);
    if (report.problems > 0 && !anyway) {
        removeAside(aside);
        out << Message(phrases::problemsSoNothing, {std::to_string(report.problems)});
        return ToolStatus::Found;
    }
    if (!renameToNew(aside, target) || !syncToDisk(folderOf(target)))
        return failed(target + " cannot be written");
    fs::create_directories(folderOf(empty), code);
    if (!fs::exists(empty, code) && AppDB::Create(empty, &why) != DbStatus::Good) {
        err << Message(phrases::complaint, {{phrases::madeButNot, {target, empty, why}}});
        return ToolStatus::Failed;
    }
    out << (report.problems > 0
                ? Message(phrases::madeWithProblems, {target, std::to_string(report.problems)})
                : Message(phrases::madeAllWell, {target}));
    return report.problems > 0 ? ToolStatus::Found : ToolStatus::Good;
}

} // namespace suisui
