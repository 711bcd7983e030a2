// Showing a widget and waiting for its first paint; and the least that a view can show rows with.
#pragma once

#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QApplication>
#include <QWidget>

namespace suisui::bench {

inline void showPainted(QWidget& widget)
{
    widget.resize(1100, 700);
    widget.show();
    widget.repaint();
    QCoreApplication::processEvents();
}

using Rows = std::vector<std::vector<std::string>>;

class RowsModel final : public QAbstractTableModel
{
public:
    explicit RowsModel(const Rows& rows) : m_rows(rows) {}
    [[nodiscard]] int rowCount(const QModelIndex& = {}) const override
    {
        return static_cast<int>(m_rows.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& = {}) const override
    {
        return m_rows.empty() ? 0 : static_cast<int>(m_rows.front().size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& at, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return QString::fromStdString(
            m_rows[static_cast<std::size_t>(at.row())][static_cast<std::size_t>(at.column())]);
    }

private:
    const Rows& m_rows;
};

} // namespace suisui::bench
