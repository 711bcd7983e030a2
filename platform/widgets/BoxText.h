// The text of a message box. Its lines are those of the text; one that is longer than the screen has room for
// goes on in the next. The screen font has no leading of its own, so the lines are kept apart here.
#pragma once

#include <QLabel>
#include <QStringList>

namespace suisui {

class BoxText final : public QLabel
{
public:
    /// \a room is the greatest width of a line, in pixels.
    BoxText(const QString& text, int room, QWidget* parent);

    [[nodiscard]] const QStringList& lines() const { return m_lines; }
    /// From one line to the next, in pixels.
    [[nodiscard]] int lineStep() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList m_lines;
};

} // namespace suisui
