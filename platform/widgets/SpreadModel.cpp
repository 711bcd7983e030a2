#include "platform/widgets/SpreadModel.h"

#include <algorithm>

#include <QFont>

#include "platform/widgets/SpreadSort.h"

namespace suisui {

namespace {

/// Digits of a whole number with an optional minus; empty when \a text is none.
std::string_view wholeNumber(std::string_view text)
{
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    const bool whole = !digits.empty() && std::all_of(digits.begin(), digits.end(), [](char c) {
        return c >= '0' && c <= '9';
    });
    return whole ? digits : std::string_view();
}

QString grouped(std::string_view text)
{
    QString shown = QString::fromUtf8(text);
    if (wholeNumber(text).empty())
        return shown;
    const qsizetype first = text.starts_with('-') ? 1 : 0;
    for (qsizetype at = shown.size() - 3; at > first; at -= 3)
        shown.insert(at, u',');
    return shown;
}

bool comparesAsNumber(CellType type)
{
    return type == CellType::Number || type == CellType::Figure;
}

bool alignsRight(CellType type)
{
    return comparesAsNumber(type);
}

} // namespace

void SpreadModel::setColumns(std::span<const SpreadColumn> columns)
{
    beginResetModel();
    m_columns.assign(columns.begin(), columns.end());
    m_headings.clear();
    for (const SpreadColumn& each : columns)
        m_headings.emplace_back(each.heading);
    m_scratch.assign(columns.size(), {});
    m_scratchViews.assign(columns.size(), {});
    m_made.assign(columns.size(), {});
    m_empty = PackedRow(cols());
    m_rows.clear();
    m_shown = 0;
    endResetModel();
}

std::string_view SpreadModel::text(int col, int row) const
{
    if (row == 0 && col >= 1 && col <= cols())
        return m_headings[static_cast<std::size_t>(col - 1)];
    return holds(col, row) ? made(row).texts.text(col - 1) : std::string_view();
}

SpreadModel::Row& SpreadModel::made(int row) const
{
    Row& target = m_rows[static_cast<std::size_t>(row - 1)];
    if (target.pending != 0) {
        for (std::string& text : m_made)
            text.clear();
        m_maker(target.texts, target.pending, m_made);
        const std::vector<std::string_view> views(m_made.begin(), m_made.end());
        target.texts = packed(views);
        target.pending = 0;
    }
    return target;
}

PackedRow SpreadModel::packed(std::span<const std::string_view> texts) const
{
    for (int col = 1; col <= cols(); ++col) {
        const auto at = static_cast<std::size_t>(col - 1);
        m_scratchViews[at] = at < texts.size() ? normalised(col, texts[at]) : std::string_view();
    }
    return PackedRow(m_scratchViews);
}

void SpreadModel::setRowSource(int row, const PackedRow& source, int number)
{
    if (row < 1 || row > rows())
        return;
    Row& target = m_rows[static_cast<std::size_t>(row - 1)];
    target.texts = source;
    target.pending = number;
    if (m_redraw)
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, cols() - 1));
}

/// Number cells hold "12" for "0000012"; what is not a whole number stays as it is.
std::string_view SpreadModel::normalised(int col, std::string_view text) const
{
    if (column(col).type != CellType::Number)
        return text;
    const std::string_view digits = wholeNumber(text);
    if (digits.empty())
        return text;
    const std::string_view plain = digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
    if (!text.starts_with('-') || plain == "0")
        return plain;
    std::string& kept = m_scratch[static_cast<std::size_t>(col - 1)];
    kept = '-';
    kept += plain;
    return kept;
}

void SpreadModel::setText(int col, int row, std::string_view text)
{
    if (row == 0 && col >= 1 && col <= cols()) {
        m_headings[static_cast<std::size_t>(col - 1)] = text;
        Q_EMIT headerDataChanged(Qt::Horizontal, col - 1, col - 1);
        return;
    }
    if (!holds(col, row))
        return;
    made(row).texts.setText(col - 1, normalised(col, text));
    cellChanged(col, row, {Qt::DisplayRole});
}

