// The connection to a database and the row sets that it owns. The program holds one for the working
// database, for the whole run; a second one lives only while a history file is saved or loaded.
//
// The connection is always inside a unit of work: what is written is pending until Commit and gone after
// Rollback. The unit takes the file's write lock at its first write, so reading, and a screen that waits
// for its operator, hold no lock.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/DbStatus.h"
#include "store/QuerySet.h"
#include "store/Recordset.h"
#include "store/RowSet.h"
#include "store/Sqlite.h"

namespace suisui {

class AppDB
{
public:
    /// Shows a failure to the operator: cause and advice, ready to be read.
    using ErrorSink = std::function<void(const std::string& text)>;

    /// \a databaseFolder holds the working database, "{base}/DB".
    explicit AppDB(std::string databaseFolder, ErrorSink showError = {});
    ~AppDB();
    AppDB(const AppDB&) = delete;
    AppDB& operator=(const AppDB&) = delete;

    // The row sets, each with its own buffer.
    [[nodiscard]] Recordset& recordset() { return m_recordset; }
    [[nodiscard]] InpRec& InpTbl() { return m_inpTbl; }
    [[nodiscard]] OutRec& OutTbl() { return m_outTbl; }
    [[nodiscard]] MasterRec& MasterTbl() { return m_masterTbl; }
    [[nodiscard]] KokyakuRec& KokyakuAll() { return m_kokyakuAll; }
    [[nodiscard]] KokyakuRec& KokyakuNyu() { return m_kokyakuNyu; }
    [[nodiscard]] KokyakuRec& KokyakuSyu() { return m_kokyakuSyu; }
    [[nodiscard]] TantouRec& TantouTbl() { return m_tantouTbl; }
    [[nodiscard]] NyuSumRec& NyuSumTbl() { return m_nyuSumTbl; }
    [[nodiscard]] SyuSumRec& SyuSumTbl() { return m_syuSumTbl; }
    [[nodiscard]] ZaikoViewRec& ZaikoViewTbl() { return m_zaikoViewTbl; }
    [[nodiscard]] NyuViewRec& NyuViewTbl() { return m_nyuViewTbl; }
    [[nodiscard]] SyuViewRec& SyuViewTbl() { return m_syuViewTbl; }
    [[nodiscard]] InpRec& InpList() { return m_inpList; }
    [[nodiscard]] OutRec& OutList() { return m_outList; }
    [[nodiscard]] ZaikoRec& ZaikoTbl() { return m_zaikoTbl; }
    [[nodiscard]] MasterRec& MasterSyu() { return m_masterSyu; }
    [[nodiscard]] MasterRec& MasterPost() { return m_masterPost; }
    [[nodiscard]] HSeihinRec& HSeihinTbl() { return m_hseihinTbl; }
    [[nodiscard]] KokyakuRec& KokyakuSlip() { return m_kokyakuSlip; }
    [[nodiscard]] RirekiRec& RirekiTbl() { return m_rirekiTbl; }

    /// Of the last Execute, Commit or write through a row set.
    [[nodiscard]] DbStatus LastStatus() const { return m_lastStatus; }
    /// The number of the last failure as text: "3022" for a duplicate key, "" for a row that somebody else
    /// has changed, and when there was none.
    [[nodiscard]] const std::string& LastErrNo() const { return m_lastErrNo; }
    /// What the failure means that LastErrNo numbers, be it a write or a selection.
    [[nodiscard]] DbStatus LastFailure() const { return m_lastFailure; }
    /// The store's own words for the last failure, for a report.
    [[nodiscard]] const std::string& LastErrText() const { return m_lastErrText; }
    void ShowErrors(bool show) { m_showErrors = show; }

