// The main window over a shop's database, with everything around it answered by script.
#pragma once

#include <deque>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "frame/shell/frmMain.h"
#include "frame/support/frm_ShortWait.h"
#include "frame/support/frm_Wait.h"
#include "movement/MovementPage.h"
#include "platform/widgets/Printer.h"
#include "store/AppEnv.h"
#include "store/AppIni.h"
#include "store/SlipIni.h"
#include "tests/support/RecordingBarPrt.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"

namespace suisui::test {

struct MainWindowDesk : private Run
{
    MainWindowDesk() : db(shop.databaseFolder()) { EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good); }

    void fillShop()
    {
        partner("101", "東商店", "1", "");
        partner("102", "西商店", "1", "");
        partner("201", "南商店", "", "1");
        shop.add(tantouTable, {"01", "山田"});
        shop.add(tantouTable, {"02", "佐藤"});
        shop.add(masterTable, {"4901001000017", "鉛筆", "", "12", "50", "1", "80", "本", "0"});
    }
    void partner(const std::string& code, const std::string& name, const std::string& nyu,
                 const std::string& syu)
    {
        shop.add(kokyakuTable, {code, name, "", "", "", "", "", "", "", "", "", "", "", nyu, syu});
    }
    /// The window as it is before it is first shown.
    frmMain& load()
    {
        window = std::make_unique<frmMain>(Surroundings{db, env, ini, slipIni, clock, box, shortWait, wait,
                                                        printer, paper, *this, QStringLiteral("20260401")});
        window->load();
        return *window;
    }
    frmMain& open()
    {
        load();
        window->show();
        window->showTab(Tab::Receipt);
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        field(Tab::Receipt).setFocus();
        return *window;
    }
    QLineEdit& field(Tab tab) const { return *window->page(tab).barCodeField(); }
    vaSpread& grid(Tab tab) const { return *window->page(tab).grid(); }
    template <typename Widget> Widget& control(QStringView name) const
    {
        auto* found = window->findChild<Widget*>(name.toString());
        if (found == nullptr)
            throw std::runtime_error("no control " + name.toString().toStdString());
        return *found;
    }
    /// Books a receipt and leaves its quantity changed and not saved.
    void leaveAnEdit()
    {
        window->GoodsCodeSet(QStringLiteral("4901001000017"));
        const int quantity = movementSide(Side::Receipt).cells.quantity;
        grid(Tab::Receipt).SetText(quantity, 1, std::string_view("20"));
        Q_EMIT grid(Tab::Receipt).Change(quantity, 1);
        ASSERT_TRUE(window->dirty(Side::Receipt));
    }

    TempShop shop;
    AppDB db;
    AppEnv env{shop.base()};
    AppIni ini;
    SlipIni slipIni;
    TestClock clock;
    ScriptedMsgBox box;
    frm_ShortWait shortWait;
    frm_Wait wait;
    Printer printer;
    RecordingBarPrt paper;
    std::deque<QString> scans; ///< for the dialogs
    std::unique_ptr<frmMain> window;
    int asked = 0;
    bool endAnswer = true;
    bool masterStart = false;
    bool gone = false;

private:
    [[nodiscard]] QString nextLine() override
    {
        if (scans.empty())
            return {};
        const QString line = scans.front();
        scans.pop_front();
        return line;
    }
    [[nodiscard]] bool askEnd() override { return ++asked, endAnswer; }
    [[nodiscard]] bool masterStartFlag() const override { return masterStart; }
    void setMasterStartFlag(bool start) override { masterStart = start; }
    void windowUnloaded() override { gone = true; }
};

} // namespace suisui::test