void SpreadModel::setRowTexts(int row, std::span<const std::string_view> texts)
{
    if (row < 1 || row > rows())
        return;
    Row& target = m_rows[static_cast<std::size_t>(row - 1)];
    target.texts = packed(texts);
    target.pending = 0;
    if (m_redraw)
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, cols() - 1));
}

void SpreadModel::setRows(int count)
{
    const int target = std::max(count, 0);
    if (target < rows())
        remove(target + 1, rows() - target);
    else if (target > rows())
        insert(rows() + 1, target - rows());
}

void SpreadModel::insert(int row, int count)
{
    if (row < 1 || row > rows() + 1 || count < 1)
        return;
    if (m_redraw)
        beginInsertRows({}, row - 1, row + count - 2);
    std::vector<Row> fresh(static_cast<std::size_t>(count));
    for (Row& each : fresh)
        each.texts = m_empty; // all share one block until they are written
    m_rows.insert(m_rows.begin() + (row - 1), std::make_move_iterator(fresh.begin()),
                  std::make_move_iterator(fresh.end()));
    if (m_redraw) {
        m_shown = rows();
        endInsertRows();
    }
}

void SpreadModel::remove(int row, int count)
{
    if (row < 1 || row > rows() || count < 1)
        return;
    const int last = std::min(row + count - 1, rows());
    if (m_redraw)
        beginRemoveRows({}, row - 1, last - 1);
    m_rows.erase(m_rows.begin() + (row - 1), m_rows.begin() + last);
    if (m_redraw) {
        m_shown = rows();
        endRemoveRows();
    }
}

void SpreadModel::insertAt(std::span<const int> places)
{
    std::vector<Row> all;
    all.reserve(m_rows.size() + places.size());
    auto place = places.begin();
    for (int row = 1; row <= rows() + 1; ++row) {
        for (; place != places.end() && *place <= row; ++place) {
            all.emplace_back();
            all.back().texts = m_empty;
        }
        if (row <= rows())
            all.push_back(std::move(m_rows[static_cast<std::size_t>(row - 1)]));
    }
    m_rows = std::move(all);
}

void SpreadModel::removeWhere(const std::function<bool(int row)>& gone)
{
    std::vector<bool> leaves(m_rows.size());
    for (int row = 1; row <= rows(); ++row) // asked before any row moves
        leaves[static_cast<std::size_t>(row - 1)] = gone(row);
    std::size_t kept = 0;
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (leaves[at])
            continue;
        if (kept != at)
            m_rows[kept] = std::move(m_rows[at]);
        ++kept;
    }
    m_rows.resize(kept);
}

void SpreadModel::sortRows(std::span<const vaSpread::SortKey> keys)
{
    std::vector<SortColumn> columns;
    for (const vaSpread::SortKey& key : keys) {
        const bool again = std::any_of(keys.data(), &key, [&key](const vaSpread::SortKey& before) {
            return before.col == key.col; // can decide nothing any more
        });
        if (key.col < 1 || key.col > cols() || again)
            continue;
        columns.emplace_back(
            key.ascending, comparesAsNumber(column(key.col).type), m_rows.size(),
            [this, &key](std::size_t row) { return text(key.col, static_cast<int>(row) + 1); });
    }
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const std::size_t from : sortedRows(m_rows.size(), columns))
        sorted.push_back(std::move(m_rows[from]));
    m_rows = std::move(sorted);
    if (m_redraw && rows() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows() - 1, cols() - 1));
}

void SpreadModel::setRedraw(bool on)
{
    if (on == m_redraw)
        return;
    // As many rows as before need no new layout, however they have changed places.
    const bool sameCount = m_shown == rows();
    if (on && !sameCount)
        beginResetModel();
    m_redraw = on;
    if (!on)
        return;
    m_shown = rows();
    if (!sameCount)
        endResetModel();
    else if (rows() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows() - 1, cols() - 1));
}

