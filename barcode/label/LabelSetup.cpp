#include "barcode/label/LabelSetup.h"

#include <algorithm>
#include <utility>

#include "barcode/label/LabelSheets.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int stripFrom = 10; ///< the strip of function codes covers the positions from this one on
constexpr int rowsWithStrip = 5;
constexpr int rowsWithoutStrip = 6;
constexpr int mostInLine = 99; ///< columns or rows of a page

/// The number of columns or rows in \a text; 0 when it is not a valid one.
int countIn(const QString& text)
{
    const double number = numberIn(text).value_or(0);
    return number >= 1 && number <= mostInLine ? static_cast<int>(number) : 0;
}

QString textOf(const char16_t* text)
{
    return QString::fromUtf16(text);
}

} // namespace

LabelSetup::LabelSetup(const LabelSource& source, const CountedRows& rows) : m_source(source), m_rows(rows)
{
    for (const LabelFieldRow& row : labelFields())
        m_texts.at(static_cast<std::size_t>(row.field)) = textOf(row.fresh);
    set(LabelField::firstRow, QString::number(source.firstRow));
    set(LabelField::lastRow, QString::number(source.lastRow));
}

const QString& LabelSetup::text(LabelField field) const
{
    return m_texts.at(static_cast<std::size_t>(field));
}

double LabelSetup::number(LabelField field) const
{
    return numberIn(text(field)).value_or(0);
}

bool LabelSetup::ticked(LabelField box) const
{
    return text(box) == u"1";
}

int LabelSetup::sheet() const
{
    return text(LabelField::sheet).toInt();
}

const LabelSheet* LabelSetup::fixedSheet() const
{
    return sheet() < fixedSheets ? &labelSheets.at(static_cast<std::size_t>(sheet())) : nullptr;
}

bool LabelSetup::mayHoldStrip() const
{
    return fixedSheet() == nullptr || fixedSheet()->functionCodes;
}

bool LabelSetup::positionOffered(int position) const
{
    const bool strip = ticked(LabelField::screenCodes) || ticked(LabelField::searchCodes);
    return !strip || position < stripFrom;
}

bool LabelSetup::enabled(LabelField field) const
{
    switch (field) {
    case LabelField::columns:
    case LabelField::rows:
        return fixedSheet() == nullptr;
    case LabelField::width:
        return m_pitched[0];
    case LabelField::height:
        return m_pitched[1];
    case LabelField::startLabel:
        return m_capacity != 1;
    case LabelField::screenCodes:
    case LabelField::searchCodes:
        return m_roomForStrip;
    default:
        break;
    }
    const LabelField box = rowOf(field).follows;
    return box == LabelField::count || (enabled(box) && ticked(box));
}

bool LabelSetup::reachable(LabelField field) const
{
    if (field == LabelField::eachRow)
        return m_source.asksForNumber;
    if (field == LabelField::position)
        return fixedSheet() != nullptr; // the free sheet has no picture to pick from
    return enabled(field);
}

LabelField LabelSetup::next(LabelField field) const
{
    LabelField place = rowOf(field).next;
    while (!reachable(place))
        place = rowOf(place).next;
    return place;
}

void LabelSetup::set(LabelField field, const QString& text)
{
    QString& kept = m_texts.at(static_cast<std::size_t>(field));
    if (kept == text)
        return;
    kept = text;
    switch (field) {
    case LabelField::sheet:
        return sheetChosen();
    case LabelField::columns:
    case LabelField::rows:
        return gridChanged();
    case LabelField::firstRow:
    case LabelField::lastRow:
        return rowsChanged();
    case LabelField::markedRows:
    case LabelField::rowRange:
        return sourceOfRowsChanged(field);
    case LabelField::screenCodes:
    case LabelField::searchCodes:
        return stripChanged();
    case LabelField::eachRow:
    case LabelField::startLabel:
        return countPages();
    default:
        break;
    }
}

/// The free sheet has no figures, so it leaves the fields unchanged.
void LabelSetup::sheetChosen()
{
    m_roomForStrip = mayHoldStrip();
    tick(LabelField::screenCodes, false);
    tick(LabelField::searchCodes, false);
    if (const LabelSheet* figures = fixedSheet())
        writeFigures(*figures);
    countPages();
}

void LabelSetup::writeFigures(const LabelSheet& figures)
{
    set(LabelField::barPitch, textOf(figures.barPitch));
    set(LabelField::barHeight, textOf(figures.barHeight));
    set(LabelField::startX, textOf(figures.startX));
    set(LabelField::startY, textOf(figures.startY));
    set(LabelField::width, textOf(figures.width));
    set(LabelField::height, textOf(figures.height));
    set(LabelField::columns, QString::number(figures.columns));
    set(LabelField::rows, QString::number(figures.rows));
    tick(LabelField::name, figures.name.on);
    set(LabelField::nameX, textOf(figures.name.x));
    set(LabelField::nameY, textOf(figures.name.y));
    tick(LabelField::code, figures.code.on);
    set(LabelField::codeX, textOf(figures.code.x));
    set(LabelField::codeY, textOf(figures.code.y));
    if (!figures.functionCodes)
        return;
    set(LabelField::screenX, textOf(screenStrip.x));
    set(LabelField::screenY, textOf(screenStrip.y));
    set(LabelField::searchX, textOf(searchStrip.x));
    set(LabelField::searchY, textOf(searchStrip.y));
}

