#include "tools/Backup.h"

#include <filesystem>
#include <ostream>
#include <vector>

#include "platform/core/Files.h"
#include "platform/core/SingleInstance.h"
#include "store/AppDB.h"
#include "store/BackupNote.h"
#include "store/ShopFiles.h"
#include "tools/BackupFolder.h"
#include "tools/Phrases.h"
#include "tools/RestoreCheck.h"
#include "tools/ShopCheck.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr int patience = 20; // attempts of half a second each while others write

/// A failure on its way to the operator.
struct Refused
{
    Fault fault;

    explicit Refused(Fault what) : fault(std::move(what)) {}
    explicit Refused(const Phrase& phrase, std::vector<Message> parts = {})
        : fault{{phrase, std::move(parts)}}
    {
    }
};

Refused refusedBy(const AppDB& db, const Phrase& phrase, std::vector<Message> parts = {})
{
    parts.push_back(causeOf(db));
    return Refused(Fault{{phrase, std::move(parts)}, troubleOf(db)});
}

std::string folderFor(const BackupOrder& order)
{
    return order.folder.empty() ? order.base + "/backup" : order.folder;
}

std::string liveFile(const BackupOrder& order)
{
    return workingPath(order.base);
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
        throw refusedBy(db, phrases::stockUnreadable);
    for (int row = 1; row <= stock.Count(); ++row) {
        std::string line;
        for (int column = 0; column < stock.table().columnCount(); ++column)
            line += std::string(stock.RowSet::get(row, column)) + '\n';
        figures.stock.push_back(std::move(line));
    }
    return figures;
}

/// Opens a snapshot of \a file: others can read, but their commits wait. False for a file that is not a sound
/// database; throws Refused when others hold it for too long.
bool openStill(AppDB& db, const std::string& file)
{
    db.ShowErrors(false);
    for (int i = 0; i < patience; ++i) {
        const DbStatus status = db.OpenStill(file);
        if (status == DbStatus::Good)
            return true;
        if (status != DbStatus::Busy)
            return false;
    }
    throw Refused(Fault{{phrases::othersHold, {file}}, DbStatus::Busy});
}

/// Verifies the copy at \a path; \a problems gets what does not hold in its books.
CopyProof verifyCopy(const std::string& path, const Figures& live, Language language,
                     std::vector<std::string>& problems)
{
    AppDB copy(folderOf(path));
    if (copy.Open(path) != DbStatus::Good)
        throw refusedBy(copy, phrases::copyNotOpened);
    if (figuresOf(copy) != live)
        throw Refused(phrases::copyDiffers);
    problems = checkShop(copy, language);
    CopyProof proof;
    proof.figures = static_cast<int>(live.stock.size());
    proof.problems = static_cast<int>(problems.size());
    proof.verdict = problems.empty() ? CopyProof::Verified : CopyProof::BooksDoNotHold;
    return proof;
}

struct Wanted
{
    BackupFolder::Kind kind;
    bool letGo;        ///< release the live database as soon as it is copied
    Language language; ///< of the problems that are found
};

/// Copies the snapshot that \a live holds, verifies the copy and gives it its name, which is returned.
std::string copyLive(AppDB& live, BackupFolder& folder, const Clock& clock, const Wanted& wanted,
                     std::vector<std::string>& problems)
{
    const Figures figures = figuresOf(live);
    const QDateTime moment = clock.now();
    if (live.CopyTo(folder.aside()) != DbStatus::Good)
        throw Refused(Fault{causeOf(live), troubleOf(live)});
    if (wanted.letGo)
        live.Rollback(); // the shop need not wait for the verification
    Fault fault;
    try {
        const CopyProof proof = verifyCopy(folder.aside(), figures, wanted.language, problems);
        std::string name = folder.keep(moment, wanted.kind, proof, fault);
        if (!name.empty())
            return name;
    } catch (const Refused& refused) {
        fault = refused.fault;
    }
    (void)removeFile(folder.aside());
    throw Refused(fault);
}

Message described(const CopyProof& proof)
{
    switch (proof.verdict) {
    case CopyProof::Verified:
        return {phrases::verified, {std::to_string(proof.figures)}};
    case CopyProof::BooksDoNotHold:
        return {phrases::booksDoNotHold, {std::to_string(proof.problems)}};
    case CopyProof::Changed:
        return phrases::notToBeUsed;
    case CopyProof::Unverified:
        break;
    }
    return phrases::notVerified;
}

ToolStatus refuse(const Phrase& what, const Message& why, std::ostream& err)
{
    err << Message(phrases::complaint, {{what, {why}}});
    return ToolStatus::Failed;
}

