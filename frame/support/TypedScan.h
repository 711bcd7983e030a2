// Recognises the scans of a bar-code reader that works as a keyboard, wherever the focus of a window is.
// After a scan the cursor is in the quantity of the new row; a reader that scans again there would type
// thirteen digits into the quantity.
//
// A scan is a burst that ends in Enter and comes faster than a person types: three characters or more when
// every gap, the one before Enter included, is under 25 ms; six or more when every gap is under 60 ms, as
// Bluetooth readers send them, and each key was released before the next one was pressed. A person who types
// that fast still holds the last key when the next one is pressed. A text in [ ], { }, # # or @ @ is a scan
// at any length. A burst begins after an Enter, after a key that types nothing, or a quarter of a second
// after the last character; what follows sooner belongs to the typing before it. Repeats of a held key begin
// none.
//
// What counts is when the keys were pressed, not when the program gets to see them. Keys are looked at before
// any control sees them. Those that may still become a scan are held back; when no scan comes of them they
// are processed as if nothing had been, in order, so what a person types is never touched. Of typing that
// goes on, only the first character is held.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QElapsedTimer>
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

    static constexpr int pauseMs = 250; ///< after it another burst may begin
    static constexpr qsizetype fewestCharacters = 3;
    static constexpr qsizetype fewestSlowCharacters = 6;
    static constexpr qsizetype mostCharacters = 1024;

    /// Watches the keys of \a form. \a endsPlainCodes says whether a plain code that is typed now ends in
    /// the code field by itself; then only the bracketed forms are looked for.
    TypedScan(QWidget& form, std::function<bool()> endsPlainCodes, Scanned scanned);
    ~TypedScan() override;

    /// Keys are held that may still become a scan.
    [[nodiscard]] bool holdsKeys() const { return !m_burst.keys.empty(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    // True when the key goes no further for the moment.
    [[nodiscard]] bool press(const QKeyEvent& key);
    [[nodiscard]] bool pressEnter();
    [[nodiscard]] bool pressCharacter(const QKeyEvent& key);
    [[nodiscard]] bool release(const QKeyEvent& key);
    [[nodiscard]] bool follows(const QKeyEvent& key) const;
    [[nodiscard]] bool mayBegin(const QKeyEvent& key, QChar character) const;
    [[nodiscard]] bool mayBecomeScan() const;
    [[nodiscard]] bool isScan() const;
    void hold(const QKeyEvent& key);
    void pauseOver();
    void giveBack();

    /// Keys that may be the beginning of a scan.
    struct Burst
    {
        std::vector<std::unique_ptr<QKeyEvent>> keys; ///< releases and modifiers among them
        QString text;
        quint64 lastTime = 0;    ///< of the last character
        quint64 longestGap = 0;  ///< between two characters, or the last one and Enter
        int down = 0;            ///< characters whose key is not released yet
        bool overlapped = false; ///< one was pressed before another was released
    };

    QWidget& m_form;
    std::function<bool()> m_endsPlainCodes;
    Scanned m_scanned;
    Burst m_burst;
    quint64 m_passedTime = 0; ///< of the last character that went to the window; 0 after any other key
    QTimer m_pause;
    QElapsedTimer m_paused;
    bool m_lookedAgain = false;
    bool m_givingBack = false;
};

} // namespace suisui
