#include "sheet/ShopCodes.h"

#include <string_view>

#include "store/AppDB.h"

namespace suisui {

namespace {

struct CodeSource
{
    const char16_t* heading;
    std::string_view select;
    const char16_t* around; ///< what distinguishes a scan of this kind from goods
};
constexpr CodeSource sources[] = {
    {u"担当者", "SELECT Code, Name FROM TantouTB ORDER BY Code", u"@"},
    {u"入荷先", "SELECT Code, Name FROM KokyakuTB WHERE NyuKyk = '1' ORDER BY Code", u"#"},
    {u"出荷先", "SELECT Code, Name FROM KokyakuTB WHERE SyuKyk = '1' ORDER BY Code", u"#"},
    {u"商品", "SELECT Code, Name FROM Master ORDER BY Code", u""},
};

} // namespace

std::optional<std::vector<CodeGroup>> shopCodes(AppDB& db)
{
    std::vector<CodeGroup> groups;
    for (const CodeSource& source : sources) {
        if (db.OpenRecordset(source.select) != DbStatus::Good)
            return std::nullopt;
        CodeGroup group{.heading = QString::fromUtf16(source.heading), .codes = {}};
        const QString around = QString::fromUtf16(source.around);
        Recordset& rows = db.recordset();
        for (; !rows.atEof(); rows.MoveNext())
            group.codes.push_back({.scan = around + QString::fromStdString(rows.Fields("Code")) + around,
                                   .name = QString::fromStdString(rows.Fields("Name"))});
        const bool whole = rows.status() == DbStatus::Good;
        db.CloseRecordset();
        if (!whole)
            return std::nullopt;
        groups.push_back(std::move(group));
    }
    return groups;
}

} // namespace suisui