/// Columns first: while they are not valid, the rows have no effect.
void LabelSetup::gridChanged()
{
    std::array<int, 2> counts{};
    constexpr std::array fields{LabelField::columns, LabelField::rows};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        counts.at(i) = countIn(text(fields.at(i)));
        if (counts.at(i) == 0)
            return;
        m_pitched.at(i) = counts.at(i) != 1;
    }
    m_capacity = counts[0] * counts[1];
    if (fixedSheet() == nullptr)
        m_roomForStrip = m_capacity >= 2;
    m_texts.at(static_cast<std::size_t>(LabelField::startLabel)) = u"1"_s;
    countPages();
}

void LabelSetup::setPages(const QString& first, const QString& last)
{
    set(LabelField::firstPage, first);
    set(LabelField::lastPage, last);
}

void LabelSetup::rowsChanged()
{
    setPages(u"0"_s, u"0"_s);
    const std::optional<double> first = numberIn(text(LabelField::firstRow));
    const std::optional<double> last = numberIn(text(LabelField::lastRow));
    if (!first || !last || *last > endRow() || *first < 1 || *last < *first)
        return;
    countPages();
}

void LabelSetup::sourceOfRowsChanged(LabelField chosen)
{
    const bool marked = (chosen == LabelField::markedRows) == ticked(chosen);
    m_texts.at(static_cast<std::size_t>(LabelField::markedRows)) = marked ? u"1"_s : u"0"_s;
    m_texts.at(static_cast<std::size_t>(LabelField::rowRange)) = marked ? u"0"_s : u"1"_s;
    setPages(u"0"_s, u"0"_s);
    countPages();
}

/// On the sheet whose last row can hold the strip, ticking it leaves one row less for labels.
void LabelSetup::stripChanged()
{
    if (fixedSheet() == nullptr || !fixedSheet()->functionCodes)
        return;
    const bool strip = ticked(LabelField::screenCodes) || ticked(LabelField::searchCodes);
    if (strip && number(LabelField::startLabel) > stripFrom)
        set(LabelField::startLabel, u"1"_s);
    set(LabelField::rows, QString::number(strip ? rowsWithStrip : rowsWithoutStrip));
}

/// While a field is not valid the last count stays.
void LabelSetup::countPages()
{
    const int columns = countIn(text(LabelField::columns));
    const int rows = countIn(text(LabelField::rows));
    if (columns == 0 || rows == 0 || !numberIn(text(LabelField::eachRow)))
        return;
    const bool marked = ticked(LabelField::markedRows);
    const double first = marked ? 1 : number(LabelField::firstRow);
    const double last = marked ? endRow() : number(LabelField::lastRow);
    if (!marked && (first == 0 || last == 0 || last < first || last > endRow()))
        return;
    const std::int64_t labels = labelsWanted(m_rows, std::max<std::int64_t>(labelsOf(first), 1),
                                             labelsOf(last), marked, labelsOf(number(LabelField::eachRow)));
    m_pageTotal = pagesNeeded(labels, std::int64_t{columns} * rows, labelsOf(number(LabelField::startLabel)));
    if (labels == 0)
        setPages(u"0"_s, u"0"_s);
    else
        setPages(u"1"_s, QString::number(m_pageTotal));
}

LabelPageRange LabelSetup::pages() const
{
    return labelPageRange(text(LabelField::firstPage), text(LabelField::lastPage), m_pageTotal);
}

Millimetres LabelSetup::length(LabelField field) const
{
    return Millimetres(number(field));
}

Millimetres LabelSetup::whenEnabled(LabelField field) const
{
    return enabled(field) ? length(field) : 0_mm;
}

LabelPart LabelSetup::part(LabelField box, LabelField x, LabelField y) const
{
    return {ticked(box), {length(x), length(y)}};
}

LabelJob LabelSetup::job() const
{
    const bool range = ticked(LabelField::rowRange);
    LabelJob wanted;
    wanted.grid = {.columns = std::max<std::int64_t>(labelsOf(number(LabelField::columns)), 1),
                   .rows = std::max<std::int64_t>(labelsOf(number(LabelField::rows)), 0),
                   .start = {length(LabelField::startX), length(LabelField::startY)},
                   .width = whenEnabled(LabelField::width),
                   .height = whenEnabled(LabelField::height)};
    wanted.startLabel = std::max<std::int64_t>(labelsOf(number(LabelField::startLabel)), 1);
    wanted.barHeight = length(LabelField::barHeight);
    wanted.name = part(LabelField::name, LabelField::nameX, LabelField::nameY);
    wanted.code = part(LabelField::code, LabelField::codeX, LabelField::codeY);
    wanted.screenCodes = part(LabelField::screenCodes, LabelField::screenX, LabelField::screenY);
    wanted.searchCodes = part(LabelField::searchCodes, LabelField::searchX, LabelField::searchY);
    wanted.wrap = LabelWrap;
    wanted.startRow = range ? std::max<std::int64_t>(labelsOf(number(LabelField::firstRow)), 1) : 1;
    wanted.endRow = range ? labelsOf(number(LabelField::lastRow)) : endRow();
    wanted.eachRow = labelsOf(number(LabelField::eachRow));
    return wanted;
}

} // namespace suisui
