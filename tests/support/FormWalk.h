// Walks over all controls of a form as somebody does who uses a screen reader, who has no mouse, or who has a
// small one.
#pragma once

#include <vector>

#include <QWidget>

namespace suisui::test {

/// Every control that can be operated has a name in Japanese; a hint distinguishes two with the same name.
void expectNames(const QWidget& form);

/// No two controls that can be seen answer to the same letter.
void expectOwnLetters(const QWidget& form);

/// The controls that Tab comes to, from the first one on until it is there again.
[[nodiscard]] std::vector<QWidget*> tabRound(QWidget& form);

/// The controls that Tab must come to: enabled, to be seen, and meant for it.
[[nodiscard]] std::vector<QWidget*> tabStops(const QWidget& form);

/// One round of Tab comes to every stop once.
void expectEachStopOnce(QWidget& form);

/// As expectEachStopOnce, and goes from the top to the bottom and in a row from the left to the right.
void expectTabOrder(QWidget& form);

/// Texts have the room that they ask for, figures the room of the widest ones, and nothing is outside what
/// it belongs to.
void expectNothingCut(const QWidget& form);

} // namespace suisui::test
