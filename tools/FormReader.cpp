#include "tools/FormReader.h"

#include <algorithm>

#include <QString>
#include <QStringDecoder>

#include "platform/core/CodePage.h"
#include "tools/Csv.h"

namespace suisui {

namespace {

constexpr int notThere = -1;
constexpr std::size_t neededFields = 2; // the code and its name

/// The bytes of a form as UTF-8; none when they are neither UTF-8 nor code page 932.
std::optional<std::string> decoded(std::string bytes)
{
    // Stateless, so that a file that ends inside a character is not taken for UTF-8.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
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

/// For each field its place in the records; empty after a fault. Fields whose column is missing from the file
/// stay as they are in the database.
std::vector<int> placesOf(const std::vector<std::string>& headings, const Form& form, FormFaults& faults)
{
    std::vector<int> places(form.fields.size(), notThere);
    for (std::size_t i = 0; i < headings.size(); ++i) {
        const auto named = std::ranges::find_if(form.fields, [&](const FormField& field) {
            return plainText(std::string(field.heading)) == plainText(headings[i]);
        });
        if (named != form.fields.end())
            places[static_cast<std::size_t>(named - form.fields.begin())] = static_cast<int>(i);
        else if (!plainText(headings[i]).empty())
            faults.add("見出し「" + headings[i] + "」がわかりません");
    }
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i] == notThere && (i < neededFields || form.partsOfTheCode))
            faults.add("見出し「" + std::string(form.fields[i].heading) + "」がありません");
    return faults.any() ? std::vector<int>() : places;
}

/// The record with its cells in the order of the fields.
std::vector<std::optional<std::string>> cellsOf(const std::vector<std::string>& record,
                                                const std::vector<int>& places)
{
    std::vector<std::optional<std::string>> cells(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        if (const auto place = static_cast<std::size_t>(places[i]); places[i] != notThere)
            cells[i] = place < record.size() ? record[place] : std::string();
    return cells;
}

} // namespace

void FormFaults::add(const std::string& what)
{
    m_all.push_back(std::string(m_form.file) + (m_line > 0 ? " " + std::to_string(m_line) + " 行目" : "")
                    + "：" + what);
}

void readForm(const std::string& bytes, const Form& form, FormFaults& faults, FormRows& rows)
{
    const auto text = decoded(bytes);
    if (!text)
        return faults.add("文字コードがわかりません（UTF-8 か シフト JIS で保存して下さい）");
    CsvReader reader(*text);
    const auto headings = reader.next();
    const auto brokenAt = [&faults](const Message& place) { faults.add(place.in(Language::Japanese)); };
    if (!headings)
        return reader.error().empty() ? faults.add("何も書かれていません") : brokenAt(reader.error());
    const std::vector<int> places = placesOf(*headings, form, faults);
    if (places.empty())
        return;
    while (const auto record = reader.next()) {
        if (std::ranges::all_of(*record, [](const std::string& cell) { return plainText(cell).empty(); }))
            continue;
        faults.atLine(reader.line());
        if (record->size() > headings->size())
            faults.add("見出しより多くの欄があります");
        else
            rows.take(cellsOf(*record, places));
    }
    faults.atLine(0);
    if (!reader.error().empty())
        brokenAt(reader.error());
    rows.finish();
}

} // namespace suisui
