#include "tools/Cause.h"

#include <charconv>

#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

constexpr std::string_view notOpened = "unable to open database file";

constexpr struct
{
    EngineError kind;
    const Phrase& phrase;
} meanings[] = {
    {EngineError::Damaged, phrases::damagedDatabase},
    {EngineError::NoDatabase, phrases::damagedDatabase},
    {EngineError::NotADatabase, phrases::damagedDatabase},
    {EngineError::Busy, phrases::busyDatabase},
    {EngineError::Full, phrases::fullDisk},
    {EngineError::ReadOnly, phrases::readOnlyDatabase},
};

} // namespace

EngineError troubleOf(int code)
{
    switch (runTimeNumber(code)) {
    case RunTimeError::DiskFull:
        return EngineError::Full;
    case RunTimeError::PermissionDenied:
    case RunTimeError::PathAccessError:
        return EngineError::ReadOnly;
    default:
        return EngineError::Other;
    }
}

EngineError troubleOf(const AppDB& db)
{
    if (db.LastErrText() == notOpened)
        return EngineError::ReadOnly; // the engine says no more: a file that is there lacks the permission
    int code = 0;
    const std::string& number = db.LastErrNo();
    std::from_chars(number.data(), number.data() + number.size(), code);
    return Sqlite().errorKind(code);
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
