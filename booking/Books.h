// What the rules of booking need of the run: the books, somebody to tell, and the time.
#pragma once

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

/// Makes the unit of work permanent when its last write has gone well (\a status 0); otherwise nothing of it
/// stays.
[[nodiscard]] bool commitWhen(AppDB& db, int status);

} // namespace suisui
