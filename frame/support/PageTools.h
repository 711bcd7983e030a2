// Small things that the pages share.
#pragma once

#include <QString>

#include "frame/support/Page.h"

class QLabel;

namespace suisui {

/// The entry of a combo box that means no restriction.
extern const QString allChoices;

/// Fills \a combo with the names of \a choices, followed by allChoices if wanted, and shows the first
/// entry, or allChoices.
void fillCombo(QComboBox& combo, const ChoiceList& choices, bool withAll);

/// Entry \a index of \a choices. Throws RunTimeError::SubscriptOutOfRange outside the list.
[[nodiscard]] const Choice& choiceAt(const ChoiceList& choices, int index);

/// Shows the first entry of \a combo whose code is \a code. False when there is none.
bool chooseCode(QComboBox& combo, const ChoiceList& choices, const QString& code);

/// Enter in \a combo moves the focus to \a next.
void enterMovesOn(QComboBox& combo, QWidget& next);

/// \a words as the caption of a label that belongs to a control: there a lone & would mark a letter.
[[nodiscard]] QString asCaption(QString words);

/// Sets the characters of a code field under the figures of the ruler above it. A code longer than the ruler
/// is shown close together, so that the whole of it can be read.
void followRuler(QLineEdit& field, const QLabel& ruler);

/// Forms that serve both sides are drawn once, with an X where the names of their controls carry the letter
/// of the side. Puts \a letter there.
void letterNames(QWidget& form, QChar letter);

} // namespace suisui
