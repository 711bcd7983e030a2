// A shop's database, opened, and everything that a page of the program needs.
#pragma once

#include <stdexcept>

#include "frame/support/Frame.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"
#include "tests/support/TestFrame.h"

namespace suisui::test {

struct ServiceDesk
{
    ServiceDesk() : db(shop.databaseFolder())
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            throw std::runtime_error("no database in " + shop.databaseFolder());
    }

    [[nodiscard]] Services services() { return {db, ini, clock, box, frame}; }

    TempShop shop;
    AppDB db;
    AppIni ini;
    TestClock clock;
    ScriptedMsgBox box;
    TestFrame frame;
};

} // namespace suisui::test
