#include "tools/Cause.h"

#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

constexpr std::string_view notOpened = "unable to open database file";

constexpr struct
{
    DbStatus kind;
    const Phrase& phrase;
} meanings[] = {
    {DbStatus::Damaged, phrases::damagedDatabase},
    {DbStatus::NoDatabase, phrases::damagedDatabase},
    {DbStatus::NotADatabase, phrases::damagedDatabase},
    {DbStatus::Busy, phrases::busyDatabase},
    {DbStatus::Full, phrases::fullDisk},
    {DbStatus::ReadOnly, phrases::readOnlyDatabase},
};

} // namespace

DbStatus troubleOf(int code)
{
    switch (runTimeNumber(code)) {
    case RunTimeError::DiskFull:
        return DbStatus::Full;
    case RunTimeError::PermissionDenied:
    case RunTimeError::PathAccessError:
        return DbStatus::ReadOnly;
    default:
        return DbStatus::Failed;
    }
}

DbStatus troubleOf(const AppDB& db)
{
    if (db.LastErrText() == notOpened)
        return DbStatus::ReadOnly; // the engine says no more: a file that is there lacks the permission
    return db.LastFailure();
}

Message causeOf(const AppDB& db)
{
    const std::string& words = db.LastErrText();
    if (words == notOpened)
        return phrases::noSuchDatabase;
    for (const Phrase& own : phrases::causes)
        if (own.english == words)
            return own;
    for (const auto& meaning : meanings)
        if (meaning.kind == troubleOf(db))
            return {meaning.phrase, {words}};
    return {phrases::engineFailed, {words}};
}

Message kindNamed(std::string_view english)
{
    return recognised(phrases::kinds, english);
}

} // namespace suisui
