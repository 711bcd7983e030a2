#include "tools/Forms.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>

#include <QDateTime>

#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "booking/ComponentChange.h"
#include "store/Stamps.h"
#include "store/ShopFiles.h"
#include "tools/Csv.h"
#include "tools/FormReader.h"
#include "tools/FormRows.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

std::string pathOf(const std::string& folder, const Form& form)
{
    return folder + "/" + std::string(form.file);
}

std::optional<std::string> bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string{std::istreambuf_iterator<char>(file), {}};
}

/// The form with its headings and the rows of the database.
std::string filledForm(AppDB& db, const Form& form)
{
    std::vector<std::string_view> cells;
    for (const FormField& field : form.fields)
        cells.push_back(field.heading);
    std::string text = std::string(byteOrderMark) + csvRecord(cells);
    RowSet rows(db, form.table);
    rows.Select("ORDER BY Code");
    for (int row = 1; row <= rows.Count(); ++row) {
        cells.clear();
        for (const FormField& field : form.fields)
            cells.push_back(rows.get(row, field.column));
        text += csvRecord(cells);
    }
    return text;
}

/// Writes a new file, aside first, so that a form is there whole or not at all.
bool writeNew(const std::string& path, const std::string& bytes)
{
    const std::string aside = path + ".part";
    std::ofstream file(aside, std::ios::binary | std::ios::trunc);
    file << bytes;
    file.close();
    const bool written = file.good() && storeAs(aside, path);
    if (!written)
        (void)removeFile(aside);
    return written;
}

bool openShop(AppDB& db, const std::string& base, std::ostream& err)
{
    db.ShowErrors(false);
    if (db.Open(workingFile) == DbStatus::Good)
        return true;
    err << "データベースを開けません：" << workingPath(base) << "\n";
    return false;
}

/// Takes over one form, pending until the caller's Commit. Returns the summary for the operator.
std::string takeForm(AppDB& db, const Form& form, const std::optional<std::string>& bytes, FormFaults& faults)
{
    if (!bytes) {
        faults.add("読めません");
        return {};
    }
    if (!form.partsOfTheCode) {
        CodeRows rows(db, form, faults);
        readForm(*bytes, form, faults, rows);
        return rows.summary();
    }
    PartRows rows(db, form, faults);
    const auto change = [&] {
        readForm(*bytes, form, faults, rows);
        return !faults.any();
    };
    if (!changeComponents(db, stampOf(QDateTime::currentDateTime()), change) && !faults.any())
        faults.add("部品の在庫を繰り越せません。データベースを確認して下さい");
    return rows.summary();
}

} // namespace

ToolStatus writeForms(const std::string& base, const std::string& folder, std::ostream& out,
                      std::ostream& err)
{
    AppDB db(base + "/DB");
    if (!openShop(db, base, err))
        return ToolStatus::Failed;
    std::error_code code;
    fs::create_directories(folder, code);
    for (const Form& form : allForms()) {
        const std::string path = pathOf(folder, form);
        if (fs::exists(path, code))
            continue;
        if (!writeNew(path, filledForm(db, form))) {
            err << "書けません：" << path << '\n';
            return ToolStatus::Failed;
        }
        out << path << '\n';
    }
    return ToolStatus::Good;
}

ToolStatus takeForms(const std::string& base, const std::string& folder, std::ostream& out, std::ostream& err)
{
    AppDB db(base + "/DB");
    if (!openShop(db, base, err))
        return ToolStatus::Failed;
    std::vector<std::string> faults;
    std::string summary;
    for (const Form& form : allForms()) {
        std::error_code code;
        if (!fs::exists(pathOf(folder, form), code))
            continue;
        FormFaults formFaults(form, faults);
        summary += takeForm(db, form, bytesOf(pathOf(folder, form)), formFaults);
    }
    if (summary.empty())
        faults.push_back("表がありません：" + folder);
    if (faults.empty()) {
        db.Commit();
        if (db.LastStatus() != DbStatus::Good)
            faults.emplace_back("データベースに書けません");
    }
    if (!faults.empty()) {
        db.Rollback();
        for (const std::string& fault : faults)
            err << fault << '\n';
        return ToolStatus::Failed;
    }
    out << summary;
    return ToolStatus::Good;
}

std::vector<std::string> missingForStart(AppDB& db)
{
    std::vector<std::string> missing;
    if (db.KokyakuNyu().CountRows("WHERE NyuKyk='1'") == 0)
        missing.emplace_back("入荷先");
    if (db.KokyakuSyu().CountRows("WHERE SyuKyk='1'") == 0)
        missing.emplace_back("出荷先");
    if (db.TantouTbl().CountRows({}) == 0)
        missing.emplace_back("担当者");
    return missing;
}

} // namespace suisui