/// What a note says about a failure, short enough for a box, and what to do about it. Without a reason here
/// the note gives that of the fault.
struct Remedy
{
    DbStatus trouble;
    const Phrase* reason;
    const Phrase& advice;
};

constexpr Remedy remedies[] = {
    {DbStatus::Full, &phrases::noRoom, phrases::doMakeRoom},
    {DbStatus::ReadOnly, nullptr, phrases::doAllowWriting},
    {DbStatus::Busy, &phrases::inUse, phrases::doEndOthers},
    {DbStatus::Damaged, &phrases::isDamaged, phrases::doRestore},
    {DbStatus::NoDatabase, &phrases::isDamaged, phrases::doRestore},
    {DbStatus::NotADatabase, &phrases::isDamaged, phrases::doRestore},
};

/// Leaves the failure of a daily run for the program to show, in Japanese.
void leaveNote(const BackupOrder& order, const Clock& clock, const Message& why, const Message& advice)
{
    const auto japanese = [](const Message& text) {
        return QString::fromStdString(text.in(Language::Japanese));
    };
    if (order.daily)
        (void)BackupNote(QString::fromStdString(order.base))
            .write({clock.now(), japanese(why), japanese(advice)});
}

void leaveNote(const BackupOrder& order, const Clock& clock, const Fault& fault)
{
    for (const Remedy& remedy : remedies)
        if (remedy.trouble == fault.trouble)
            return leaveNote(order, clock, remedy.reason != nullptr ? Message(*remedy.reason) : fault.why,
                             remedy.advice);
    leaveNote(order, clock, fault.why, phrases::doTryAgain);
}

void take(BackupFolder& folder)
{
    Fault fault;
    if (!folder.take(fault))
        throw Refused(fault);
}

/// The path of the copy to restore. Throws Refused when it is not a finished copy.
std::string copyToRestore(const BackupFolder& folder, const std::string& file)
{
    std::string path = file.find('/') == std::string::npos ? folder.pathOf(file) : file;
    std::error_code code;
    if (!fs::is_regular_file(path, code))
        throw Refused(phrases::isNotThere, {path});
    for (const char* beside : {"-journal", "-wal"})
        if (fs::exists(path + beside, code))
            throw Refused(phrases::notFinished, {path, beside + 1});
    if (BackupFolder::proofOf(path).verdict == CopyProof::Changed)
        throw Refused(phrases::changedSince, {path});
    return path;
}

/// Checks the new database aside, which came from the file named \a name. Opening it brings it to the present
/// layout and the program's journal mode. Throws Refused when it must not take the place of the working one.
void verifyIncoming(const std::string& incoming, const std::string& name, bool evenUnsound, std::ostream& err)
{
    std::vector<std::string> problems;
    {
        AppDB db(folderOf(incoming));
        db.ShowErrors(false);
        if (db.Open(incoming) != DbStatus::Good)
            throw refusedBy(db, phrases::notADatabase);
        if (const Message unfit = unfitToRestore(db, name); !unfit.empty())
            throw Refused(Fault{unfit});
        problems = checkShop(db, languageOf(err));
    }
    for (const std::string& problem : problems)
        err << Message(phrases::complaint, {problem});
    if (!problems.empty() && !evenUnsound)
        throw Refused(phrases::problemsInIt, {std::to_string(problems.size())});
    if (!syncToDisk(incoming))
        throw Refused(phrases::notFlushed, {incoming});
}

/// Keeps a file that is not a sound database, byte by byte.
std::string keepUnread(const std::string& live, BackupFolder& folder, const Clock& clock)
{
    copyFile(live, folder.aside());
    Fault fault{{phrases::notFlushed, {folder.aside()}}};
    std::string name = syncToDisk(folder.aside()) ? folder.keepUnread(clock.now(), fault) : std::string();
    if (name.empty())
        throw Refused(fault);
    // The engine rolled a journal back, as far as it could, when it opened the file. A journal left behind
    // would be rolled into the file that is put here next.
    if (!removeFile(live + "-journal"))
        throw Refused(phrases::notRemoved, {live + "-journal"});
    return name;
}

/// Keeps the file at \a live among the copies, if there is one, and puts \a incoming there.
void replaceLive(const std::string& incoming, const std::string& live, BackupFolder& folder,
                 const Clock& clock, std::ostream& out)
{
    AppDB db(folderOf(live));
    std::error_code code;
    if (fs::exists(live, code)) {
        std::vector<std::string> problems;
        const std::string kept =
            openStill(db, live) ? copyLive(
                db, folder, clock,
                {.kind = BackupFolder::Kind::Replaced, .letGo = false, .language = languageOf(out)}, problems)
                                : keepUnread(live, folder, clock);
        out << Message(phrases::keptWhatWasThere, {folder.pathOf(kept)});
    }
    fs::rename(incoming, live, code);
    if (code || !syncToDisk(folderOf(live)))
        throw Refused(phrases::notReplaced, {live});
}

