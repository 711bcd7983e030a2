// A copy of a database that is in use.
#include "store/AppDB.h"

#include <cerrno>
#include <cstring>

#include "platform/core/Files.h"

namespace suisui {

DbStatus AppDB::OpenStill(std::string_view file)
{
    CloseFile();
    m_path = file;
    const int code = m_engine.open(m_path);
    DbStatus status = code == 0 ? holdStill() : fail(code);
    std::int64_t version = 0;
    if (status == DbStatus::Good) {
        if (m_engine.selectNumber("PRAGMA user_version", version) == 0 && version < schemaVersion) {
            // Upgrading an older layout needs the write lock after all.
            status = Open(file);
            if (status == DbStatus::Good)
                status = holdStill();
        }
        if (status == DbStatus::Good && !(isOurs() && isWhole(m_path)))
            status = failOwn("this is not a whole database of the program");
    }
    if (status != DbStatus::Good)
        CloseFile();
    return status;
}

DbStatus AppDB::holdStill()
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

DbStatus AppDB::CopyTo(const std::string& path)
{
    // The engine opens existing files only; an empty file is a database without tables.
    if (!makeEmptyFile(path))
        return failOwn(path + ": " + std::strerror(errno));
    const int code = m_engine.copyTo(path);
    if (code == 0 && syncToDisk(path))
        return succeed();
    const DbStatus status = code != 0 ? fail(code) : failOwn(path + " cannot be flushed");
    (void)removeFile(path);
    return status;
}

} // namespace suisui
