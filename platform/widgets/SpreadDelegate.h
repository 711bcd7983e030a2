// Draws the cells of a vaSpread and lends them their editors.
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace suisui {

class vaSpread;

class SpreadDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit SpreadDelegate(vaSpread* spread);

    [[nodiscard]] QWidget* openEditor() const { return m_editor; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void paintCheckBox(QPainter* painter, const QStyleOptionViewItem& option, bool checked) const;

    vaSpread* m_spread;
    mutable QPointer<QWidget> m_editor;
};

} // namespace suisui
