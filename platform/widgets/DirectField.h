// A one-line field that takes keys as they are typed: the input method stays off, whatever the shop's
// computer is set to. Codes and figures must not be turned into kana.
#pragma once

#include <QLineEdit>

namespace suisui {

class DirectField : public QLineEdit
{
    Q_OBJECT

public:
    explicit DirectField(QWidget* parent = nullptr);

    /// QLineEdit says that it takes the input method wherever it can be edited, whatever its attribute says.
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
};

} // namespace suisui