    /// Opens \a file: a bare name is in the database folder. Not Good when the file is missing,
    /// unreadable, read-only, damaged, foreign, newer than this program, or held by another process; the
    /// file is then as it was. An older layout is upgraded.
    [[nodiscard]] DbStatus Open(std::string_view file);
    /// As Open, for a new file that is thrown away unless it is completed: what is written to it is safe only
    /// after FinishFilling, CloseFile and CloseAfterSave, and needs no journal file meanwhile.
    [[nodiscard]] DbStatus OpenForFilling(std::string_view file);
    /// Makes the indexes that filling went without, gives the file \a mark, and commits.
    [[nodiscard]] DbStatus FinishFilling(std::uint32_t mark = 0);
    /// The mark of the database \a path, which every copy of the file has too; 0 when it was given none, and
    /// no value when the file cannot be read or is not a database. Takes no lock.
    [[nodiscard]] static std::optional<std::uint32_t> MarkOf(const std::string& path);
    /// Whether all pages of the open file hold what they should; reads them all.
    [[nodiscard]] bool IsSound();
    /// True when the last Open or IsSound found the file damaged, cut short or not of this program, so that
    /// trying again is useless.
    [[nodiscard]] bool LastFileWasUnfit() const { return m_unfit; }
    /// As Open, but takes a snapshot that lasts until Rollback, also while another process has writes
    /// pending: all reads see one state, and the commits of others wait. For moments only, since others wait
    /// no longer than half a second.
    [[nodiscard]] DbStatus OpenStill(std::string_view file);
    /// Copies the database to the new file \a path while others use it, and flushes the copy. A failed copy
    /// is removed.
    [[nodiscard]] DbStatus CopyTo(const std::string& path);
    void Commit();
    void Rollback();
    /// Flushes the file that was closed last.
    [[nodiscard]] DbStatus CloseAfterSave();
    void CloseFile();
    [[nodiscard]] DbStatus OpenRecordset(const SqlText& sql);
    void CloseRecordset();
    /// Adds the rows from the cursor of \a source's Recordset on, which must have all columns of \a table in
    /// their order. A row whose key is there already is skipped. Not Good when a row could not be read or
    /// added; one that holds a quote or a NUL is never added, since no INSERT text could carry it. The cursor
    /// is closed. \a added counts the rows that were not there already.
    [[nodiscard]] DbStatus copyRows(AppDB& source, const TableDef& table, std::int64_t& added);
    /// One INSERT, UPDATE or DELETE; the outcome is in LastStatus and LastErrNo.
    void Execute(const SqlText& sql);
    /// Rows that the last Execute added, changed or deleted.
    [[nodiscard]] std::int64_t RowsChanged() const { return m_engine.changes(); }
    void Release();

    /// True while writes are pending.
    [[nodiscard]] bool inUnit() const { return m_inUnit; }

    /// Makes a new, empty database with all tables at \a path, which must not exist. The file counts as
    /// stored when this returns Good.
    [[nodiscard]] static DbStatus Create(const std::string& path, std::string* error = nullptr);

private:
    friend class RowSet;
    friend class QuerySet;

    /// Opens the unit of work if none is open. Not Good when another process holds the file, or when the
    /// engine has given up the unit: then nothing more goes in before it has been rolled back.
    [[nodiscard]] DbStatus beginWrite();
    /// Records a failed or a good write.
    DbStatus fail(int engineCode);
    DbStatus succeed();
    /// Records a write that found its row changed or gone.
    DbStatus refuse();
    /// Records a failed selection.
    DbStatus failRead(int engineCode);
    [[nodiscard]] DbStatus copyCursor(AppDB& source, const TableDef& table, std::int64_t& added);
    /// Records a failure that is not the engine's.
    DbStatus failOwn(std::string why);
    void rememberFailure(int engineCode);
    void report(DbStatus failure);
    [[nodiscard]] std::string adviceFor(DbStatus failure) const;
    [[nodiscard]] DbStatus holdStill();
    [[nodiscard]] bool isOurs();
    [[nodiscard]] static bool isDamage(int engineCode);
    [[nodiscard]] bool isWhole(const std::string& path);
    // Row sets made over this connection, the accessors' own among them.
    void enter(RowSet* rows) { m_rowSets.push_back(rows); }
    void leave(RowSet* rows) { std::erase(m_rowSets, rows); }

    std::vector<RowSet*> m_rowSets; // before the row sets, which enter themselves
    Sqlite m_engine;
    std::string m_databaseFolder;
    std::string m_path; ///< of the file opened last
    ErrorSink m_showError;
    bool m_showErrors = true;
    bool m_inUnit = false;
    bool m_unfit = false; ///< the file opened last
    DbStatus m_lastStatus = DbStatus::Good;
    DbStatus m_lastFailure = DbStatus::Good;
    std::string m_lastErrNo;
    std::string m_lastErrText;

    Recordset m_recordset;
    InpRec m_inpTbl;
    OutRec m_outTbl;
    MasterRec m_masterTbl;
    KokyakuRec m_kokyakuAll;
    KokyakuRec m_kokyakuNyu;
    KokyakuRec m_kokyakuSyu;
    TantouRec m_tantouTbl;
    NyuSumRec m_nyuSumTbl;
    SyuSumRec m_syuSumTbl;
    ZaikoViewRec m_zaikoViewTbl;
    NyuViewRec m_nyuViewTbl;
    SyuViewRec m_syuViewTbl;
    InpRec m_inpList;
    OutRec m_outList;
    ZaikoRec m_zaikoTbl;
    MasterRec m_masterSyu;
    MasterRec m_masterPost;
    HSeihinRec m_hseihinTbl;
    KokyakuRec m_kokyakuSlip;
    RirekiRec m_rirekiTbl;
};

} // namespace suisui
