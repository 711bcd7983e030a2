// Recognises the scans of a bar-code reader that works as a keyboard, wherever the focus of a window is.
// After a scan the cursor stands in the quantity of the new row; a reader that scans again there would type
// thirteen digits into the quantity.
//
// A scan is a burst: eight characters or more, or a text in [ ], { }, # # or @ @, each character within 30 ms
// of the one before, closed by Enter. Keys are looked at before any control hears of them. Those that may
// begin a scan are held for 30 ms at most; when no scan comes of them they are worked as if nothing had been,
// in order, so what a person types is never touched.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

class QKeyEvent;
class QWidget;

namespace suisui {

class TypedScan : public QObject
{
public:
    using Scanned = std::function<void(const QString& value)>;

    static constexpr int longestGapMs = 30;
    static constexpr qsizetype fewestCharacters = 8;
    static constexpr qsizetype mostCharacters = 1024;

    /// Watches the keys of \a form. \a endsPlainCodes tells whether a plain code that is typed now ends in
    /// the code field by itself; then only the bracketed forms are looked for.
    TypedScan(QWidget& form, std::function<bool()> endsPlainCodes, Scanned scanned);
    ~TypedScan() override;

    /// Keys are held that may still become a scan.
    [[nodiscard]] bool holdsKeys() const { return !m_held.empty(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    // True when the key goes no further for the moment.
    [[nodiscard]] bool press(const QKeyEvent& key);
    [[nodiscard]] bool pressEnter(bool follows);
    [[nodiscard]] bool pressCharacter(const QKeyEvent& key);
    [[nodiscard]] bool mayBegin(QChar character) const;
    [[nodiscard]] bool isScan() const;
    void hold(const QKeyEvent& key);
    void giveBack();

    QWidget& m_form;
    std::function<bool()> m_endsPlainCodes;
    Scanned m_scanned;
    std::vector<std::unique_ptr<QKeyEvent>> m_held;
    QString m_text;
    quint64 m_lastTime = 0;   ///< of the last character held
    quint64 m_passedTime = 0; ///< of the last character that the code field got; 0 behind an Enter
    QTimer m_pause;
    bool m_givingBack = false;
};

} // namespace suisui
