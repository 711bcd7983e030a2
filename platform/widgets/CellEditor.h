// What may be typed into a cell, and what of it the cell takes.
#pragma once

#include <optional>

#include <QValidator>

#include "platform/widgets/vaSpread.h"

namespace suisui {

/// Refuses, key by key and paste by paste, what a column cannot hold.
class CellValidator final : public QValidator
{
    Q_OBJECT

public:
    CellValidator(CellType type, int digits, QObject* parent);
    State validate(QString& input, int& position) const override;

private:
    CellType m_type;
    int m_digits;
};

/// The cell text for \a typed: dates as "YYYY/MM/DD", times as "HH:MM:SS". Nothing when it is not a date,
/// not a time or not yet a number, and the old text has to come back. An emptied number is the empty text.
[[nodiscard]] std::optional<QString> cellText(CellType type, const QString& typed);

} // namespace suisui
