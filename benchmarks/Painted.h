// Showing a widget and waiting for its first paint; and the simplest model that shows rows in a view.
#pragma once

#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace suisui::bench {

inline void showPainted(QWidget& widget)
{
    widget.resize(1100, 700);
    widget.show();
    widget.repaint();
    QCoreApplication::processEvents();
}

/// Lets \a show open \a window, and runs events until the screen has exposed it and it has painted itself.
template <typename Show> void untilPainted(QWidget& window, Show show)
{
    class Painting final : public QObject
    {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            const auto* widget = static_cast<QWidget*>(watched);
            seen |= event->type() == QEvent::Paint && widget->windowHandle() != nullptr
                    && widget->windowHandle()->isExposed();
            return false;
        }
        bool seen = false;
    } painting;
    window.installEventFilter(&painting);
    show();
    while (!painting.seen)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    window.removeEventFilter(&painting);
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
