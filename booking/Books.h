// What the rules of booking need of the run: the books, somebody to show messages to, and the time.
#pragma once

#include "store/DbStatus.h"

namespace suisui {

class AppDB;
class Clock;
class MsgBox;

struct Books
{
    AppDB& db;
    MsgBox& msgBox;
    Clock& clock;
};

/// Makes the unit of work permanent when its last write has gone well, as \a status says; otherwise nothing
/// of it stays.
[[nodiscard]] bool commitWhen(AppDB& db, DbStatus status);

} // namespace suisui
