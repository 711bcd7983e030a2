#include "tools/FormRows.h"

#include <algorithm>

#include "store/FoldedCode.h"
#include "store/Where.h"

namespace suisui {

namespace {

constexpr const char* cannotWrite = "データベースに書けません";

bool isDigits(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string withoutZeros(std::string_view code)
{
    return std::string(code.substr(std::min(code.find_first_not_of('0'), code.size())));
}

std::string zerosGone(const std::string& code)
{
    return code + " があります。先頭の 0 が消えていませんか";
}

std::string summaryOf(const Form& form, int added, int changed)
{
    return std::string(form.what) + "：追加 " + std::to_string(added) + " 件、変更 " + std::to_string(changed)
           + " 件";
}

} // namespace

// ---- leading zeros

LeadingZeros::LeadingZeros(AppDB& db, const TableDef& table)
{
    RowSet rows(db, table);
    rows.Select("WHERE Code LIKE '0*'");
    for (int row = 1; row <= rows.Count(); ++row)
        add(rows.get(row, 0));
}

void LeadingZeros::add(std::string_view code)
{
    if (code.starts_with('0') && isDigits(code))
        m_codes.emplace(withoutZeros(code), code);
}

std::string LeadingZeros::lostBy(std::string_view code) const
{
    if (!isDigits(code))
        return {};
    const auto [first, last] = m_codes.equal_range(withoutZeros(code));
    const auto longer =
        std::find_if(first, last, [&code](const auto& each) { return each.second.size() > code.size(); });
    return longer == last ? std::string() : longer->second;
}

// ---- one row for each code

CodeRows::CodeRows(AppDB& db, const Form& form, FormFaults& faults)
    : m_form(form), m_faults(faults), m_rows(db, form.table), m_zeros(db, form.table)
{
}

void CodeRows::take(const FormCells& cells)
{
    Texts texts;
    std::string code;
    bool good = findRow(cells[0].value_or(std::string()), code);
    const bool known = m_rows.Count() == 1;
    texts.emplace_back(m_form.fields[0].column, code);
    for (std::size_t i = 1; i < cells.size(); ++i) {
        const FormField& field = m_form.fields[i];
        if (!cells[i] || (known && m_rows.get(1, field.column) == *cells[i]))
            continue;
        FormCell cell = formCell(m_form, field, *cells[i]);
        if (cell.stored)
            texts.emplace_back(field.column, std::move(*cell.stored));
        else
            m_faults.add(std::string(field.heading) + cell.fault);
        good = good && cell.stored.has_value();
    }
    if (good && isFirstOf(code))
        store(texts);
}

/// Reads the row of \a code into m_rows; false when the table has none.
bool CodeRows::select(const std::string& code)
{
    if (m_rows.Select(whereCode(code)) == 1)
        return true;
    m_rows.Clear();
    return false;
}

/// Finds the code of a line, and its row if there is one. A code that the table already has is not checked.
bool CodeRows::findRow(const std::string& cell, std::string& code)
{
    code = cell;
    if (!cell.empty() && select(cell))
        return true;
    m_rows.Clear();
    FormCell checked = formCell(m_form, m_form.fields[0], cell);
    if (!checked.stored) {
        m_faults.add(std::string(m_form.fields[0].heading) + checked.fault);
        return false;
    }
    code = std::move(*checked.stored);
    if (select(code))
        return true;
    const std::string whole = m_zeros.lostBy(code);
    if (!whole.empty())
        m_faults.add(std::string(m_form.fields[0].heading) + "「" + code + "」：" + zerosGone(whole));
    return whole.empty();
}

/// Whether no earlier line has this code.
bool CodeRows::isFirstOf(const std::string& code)
{
    const auto [line, first] = m_lines.emplace(foldedCode(code), m_faults.line());
    if (!first)
        m_faults.add(std::to_string(line->second) + " 行目と同じコードです");
    return first;
}

void CodeRows::store(const Texts& texts)
{
    const bool known = m_rows.Count() == 1;
    if (!known) {
        m_rows.NewRows(1);
        for (const FormField& field : m_form.fields)
            m_rows.set(1, field.column, field.whenEmpty);
        m_zeros.add(texts[0].second);
    }
    bool changed = false;
    for (const auto& [column, text] : texts) {
        if (m_rows.get(1, column) == text)
            continue;
        m_rows.set(1, column, text);
        changed = true;
    }
    if ((known && changed && m_rows.UpdateRow(1) != DbStatus::Good)
        || (!known && m_rows.InsertRow(1) != DbStatus::Good))
        return m_faults.add(cannotWrite);
    m_added += known ? 0 : 1;
    m_changed += known && changed ? 1 : 0;
}

std::string CodeRows::summary() const
{
    return summaryOf(m_form, m_added, m_changed) + '\n';
}

// ---- parts

PartRows::PartRows(AppDB& db, const Form& form, FormFaults& faults)
    : m_form(form), m_faults(faults), m_rows(db, hseihinTable), m_goods(db.MasterPost()),
      m_zeros(db, masterTable)
{
}

void PartRows::take(const FormCells& cells)
{
    const std::string part = cells[1].value_or(std::string());
    const std::string count = cells[2].value_or(std::string());
    Product* const product = productOf(cells[0].value_or(std::string()));
    if (product != nullptr && takeStored(*product, part, count))
        return;
    if (product != nullptr && plainText(part).empty() && plainText(count).empty())
        takeNone(*product);
    else
        takePart(product, cells);
}

/// Whether the table already has what the line says; that row then stays unchanged.
bool PartRows::takeStored(Product& product, const std::string& part, const std::string& count)
{
    const auto same = std::ranges::find_if(product.stored, [&](const Part& stored) {
        return !stored.settled && stored.code == part && stored.quantity == count;
    });
    if (same == product.stored.end())
        return false;
    same->settled = true;
    product.lines.emplace(foldedCode(part), m_faults.line());
    expectNoMix(product);
    return true;
}

void PartRows::takePart(Product* product, const FormCells& cells)
{
    const FormCell part = formCell(m_form, m_form.fields[1], cells[1].value_or(std::string()));
    const FormCell count = formCell(m_form, m_form.fields[2], cells[2].value_or(std::string()));
    for (const auto& [field, cell] : {std::pair(1U, &part), std::pair(2U, &count)})
        if (!cell->stored)
            m_faults.add(std::string(m_form.fields[field].heading) + cell->fault);
    if (product == nullptr || !part.stored || !count.stored)
        return;
    const auto [line, first] = product->lines.emplace(foldedCode(*part.stored), m_faults.line());
    if (!first)
        return m_faults.add(std::to_string(line->second) + " 行目と同じコードです");
    expectNoMix(*product);
    const std::string spelled = plainText(cells[0].value_or(std::string()));
    if (isSound(*product, *part.stored))
        product->wanted.push_back(
            {.product = foldedCode(spelled) == foldedCode(product->code) ? spelled : product->code,
             .code = *part.stored,
             .quantity = *count.stored});
}

/// A line with a product alone: the product no longer has parts.
void PartRows::takeNone(Product& product)
{
    if (product.stored.empty() && !isKnown(0, product.code))
        return;
    product.lines.emplace(std::string(), m_faults.line());
    expectNoMix(product);
}

/// A line that says that there are no parts contradicts one that names a part.
void PartRows::expectNoMix(const Product& product)
{
    if (product.lines.size() < 2 || !product.lines.contains({}))
        return;
    const auto other = std::ranges::find_if(
        product.lines, [this](const auto& line) { return line.second != m_faults.line(); });
    m_faults.add(std::to_string(other->second)
                 + " 行目と合いません。部品のある行と部品のない行は、一緒に書けません");
}

/// The product of a line with the parts that it has; null at a fault.
PartRows::Product* PartRows::productOf(const std::string& cell)
{
    // The code of a product that the table already has is not checked.
    std::string code = cell;
    if (m_rows.Select(whereCode(cell)) <= 0) {
        FormCell checked = formCell(m_form, m_form.fields[0], cell);
        if (!checked.stored) {
            m_faults.add(std::string(m_form.fields[0].heading) + checked.fault);
            return nullptr;
        }
        code = std::move(*checked.stored);
    }
    const auto [place, first] = m_products.try_emplace(foldedCode(code));
    Product& product = place->second;
    if (first) {
        product.code = code;
        m_rows.Select(whereCode(code));
        for (int row = 1; row <= m_rows.Count(); ++row)
            product.stored.push_back({.product = std::string(m_rows.get(row, HSeihinCol::Code)),
                                      .code = std::string(m_rows.get(row, HSeihinCol::HSeihinCD)),
                                      .quantity = std::string(m_rows.get(row, HSeihinCol::Suuryou))});
    }
    return &product;
}

/// Whether \a part can be a part of \a product: both are registered goods, and not the same.
bool PartRows::isSound(const Product& product, const std::string& part)
{
    const bool productKnown = isKnown(0, product.code);
    const bool partKnown = isKnown(1, part);
    const bool same = foldedCode(product.code) == foldedCode(part);
    if (same)
        m_faults.add("商品と部品が同じコードです");
    return productKnown && partKnown && !same;
}

bool PartRows::isKnown(std::size_t field, const std::string& code)
{
    if (m_goods.CountRows(whereCode(code)) == 1)
        return true;
    const std::string whole = m_zeros.lostBy(code);
    m_faults.add(std::string(m_form.fields[field].heading) + "「" + code + "」が商品にありません"
                 + (whole.empty() ? std::string() : "。" + zerosGone(whole)));
    return false;
}

void PartRows::finish()
{
    if (m_faults.any())
        return;
    for (auto& [code, product] : m_products)
        if (!write(product))
            return m_faults.add(cannotWrite);
}

/// Writes what the form says to the table. A row that stays keeps its other columns.
bool PartRows::write(Product& product)
{
    if (!writeStored(product))
        return false;
    for (const Part& part : product.wanted) {
        if (part.settled)
            continue;
        m_rows.Clear();
        m_rows.NewRows(1);
        m_rows.set(1, HSeihinCol::Code, part.product);
        m_rows.set(1, HSeihinCol::HSeihinCD, part.code);
        m_rows.set(1, HSeihinCol::Suuryou, part.quantity);
        if (m_rows.InsertRow(1) != DbStatus::Good)
            return false;
        ++m_added;
    }
    return true;
}

/// The rows that the table already has: left alone, changed, or removed.
bool PartRows::writeStored(Product& product)
{
    if (m_rows.Select(whereCode(product.code)) != static_cast<int>(product.stored.size()))
        return false;
    int row = 1;
    for (Part& stored : product.stored) {
        if (stored.settled) {
            ++row;
            continue;
        }
        const auto wanted = std::ranges::find_if(product.wanted, [&stored](const Part& part) {
            return !part.settled && foldedCode(part.code) == foldedCode(stored.code);
        });
        if (wanted == product.wanted.end()) {
            if (m_rows.DeleteRow(row) != DbStatus::Good) // the following rows move up
                return false;
            ++m_removed;
            continue;
        }
        wanted->settled = true;
        m_rows.set(row, HSeihinCol::Suuryou, wanted->quantity);
        if (m_rows.UpdateRow(row++) != DbStatus::Good)
            return false;
        ++m_changed;
    }
    return true;
}

std::string PartRows::summary() const
{
    return summaryOf(m_form, m_added, m_changed)
           + (m_removed > 0 ? "、取り外し " + std::to_string(m_removed) + " 件\n" : "\n");
}

} // namespace suisui