// ---- colours

void SpreadModel::setBackColor(int row, const QColor& color)
{
    if (row < 1 || row > rows())
        return;
    QRgb& back = m_rows[static_cast<std::size_t>(row - 1)].back;
    const QRgb wanted = color.isValid() ? color.rgb() : 0;
    if (back == wanted)
        return;
    back = wanted;
    if (m_redraw)
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, cols() - 1), {Qt::BackgroundRole});
}

QColor SpreadModel::backColor(int row) const
{
    const QRgb back = row >= 1 && row <= rows() ? m_rows[static_cast<std::size_t>(row - 1)].back : 0;
    return back == 0 ? QColor() : QColor(back);
}

const SpreadModel::Mark* SpreadModel::mark(int col, int row) const
{
    if (!holds(col, row))
        return nullptr;
    const auto& marks = m_rows[static_cast<std::size_t>(row - 1)].marks;
    if (!marks)
        return nullptr;
    const auto found = marks->find(col);
    return found == marks->end() ? nullptr : &found->second;
}

SpreadModel::Mark& SpreadModel::markFor(int col, int row)
{
    auto& marks = m_rows[static_cast<std::size_t>(row - 1)].marks;
    if (!marks)
        marks = std::make_unique<std::map<int, Mark>>();
    return (*marks)[col];
}

void SpreadModel::setForeColor(int col, int row, const QColor& color)
{
    if (!holds(col, row) || foreColor(col, row) == color)
        return;
    markFor(col, row).fore = color;
    cellChanged(col, row, {Qt::ForegroundRole});
}

QColor SpreadModel::foreColor(int col, int row) const
{
    const Mark* found = mark(col, row);
    return found == nullptr ? QColor() : found->fore;
}

void SpreadModel::setBold(int col, int row, bool bold)
{
    if (!holds(col, row) || this->bold(col, row) == bold)
        return;
    markFor(col, row).bold = bold;
    cellChanged(col, row, {Qt::FontRole});
}

bool SpreadModel::bold(int col, int row) const
{
    const Mark* found = mark(col, row);
    return found != nullptr && found->bold;
}

void SpreadModel::cellChanged(int col, int row, const QList<int>& roles)
{
    if (m_redraw)
        Q_EMIT dataChanged(index(row - 1, col - 1), index(row - 1, col - 1), roles);
}

// ---- the view's side

int SpreadModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown;
}

int SpreadModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : cols();
}

QVariant SpreadModel::data(const QModelIndex& index, int role) const
{
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    if (!holds(col, row))
        return {};
    const CellType type = column(col).type;
    switch (role) {
    case Qt::DisplayRole:
        if (type == CellType::CheckBox)
            return {};
        return type == CellType::Number ? grouped(text(col, row)) : QString::fromUtf8(text(col, row));
    case Qt::EditRole:
        return QString::fromUtf8(text(col, row));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (alignsRight(type) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::BackgroundRole: {
        const QColor back = backColor(row);
        return back.isValid() ? QVariant(back) : QVariant();
    }
    case Qt::ForegroundRole: {
        const QColor fore = foreColor(col, row);
        return fore.isValid() ? QVariant(fore) : QVariant();
    }
    case Qt::FontRole: {
        if (!bold(col, row))
            return {};
        QFont font = static_cast<const QWidget*>(QObject::parent())->font();
        font.setBold(true);
        return font;
    }
    default:
        return {};
    }
}

QVariant SpreadModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= cols())
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromUtf8(m_headings[static_cast<std::size_t>(section)]);
    return {};
}

Qt::ItemFlags SpreadModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const CellType type = index.isValid() ? column(index.column() + 1).type : CellType::Locked;
    if (type == CellType::Text || type == CellType::Number || type == CellType::Date
        || type == CellType::Time)
        flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace suisui
