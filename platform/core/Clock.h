// The one clock of a run. Everything that asks for the time asks this object, so that a test works a
// whole day of scans in a second.
#pragma once

#include <chrono>

#include <QDateTime>

namespace suisui {

class Clock
{
public:
    virtual ~Clock() = default;

    /// Wall clock, local time.
    [[nodiscard]] virtual QDateTime now() const = 0;

    /// Time that never steps back, from an arbitrary start.
    [[nodiscard]] virtual std::chrono::milliseconds steady() const = 0;

    /// Lets events run until about \a span has passed. The window repaints meanwhile.
    virtual void letPass(std::chrono::milliseconds span) = 0;
};

/// The computer's own clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override;
    [[nodiscard]] std::chrono::milliseconds steady() const override;
    void letPass(std::chrono::milliseconds span) override;
};

} // namespace suisui
