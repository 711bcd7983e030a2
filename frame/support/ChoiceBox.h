// A combo box for names. A name that has not enough room ends in "…", and a hint shows the whole of it. The
// box asks for the room of the longest name that the master data are meant for, and makes do with less on a
// small screen.
#pragma once

#include <QComboBox>

namespace suisui {

class ChoiceBox final : public QComboBox
{
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    /// The chosen name as the box shows it.
    [[nodiscard]] QString shownText() const;
    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace suisui