/// A file that is removed with the object, unless it has been renamed by then.
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
        for (const char* ending : {"-journal", "-wal", "-shm", ""}) {
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

/// Brings the copy \a source to the place of the working database.
void restoreInto(const BackupOrder& order, const std::string& source, BackupFolder& folder,
                 const Clock& clock, const Streams& streams)
{
    const std::string live = liveFile(order);
    const std::string incoming = live + ".restored";
    std::error_code code;
    fs::create_directories(folderOf(live), code);
    const Aside aside(incoming);
    copyFile(source, incoming);
    verifyIncoming(incoming, fs::path(source).filename().string(), order.evenUnsound, streams.err);
    replaceLive(incoming, live, folder, clock, streams.out);
    streams.out << Message(phrases::restored, {live, source});
}

} // namespace

ToolStatus backupShop(const BackupOrder& order, const Clock& clock, std::ostream& out, std::ostream& err)
try {
    std::error_code code;
    if (order.daily && !fs::exists(liveFile(order), code) && !code) {
        out << Message(phrases::noShopToCopy, {order.base});
        return ToolStatus::Good;
    }
    BackupFolder folder(folderFor(order));
    AppDB live(order.base + "/DB");
    if (!openStill(live, liveFile(order)))
        throw refusedBy(live, phrases::cannotReadBecause, {liveFile(order)});
    take(folder);
    std::vector<std::string> problems;
    const std::string name =
        copyLive(live, folder, clock,
                 {.kind = BackupFolder::Kind::Regular, .letGo = true, .language = languageOf(out)}, problems);
    for (const std::string& problem : problems)
        out << problem << '\n';
    out << Message(phrases::madeCopy,
                   {folder.pathOf(name), described(BackupFolder::proofOf(folder.pathOf(name)))});
    for (const std::string& gone : folder.rotate(order.keep, name))
        out << Message(phrases::removedCopy, {gone});
    if (problems.empty())
        BackupNote(QString::fromStdString(order.base)).clear();
    else
        leaveNote(order, clock, {phrases::booksOfTheCopy, {std::to_string(problems.size())}},
                  phrases::doCheck);
    return problems.empty() ? ToolStatus::Good : ToolStatus::Found;
} catch (const Refused& refused) {
    leaveNote(order, clock, refused.fault);
    return refuse(phrases::noBackupMade, refused.fault.why, err);
}

ToolStatus listBackups(const BackupOrder& order, std::ostream& out, std::ostream& /*err*/)
{
    const BackupFolder folder(folderFor(order));
    int verified = 0;
    int changed = 0;
    for (const BackupFolder::Copy& copy : folder.copies()) {
        const std::string path = folder.pathOf(copy.name);
        const CopyProof proof = BackupFolder::proofOf(path);
        std::error_code code;
        out << Message(
            phrases::listedCopy,
            {copy.name, std::to_string(fs::file_size(path, code)), described(proof),
             copy.kind == BackupFolder::Kind::Replaced ? Message(phrases::keptByRestore) : Message()});
        verified += proof.verdict == CopyProof::Verified ? 1 : 0;
        changed += proof.verdict == CopyProof::Changed ? 1 : 0;
    }
    out << Message(phrases::verifiedCount, {std::to_string(verified), folder.pathOf("")});
    return verified > 0 && changed == 0 ? ToolStatus::Good : ToolStatus::Found;
}

ToolStatus restoreShop(const BackupOrder& order, const std::string& file, const Clock& clock,
                       std::ostream& out, std::ostream& err)
{
    try {
        std::error_code code;
        fs::create_directories(order.base, code); // a new computer has none
        SingleInstance program(QString::fromStdString(order.base));
        if (program.prevInstance())
            throw Refused(phrases::programRuns);
        if (!program.holds())
            throw Refused(phrases::cannotTellWhetherItRuns, {order.base});
        BackupFolder folder(folderFor(order));
        take(folder);
        restoreInto(order, copyToRestore(folder, file), folder, clock, {.out = out, .err = err});
        return ToolStatus::Good;
    } catch (const Refused& refused) {
        return refuse(phrases::nothingRestored, refused.fault.why, err);
    } catch (const RunTimeError& error) {
        return refuse(phrases::nothingRestored, error.what(), err);
    }
}

} // namespace suisui
