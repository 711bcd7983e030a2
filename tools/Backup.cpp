#include "tools/Backup.h"

#include <filesystem>
#include <ostream>
#include <vector>

#include "platform/core/Files.h"
#include "platform/core/SingleInstance.h"
#include "store/AppDB.h"
#include "tools/BackupFolder.h"
#include "tools/ShopCheck.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr const char* workingFile = "trnvik.mdb";
constexpr int patience = 20; // tries of half a second each while others write

/// A failure on its way to the operator.
struct Refused
{
    std::string why;
};

std::string folderFor(const BackupOrder& order)
{
    return order.folder.empty() ? order.base + "/backup" : order.folder;
}

std::string liveFile(const BackupOrder& order)
{
    return order.base + "/DB/" + workingFile;
}

/// What is compared between a live database and its copy.
struct Figures
{
    std::vector<int> rows;          ///< of each table
    std::vector<std::string> stock; ///< every column of every stock row
    bool operator==(const Figures&) const = default;
};

Figures figuresOf(AppDB& db)
{
    Figures figures;
    for (const TableDef* table : allTables()) {
        RowSet rows(db, *table);
        figures.rows.push_back(rows.CountRows({}));
    }
    ZaikoRec stock(db, zaikoTable);
    if (stock.Select("ORDER BY Code") < 0 || figures.rows.front() < 0)
        throw Refused{"the stock cannot be read: " + db.LastErrText()};
    for (int row = 1; row <= stock.Count(); ++row) {
        std::string line;
        for (int column = 0; column < stock.table().columnCount(); ++column)
            line += std::string(stock.RowSet::get(row, column)) + '\n';
        figures.stock.push_back(std::move(line));
    }
    return figures;
}

/// Opens \a file and holds it still. False for a file that is no sound database; Refused while others hold
/// it.
bool openStill(AppDB& db, const std::string& file)
{
    db.ShowErrors(false);
    for (int i = 0; i < patience; ++i) {
        if (db.OpenStill(file) == 0)
            return true;
        if (!db.LastWasBusy())
            return false;
    }
    throw Refused{"another program holds " + file};
}

/// Proves the copy at \a path; \a problems gets what does not hold in its books.
CopyProof proveCopy(const std::string& path, const Figures& live, std::vector<std::string>& problems)
{
    AppDB copy(folderOf(path));
    if (copy.Open(path) != 0)
        throw Refused{"the copy cannot be opened: " + copy.LastErrText()};
    if (figuresOf(copy) != live)
        throw Refused{"the copy is not what was copied"};
    problems = checkShop(copy);
    CopyProof proof;
    proof.figures = static_cast<int>(live.stock.size());
    proof.problems = static_cast<int>(problems.size());
    proof.verdict = problems.empty() ? CopyProof::Proved : CopyProof::BooksDoNotHold;
    return proof;
}

/// Copies the database that \a live holds still, proves the copy and gives it its name, which it returns.
std::string copyLive(AppDB& live, BackupFolder& folder, const Clock& clock, BackupFolder::Kind kind,
                     bool letGo, std::vector<std::string>& problems)
{
    const Figures figures = figuresOf(live);
    const QDateTime moment = clock.now();
    if (live.CopyTo(folder.aside()) != 0)
        throw Refused{live.LastErrText()};
    if (letGo)
        live.Rollback(); // the shop need not wait for the proof
    std::string why;
    try {
        const CopyProof proof = proveCopy(folder.aside(), figures, problems);
        const std::string name = folder.keep(moment, kind, proof, why);
        if (!name.empty())
            return name;
    } catch (const Refused& refused) {
        why = refused.why;
    }
    (void)removeFile(folder.aside());
    throw Refused{why};
}

void describe(const CopyProof& proof, std::ostream& out)
{
    switch (proof.verdict) {
    case CopyProof::Proved:
        out << "proved, " << proof.figures << " stock figures";
        break;
    case CopyProof::BooksDoNotHold:
        out << "a true copy, but its books have " << proof.problems << " problems";
        break;
    case CopyProof::Changed:
        out << "NOT TO BE USED: it has changed since it was proved";
        break;
    case CopyProof::Unproved:
        out << "not proved";
        break;
    }
}

ToolStatus refuse(const char* what, const Refused& refused, std::ostream& err)
{
    err << "tagdb: " << what << ": " << refused.why << '\n';
    return ToolStatus::Failed;
}

void take(BackupFolder& folder)
{
    std::string why;
    if (!folder.take(why))
        throw Refused{why};
}

/// The path of the copy that is to come back. Refused for what is no finished copy.
std::string copyToRestore(const BackupFolder& folder, const std::string& file)
{
    const std::string path = file.find('/') == std::string::npos ? folder.pathOf(file) : file;
    std::error_code code;
    if (!fs::is_regular_file(path, code))
        throw Refused{path + " is not there"};
    for (const char* beside : {"-journal", "-wal"})
        if (fs::exists(path + beside, code))
            throw Refused{path + " is no finished copy: there is " + path + beside};
    if (BackupFolder::proofOf(path).verdict == CopyProof::Changed)
        throw Refused{path + " has changed since it was proved"};
    return path;
}

