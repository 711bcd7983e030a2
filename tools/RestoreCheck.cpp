#include "tools/RestoreCheck.h"

#include <map>
#include <regex>

#include "store/AppDB.h"
#include "tools/Cause.h"
#include "tools/Phrases.h"

namespace suisui {

namespace {

/// A history file is filled from the empty template: it has movements, but no stock, goods, partners or
/// staff, without which a shop cannot book a movement.
bool isHistory(AppDB& db, const std::string& name)
{
    static const std::regex shape(R"(RRK\d{8}-\d{8}\..+)");
    if (std::regex_match(name, shape))
        return true;
    const bool moved = db.InpList().CountRows({}) + db.OutList().CountRows({}) > 0;
    return moved && db.ZaikoTbl().CountRows({}) == 0 && db.MasterTbl().CountRows({}) == 0
           && db.KokyakuAll().CountRows({}) == 0 && db.TantouTbl().CountRows({}) == 0;
}

/// The statement that made each object of the kinds \a kinds in the file, by name.
std::map<std::string, std::string> statementsOf(AppDB& db, const std::string& kinds, Message& fault)
{
    std::map<std::string, std::string> found;
    if (db.OpenRecordset("SELECT type, name, sql FROM sqlite_schema WHERE type IN (" + kinds
                         + ") AND sql IS NOT NULL ORDER BY name")
        != DbStatus::Good)
        fault = causeOf(db);
    else
        for (; !db.recordset().atEof(); db.recordset().MoveNext())
            found.emplace(db.recordset().Fields("name"), db.recordset().Fields("sql"));
    db.CloseRecordset();
    return found;
}

/// The unique indexes keep a movement from being stored twice, so each must be there as the program makes it.
/// A unique index of another sort could refuse what the program stores.
Message faultOfIndexes(AppDB& db)
{
    Message fault;
    std::map<std::string, std::string> there = statementsOf(db, "'index'", fault);
    for (const TableDef* table : allTables())
        for (std::size_t i = 0; i < table->indexes.size(); ++i) {
            const std::string name = indexName(*table, i);
            const bool same = there[name] == createStatements(*table)[i + 1];
            there.erase(name);
            if (table->indexes[i].unique && !same && fault.empty())
                fault = {phrases::lacksIndex, {table->name, table->indexes[i].columns}};
        }
    for (const auto& [name, statement] : there)
        if (statement.starts_with("CREATE UNIQUE") && fault.empty())
            fault = {phrases::hasOwnObject, {phrases::uniqueIndex, name}};
    return fault;
}

Message faultOfRules(AppDB& db)
{
    Message fault;
    for (const auto& [kind, word] : {std::pair("'trigger'", &phrases::trigger), {"'view'", &phrases::view}})
        for (const auto& [name, statement] : statementsOf(db, kind, fault))
            if (fault.empty())
                fault = {phrases::hasOwnObject, {*word, name}};
    return fault;
}

} // namespace

Message unfitToRestore(AppDB& db, const std::string& name)
{
    if (isHistory(db, name))
        return {phrases::isHistory, {name}};
    Message fault = faultOfRules(db);
    return fault.empty() ? faultOfIndexes(db) : fault;
}

} // namespace suisui
