#include "booking/Books.h"

#include "store/AppDB.h"

namespace suisui {

bool commitWhen(AppDB& db, DbStatus status)
{
    if (status == DbStatus::Good) {
        db.Commit();
        status = db.LastStatus();
    }
    if (status != DbStatus::Good)
        db.Rollback();
    return status == DbStatus::Good;
}

} // namespace suisui