/// The new database aside, as a file of its own, opened once so that it is of the present layout.
void proveIncoming(const std::string& incoming, bool evenUnsound, std::ostream& err)
{
    std::vector<std::string> problems;
    {
        AppDB db(folderOf(incoming));
        db.ShowErrors(false);
        if (db.Open(incoming) != 0)
            throw Refused{"it cannot be opened as a database: " + db.LastErrText()};
        problems = checkShop(db);
    }
    for (const std::string& problem : problems)
        err << "tagdb: " << problem << '\n';
    if (!problems.empty() && !evenUnsound)
        throw Refused{std::to_string(problems.size())
                      + " problems in it (--anyway restores it all the same)"};
    if (!syncToDisk(incoming))
        throw Refused{incoming + " cannot be flushed"};
}

/// Keeps a file that is no sound database, byte by byte.
std::string keepUnread(const std::string& live, BackupFolder& folder, const Clock& clock)
{
    copyFile(live, folder.aside());
    std::string why = folder.aside() + " cannot be flushed";
    const std::string name = syncToDisk(folder.aside()) ? folder.keepUnread(clock.now(), why) : std::string();
    if (name.empty())
        throw Refused{why};
    // The engine has played a journal back, as far as it could, when it looked at the file. One that were
    // left would be played into the file that takes the place.
    if (!removeFile(live + "-journal"))
        throw Refused{live + "-journal cannot be removed"};
    return name;
}

/// Keeps what lies in the live place, if anything, and puts \a incoming there.
void replaceLive(const std::string& incoming, const std::string& live, BackupFolder& folder,
                 const Clock& clock, std::ostream& out)
{
    AppDB db(folderOf(live));
    std::error_code code;
    if (fs::exists(live, code)) {
        std::vector<std::string> problems;
        const std::string kept =
            openStill(db, live) ? copyLive(db, folder, clock, BackupFolder::Kind::Replaced, false, problems)
                                : keepUnread(live, folder, clock);
        out << "kept what was there as " << folder.pathOf(kept) << '\n';
    }
    fs::rename(incoming, live, code);
    if (code || !syncToDisk(folderOf(live)))
        throw Refused{live + " cannot be replaced"};
}

/// A file that goes with the object, unless it has become something else by then.
class Aside
{
public:
    explicit Aside(std::string path) : m_path(std::move(path)) { clear(); }
    ~Aside() { clear(); }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

private:
    void clear() const
    {
        for (const char* ending : {"-journal", ""}) {
            std::error_code code;
            fs::remove(m_path + ending, code);
        }
    }
    std::string m_path;
};

struct Streams
{
    std::ostream& out;
    std::ostream& err;
};

/// The whole way of the copy \a source into the live place.
void restoreInto(const BackupOrder& order, const std::string& source, BackupFolder& folder,
                 const Clock& clock, const Streams& streams)
{
    const std::string live = liveFile(order);
    const std::string incoming = live + ".restored";
    std::error_code code;
    fs::create_directories(folderOf(live), code);
    const Aside aside(incoming);
    copyFile(source, incoming);
    proveIncoming(incoming, order.evenUnsound, streams.err);
    replaceLive(incoming, live, folder, clock, streams.out);
    streams.out << "restored " << live << " from " << source << '\n';
}

} // namespace

ToolStatus backupShop(const BackupOrder& order, const Clock& clock, std::ostream& out, std::ostream& err)
try {
    BackupFolder folder(folderFor(order));
    AppDB live(order.base + "/DB");
    if (!openStill(live, liveFile(order)))
        throw Refused{"cannot read " + liveFile(order) + ": " + live.LastErrText()};
    take(folder);
    std::vector<std::string> problems;
    const std::string name = copyLive(live, folder, clock, BackupFolder::Kind::Regular, true, problems);
    for (const std::string& problem : problems)
        out << problem << '\n';
    out << folder.pathOf(name) << "  ";
    describe(BackupFolder::proofOf(folder.pathOf(name)), out);
    out << '\n';
    for (const std::string& gone : folder.rotate(order.keep, name))
        out << "removed " << gone << '\n';
    return problems.empty() ? ToolStatus::Good : ToolStatus::Found;
} catch (const Refused& refused) {
    return refuse("no backup was made", refused, err);
}

ToolStatus listBackups(const BackupOrder& order, std::ostream& out, std::ostream& /*err*/)
{
    const BackupFolder folder(folderFor(order));
    int proved = 0;
    int changed = 0;
    for (const BackupFolder::Copy& copy : folder.copies()) {
        const std::string path = folder.pathOf(copy.name);
        const CopyProof proof = BackupFolder::proofOf(path);
        std::error_code code;
        out << copy.name << "  " << fs::file_size(path, code) << " bytes  ";
        describe(proof, out);
        out << (copy.kind == BackupFolder::Kind::Replaced ? ", kept by a restore\n" : "\n");
        proved += proof.verdict == CopyProof::Proved ? 1 : 0;
        changed += proof.verdict == CopyProof::Changed ? 1 : 0;
    }
    out << proved << " proved copies in " << folder.pathOf("") << '\n';
    return proved > 0 && changed == 0 ? ToolStatus::Good : ToolStatus::Found;
}

ToolStatus restoreShop(const BackupOrder& order, const std::string& file, const Clock& clock,
                       std::ostream& out, std::ostream& err)
{
    try {
        SingleInstance program(QString::fromStdString(order.base));
        if (program.prevInstance())
            throw Refused{"the program runs; end it first"};
        BackupFolder folder(folderFor(order));
        take(folder);
        restoreInto(order, copyToRestore(folder, file), folder, clock, {.out = out, .err = err});
        return ToolStatus::Good;
    } catch (const Refused& refused) {
        return refuse("nothing was restored", refused, err);
    } catch (const RunTimeError& error) {
        return refuse("nothing was restored", {error.what()}, err);
    }
}

} // namespace suisui
