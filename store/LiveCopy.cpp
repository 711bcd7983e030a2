// A copy of a database that is in use.
#include "store/AppDB.h"

#include <cerrno>
#include <charconv>
#include <cstring>

#include "platform/core/Files.h"

namespace suisui {

int AppDB::OpenStill(std::string_view file)
{
    CloseFile();
    m_path = file;
    int code = m_engine.open(m_path);
    if (code != 0)
        (void)fail(code);
    std::int64_t version = 0;
    if (code == 0) {
        code = holdStill();
        if (code == 0 && m_engine.selectNumber("PRAGMA user_version", version) == 0
            && version < schemaVersion) {
            // Upgrading an older layout needs the write lock after all.
            code = Open(file);
            if (code == 0)
                code = holdStill();
        }
        if (code == 0 && !(isOurs() && isWhole(m_path)))
            code = failOwn("this is not a whole database of the program");
    }
    if (code != 0)
        CloseFile();
    return code == 0 ? succeed() : 1;
}

int AppDB::holdStill()
{
    int code = m_engine.execute("BEGIN");
    // The engine takes its lock when it first reads the file.
    std::int64_t tables = 0;
    if (code == 0)
        code = m_engine.selectNumber("SELECT count(*) FROM sqlite_schema", tables);
    if (code != 0)
        return fail(code);
    m_inUnit = true;
    return succeed();
}

int AppDB::CopyTo(const std::string& path)
{
    // The engine opens existing files only; an empty file is a database without tables.
    if (!makeEmptyFile(path))
        return failOwn(path + ": " + std::strerror(errno));
    const int code = m_engine.copyTo(path);
    if (code == 0 && syncToDisk(path))
        return succeed();
    const int status = code != 0 ? fail(code) : failOwn(path + " cannot be flushed");
    (void)removeFile(path);
    return status;
}

bool AppDB::LastWasBusy() const
{
    int code = 0;
    std::from_chars(m_lastErrNo.data(), m_lastErrNo.data() + m_lastErrNo.size(), code);
    return m_lastStatus != 0 && m_engine.errorKind(code) == EngineError::Busy;
}

} // namespace suisui
