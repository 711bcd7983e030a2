// Marks the control that has the focus: cyan; white, or the form's base colour, when it has left. A field
// that gets the focus, in any way, has its whole text selected, so that the next code overwrites the
// last one.
#pragma once

#include <optional>

#include <QColor>
#include <QObject>
#include <QPoint>
#include <QSet>
#include <QWidget>

class QMouseEvent;

namespace suisui {

class FocusPaint : public QObject
{
public:
    /// Watches the fields, buttons, radio buttons, check boxes and combo boxes that \a form has now. \a base
    /// is the colour that buttons go back to.
    FocusPaint(QWidget* form, const QColor& base);

    /// \a widget paints itself on leaving.
    void exempt(QWidget* widget) { m_exempt.insert(widget); }
    /// A field that takes the cyan and does not select its text.
    void keepSelection(QWidget* widget) { m_keepSelection.insert(widget); }
    /// Gives \a widget its normal colour, whether it has the focus or not.
    void setNormal(QWidget* widget) const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void enter(QWidget* widget, Qt::FocusReason reason);
    void followFirstClick(QObject* object, const QMouseEvent& event);

    QColor m_base;
    QSet<QObject*> m_exempt;
    QSet<QObject*> m_keepSelection;
    const QObject* m_clicked = nullptr; ///< field that the mouse has given the focus
    std::optional<QPoint> m_clickedAt;  ///< where the button that did so went down
};

} // namespace suisui
