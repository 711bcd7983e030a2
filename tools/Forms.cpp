#include "tools/Forms.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <ostream>
#include <set>

#include <QString>
#include <QStringDecoder>

#include "platform/core/CodePage.h"
#include "platform/core/Files.h"
#include "store/AppDB.h"
#include "store/Where.h"
#include "tools/Csv.h"
#include "tools/FormCells.h"

namespace suisui {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // by which spreadsheets know UTF-8

std::string pathOf(const std::string& folder, const Form& form)
{
    return folder + "/" + std::string(form.file);
}

std::string folded(std::string_view code)
{
    std::string text(code);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// The bytes of a form as UTF-8; nothing when they are neither that nor code page 932.
std::optional<std::string> decoded(std::string bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    if (utf8.hasError() || text.contains(QChar::ReplacementCharacter)) {
        bytes = fromCp932(bytes);
        if (bytes.find("\uFFFD") != std::string::npos)
            return std::nullopt;
    }
    if (bytes.starts_with(byteOrderMark))
        bytes.erase(0, byteOrderMark.size());
    return bytes;
}

/// Takes one form over; pending until the caller's Commit.
class FormReader
{
public:
    FormReader(AppDB& db, const Form& form, std::vector<std::string>& faults)
        : m_form(form), m_faults(faults), m_rows(db, form.table), m_goods(db.MasterPost())
    {
    }

    void take(const std::string& bytes)
    {
        const auto text = decoded(bytes);
        if (!text)
            return fault("文字コードがわかりません（UTF-8 か シフト JIS で保存して下さい）");
        CsvReader reader(*text);
        const auto headings = reader.next();
        if (!headings || !placeHeadings(*headings))
            return headings ? void() : fault("何も書かれていません");
        while (const auto record = reader.next()) {
            m_line = reader.line();
            if (std::ranges::any_of(*record,
                                    [](const std::string& cell) { return !plainText(cell).empty(); }))
                takeRecord(*record);
        }
        m_line = 0;
        if (!reader.error().empty())
            fault("CSV の形が正しくありません（" + reader.error() + "）");
    }

    [[nodiscard]] std::string summary() const
    {
        return std::string(m_form.what) + "：追加 " + std::to_string(m_added) + " 件、変更 "
               + std::to_string(m_changed) + " 件\n";
    }

private:
    void fault(const std::string& what)
    {
        m_faults.push_back(std::string(m_form.file)
                           + (m_line > 0 ? " " + std::to_string(m_line) + " 行目" : "") + "：" + what);
    }

    /// For each field its place in the records. A field that the form lacks stays as the database has it.
    bool placeHeadings(const std::vector<std::string>& headings)
    {
        const std::size_t before = m_faults.size();
        m_width = headings.size();
        m_places.assign(m_form.fields.size(), -1);
        for (std::size_t i = 0; i < headings.size(); ++i) {
            const auto named = std::ranges::find_if(m_form.fields, [&](const FormField& f) {
                return plainText(std::string(f.heading)) == plainText(headings[i]);
            });
            if (named != m_form.fields.end())
                m_places[static_cast<std::size_t>(named - m_form.fields.begin())] = static_cast<int>(i);
            else if (!plainText(headings[i]).empty())
                fault("見出し「" + headings[i] + "」がわかりません");
        }
        for (std::size_t i = 0; i < m_places.size(); ++i)
            if (m_places[i] < 0 && (i < 2 || m_form.partsOfTheCode))
                fault("見出し「" + std::string(m_form.fields[i].heading) + "」がありません");
        return m_faults.size() == before;
    }

    void takeRecord(const std::vector<std::string>& record)
    {
        if (record.size() > m_width)
            return fault("見出しより多くの欄があります");
        std::vector<std::pair<int, std::string>> texts;
        bool good = true;
        for (std::size_t i = 0; i < m_form.fields.size(); ++i) {
            const FormField& field = m_form.fields[i];
            if (m_places[i] < 0)
                continue;
            const auto place = static_cast<std::size_t>(m_places[i]);
            FormCell cell = formCell(m_form, field, place < record.size() ? record[place] : std::string());
            if (cell.stored)
                texts.emplace_back(field.column, std::move(*cell.stored));
            else
                fault(std::string(field.heading) + cell.fault);
            good = good && cell.stored.has_value();
        }
        if (good && isNew(texts) && (!m_form.partsOfTheCode || partIsSound(texts)))
            store(texts);
    }

    using Texts = std::vector<std::pair<int, std::string>>;

    /// Whether no line before has said something about this code, or about this part of it.
    bool isNew(const Texts& texts)
    {
        std::string key = folded(texts[0].second);
        if (m_form.partsOfTheCode)
            key += '\n' + folded(texts[1].second);
        const auto [known, added] = m_lines.emplace(key, m_line);
        if (!added)
            fault(std::to_string(known->second) + " 行目と同じコードです");
        return added;
    }

    bool partIsSound(const Texts& texts)
    {
        const std::size_t before = m_faults.size();
        for (const std::size_t i : {std::size_t{0}, std::size_t{1}})
            if (m_goods.CountRows(whereCode(texts[i].second)) != 1)
                fault(std::string(m_form.fields[i].heading) + "「" + texts[i].second
                      + "」が商品にありません");
        if (folded(texts[0].second) == folded(texts[1].second))
            fault("商品と部品が同じコードです");
        return m_faults.size() == before;
    }

    void store(const Texts& texts)
    {
        const std::string& code = texts[0].second;
        if (m_form.partsOfTheCode && m_cleared.insert(folded(code)).second)
            clearParts(code);
        const bool known = !m_form.partsOfTheCode && m_rows.Select(whereCode(code)) == 1;
        if (!known) {
            m_rows.Clear();
            m_rows.NewRows(1);
            for (const FormField& field : m_form.fields)
                m_rows.set(1, field.column, field.whenEmpty);
        }
        bool changed = false;
        for (const auto& [column, text] : texts) {
            if (m_rows.get(1, column) == text)
                continue;
            m_rows.set(1, column, text);
            changed = true;
        }
        if ((known && changed && m_rows.UpdateRow(1) != 0) || (!known && m_rows.InsertRow(1) != 0))
            return fault("データベースに書けません");
        m_added += known ? 0 : 1;
        m_changed += known && changed ? 1 : 0;
    }

    void clearParts(const std::string& code)
    {
        m_rows.Select(whereCode(code));
        while (m_rows.Count() > 0)
            if (m_rows.DeleteRow(1) != 0)
                return fault("データベースに書けません");
    }

    const Form& m_form;
    std::vector<std::string>& m_faults;
    RowSet m_rows;
    MasterRec& m_goods;
    std::vector<int> m_places;
    std::size_t m_width = 0;
    std::map<std::string, int> m_lines; ///< of each code
    std::set<std::string> m_cleared;    ///< goods whose old parts are gone
    int m_line = 0;
    int m_added = 0;
    int m_changed = 0;
};

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

/// A new file, written aside, so that a form is there whole or not at all.
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
    if (db.Open("trnvik.mdb") == 0)
        return true;
    err << "データベースを開けません：" << base << "/DB/trnvik.mdb\n";
    return false;
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
        FormReader reader(db, form, faults);
        if (const auto bytes = bytesOf(pathOf(folder, form)))
            reader.take(*bytes);
        else
            faults.push_back(std::string(form.file) + "：読めません");
        summary += reader.summary();
    }
    if (summary.empty())
        faults.push_back("表がありません：" + folder);
    if (faults.empty()) {
        db.Commit();
        if (db.LastStatus() != 0)
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
