// Moving the movements of a period out of the working database into a history file of their own, and back.
// The stock never moves by that; only the part of it that is carried forward does.
//
// At any instant, power cuts included, a movement is in the working tables, or in a history file that
// RirekiTB lists: a file is whole and on the disk before the working database gives up its rows, gets its
// name after that, and goes only after they are back. What a kill in between leaves is settled by whoever
// starts, saves or loads next (UnfinishedSave.h).
//
// The long steps run away from the loop, so the window goes on painting; it must be disabled meanwhile.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "frame/support/Frame.h"
#include "history/HistoryPrompts.h"

namespace suisui {

class RirekiDB
{
public:
    enum Result {
        Done = 0,
        Failed = -1,
        Cancelled = 999,
    };

    /// \a emptyDatabase is the file that a new history file is made of.
    RirekiDB(const Services& services, HistoryPrompts& prompts, std::string emptyDatabase);
    ~RirekiDB();
    RirekiDB(const RirekiDB&) = delete;
    RirekiDB& operator=(const RirekiDB&) = delete;

    /// Extension of all history files of this database, without its point.
    [[nodiscard]] const QString& HistoryExt() const { return m_historyExt; }
    void setHistoryExt(const QString& extension) { m_historyExt = extension; }
    /// The period saved last, for the message about it.
    [[nodiscard]] const Period& period() const { return m_period; }

    /// Ends what a killed program has left of a save. For the start; save and load do it themselves.
    void settle();
    /// Asks for a period and a folder and moves the period there. When the file system fails before anything
    /// has moved, that is reported here and the result is Done nevertheless, as it has always been.
    [[nodiscard]] Result save();
    /// Asks for a history file and brings its movements back. A row whose key the working tables hold already
    /// is dropped with the file. A file that is not the one on the list, or is damaged, is refused and kept.
    [[nodiscard]] Result load();

private:
    struct Job;

    [[nodiscard]] Result run(const Job& job, const std::function<Result()>& work);
    [[nodiscard]] Result fill(const Place& place);
    [[nodiscard]] Result moveOut(FileInTheMaking& file);
    [[nodiscard]] Result moveOut(Side side);
    [[nodiscard]] Result finish(const FileInTheMaking& file);
    [[nodiscard]] Result listPeriod(const std::string& file);
    void giveUp(FileInTheMaking& file);
    void conclude(const Place& place, const FileInTheMaking& file);
    [[nodiscard]] Result openSound(const std::string& path, bool& fits);
    [[nodiscard]] Result bringBack();
    [[nodiscard]] Result bringBack(Side side);
    [[nodiscard]] Result strikePeriod();
    [[nodiscard]] Result carry();
    [[nodiscard]] std::string freshStamp();
    [[nodiscard]] Result commit(AppDB& db);
    [[nodiscard]] Result openHistory(const std::string& path, bool toFill);
    void closeHistory();
    void rollBack();
    [[nodiscard]] bool isManaged(const Place& place);
    void refuse(const Place& place);
    void report(const Job& job, int number);
    void reportUnreachable();
    void clearRows();
    void advance();

    Services m_services;
    HistoryPrompts& m_prompts;
    std::string m_emptyDatabase;
    std::unique_ptr<AppDB> m_history; ///< the second connection, while a file is being saved or loaded
    QString m_historyExt;
    Period m_period;
    std::string m_stamp;   ///< of the save under way
    QString m_unreachable; ///< the file of a save that is complete but for its name
    int m_progress = 0;
};

} // namespace suisui
