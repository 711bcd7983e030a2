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
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TempShop.h"
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

struct HistoryDesk
{
    HistoryDesk() : HistoryDesk(std::make_unique<TempShop>()) {}
    /// \a ownShop may be on a disk.
    explicit HistoryDesk(std::unique_ptr<TempShop> ownShop)
        : shop(std::move(ownShop)),
          db(shop->databaseFolder(), [this](const std::string& text) { storeSaid.push_back(text); })
    {
        QDir(shop->base()).mkpath(QStringLiteral("db"));
        QDir(shop->base()).mkpath(QStringLiteral("old"));
        if (AppDB::Create(emptyDatabase()) != 0 || db.Open("trnvik.mdb") != 0)
            std::abort();
        ini.setIniFolder(shop->base() + QStringLiteral("/Ini"));
        useExtension("hst");
    }

    /// As the first save of a database leaves it.
    void useExtension(const std::string& extension)
    {
        db.Execute("DELETE FROM RirekiTB WHERE DateFrom='Trn'");
        if (addSentinel(db, extension) != 0)
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

    void receipt(const std::string& code, const std::string& quantity, const std::string& date,
                 const std::string& stamp, const std::string& remark = {},
                 const std::string& returned = "0000000")
    {
        shop->add(inpTable, {code, "品名", "ヒン", quantity, "0000100", "101", "東商店", date, "090000", "個",
                             "0000000", returned, "01", "山田", remark, stamp, stamp});
    }
    void shipment(const std::string& code, const std::string& quantity, const std::string& date,
                  const std::string& stamp, const std::string& remark = {})
    {
        shop->add(outTable, {code,   "品名",   "ヒン",     quantity,  "0000150", "201",     "西商店",
                             date,   "100000", "個",       "0000000", "0000000", "0000000", "01",
                             "山田", remark,   "20260101", "120000",  stamp,     stamp});
    }
    void stock(const std::string& code, const std::string& figure, const std::string& carried)
    {
        shop->add(zaikoTable, {code, figure, carried, "20260101000000", "20260101000000"});
    }
    void component(const std::string& product, const std::string& part, const std::string& quantity)
    {
        shop->add(hseihinTable, {product, "", part, quantity});
    }

    /// All rows of a table in an order of their own, whatever order they came in.
    [[nodiscard]] std::vector<std::string> rows(const std::string& table) const
    {
        return shop->query("SELECT * FROM " + table + " ORDER BY 1, 2, 3, 4, 5");
    }
    [[nodiscard]] std::vector<std::string> movements() const
    {
        std::vector<std::string> all = shop->query("SELECT * FROM InpTB ORDER BY InpDate, Code");
        const std::vector<std::string> out = shop->query("SELECT * FROM OutTB ORDER BY InpDate, Code");
        all.insert(all.end(), out.begin(), out.end());
        return all;
    }
    /// The periods on the list.
    [[nodiscard]] std::vector<std::string> listed() const
    {
        return shop->query("SELECT * FROM RirekiTB WHERE DateFrom<>'Trn' ORDER BY DateFrom, DateTo");
    }
    /// Code and figure of a column of the stock.
    [[nodiscard]] std::vector<std::string> stockColumn(const std::string& column) const
    {
        return shop->query("SELECT Code, " + column + " FROM ZaikoTB ORDER BY Code");
    }

    std::unique_ptr<TempShop> shop;
    std::vector<std::string> storeSaid; ///< the boxes that the store itself would show
    AppDB db;
    AppIni ini;
    TestClock clock;
    ScriptedMsgBox box;
    TestFrame frame;
    ScriptedPrompts prompts;
    RirekiDB history{Services{db, ini, clock, box, frame}, prompts, emptyDatabase()};
};

} // namespace suisui::test
