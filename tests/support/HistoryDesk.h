// A shop whose periods are saved and loaded, with an operator who answers by script.
#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>

#include "history/RirekiDB.h"
#include "history/Sentinel.h"
#include "store/AppIni.h"
#include "tests/support/BooksDesk.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::test {

/// Answers in order; when there are none left, every question is cancelled.
class ScriptedPrompts final : public HistoryPrompts
{
public:
    QString askExtension() override { return next(extensions).value_or(QString()); }
    std::optional<Period> askPeriod() override { return next(periods); }
    Place askPlace(const PlaceQuestion& question) override
    {
        asked.push_back(question);
        return next(places).value_or(Place());
    }

    std::deque<QString> extensions;
    std::deque<Period> periods;
    std::deque<Place> places;
    std::vector<PlaceQuestion> asked;

private:
    template <typename T> static std::optional<T> next(std::deque<T>& answers)
    {
        if (answers.empty())
            return std::nullopt;
        const T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

struct HistoryDesk : BooksDesk
{
    HistoryDesk() : HistoryDesk(std::make_unique<TempShop>()) {}
    /// \a ownShop may be on a disk.
    explicit HistoryDesk(std::unique_ptr<TempShop> ownShop) : BooksDesk(std::move(ownShop))
    {
        QDir(shop->base()).mkpath(QStringLiteral("db"));
        QDir(shop->base()).mkpath(QStringLiteral("old"));
        if (AppDB::Create(emptyDatabase()) != DbStatus::Good)
            std::abort();
        ini.setIniFolder(shop->base() + QStringLiteral("/Ini"));
        useExtension("hst");
    }

    /// As the first save of a database leaves it.
    void useExtension(const std::string& extension)
    {
        db.Execute("DELETE FROM RirekiTB WHERE DateFrom='Trn'");
        if (addSentinel(db, extension) != DbStatus::Good)
            std::abort();
        db.Commit();
        history.setHistoryExt(QString::fromStdString(extension));
    }

    [[nodiscard]] std::string emptyDatabase() const
    {
        return (shop->base() + QStringLiteral("/db/trnorg.mdb")).toStdString();
    }
    /// Where periods are saved.
    [[nodiscard]] QString folder() const { return shop->base() + QStringLiteral("/old"); }
    [[nodiscard]] QString fileOf(const Period& period) const
    {
        return folder() + u'/' + historyFileName(period, history.HistoryExt());
    }

    RirekiDB::Result save(const Period& period)
    {
        prompts.periods = {period};
        prompts.places = {{folder(), {}, historyFileName(period, history.HistoryExt())}};
        const RirekiDB::Result result = history.save();
        clock.letPass(std::chrono::seconds(1)); // no operator is so quick
        return result;
    }
    RirekiDB::Result load(const Period& period)
    {
        const QString name = historyFileName(period, history.HistoryExt());
        prompts.places = {{folder(), folder() + u'/' + name, name.left(name.lastIndexOf(u'.'))}};
        const RirekiDB::Result result = history.load();
        clock.letPass(std::chrono::seconds(1));
        return result;
    }

    /// The periods on the list.
    [[nodiscard]] std::vector<std::string> listed() const
    {
        return shop->query("SELECT * FROM RirekiTB WHERE DateFrom<>'Trn' ORDER BY DateFrom, DateTo");
    }
    AppIni ini;
    TestClock clock;
    ScriptedMsgBox box;
    TestFrame frame;
    ScriptedPrompts prompts;
    RirekiDB history{Services{db, ini, clock, box, frame}, prompts, emptyDatabase()};
};

} // namespace suisui::test
