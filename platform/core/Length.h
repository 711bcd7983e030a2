// Lengths that cannot be taken for one another: the operator and the label sheets speak of millimetres, the
// forms of the list reports are laid out in twips, a printer draws dots. One becomes another only by a
// conversion that is named; the one to dots knows the resolution, and nothing leads back from there. All are
// as small and as fast as the numbers that they hold.
#pragma once

#include <compare>
#include <cstdint>

namespace suisui {

inline constexpr double millimetresPerInch = 25.4;

class Millimetres
{
public:
    constexpr Millimetres() = default;
    constexpr explicit Millimetres(double value) : m_value(value) {}
    [[nodiscard]] constexpr double value() const { return m_value; }

    constexpr Millimetres operator-() const { return Millimetres(-m_value); }
    friend constexpr Millimetres operator+(Millimetres a, Millimetres b)
    {
        return Millimetres(a.m_value + b.m_value);
    }
    friend constexpr Millimetres operator-(Millimetres a, Millimetres b)
    {
        return Millimetres(a.m_value - b.m_value);
    }
    friend constexpr Millimetres operator*(Millimetres a, double times)
    {
        return Millimetres(a.m_value * times);
    }
    friend constexpr Millimetres operator/(Millimetres a, double by) { return Millimetres(a.m_value / by); }
    friend constexpr double operator/(Millimetres a, Millimetres b) { return a.m_value / b.m_value; }
    // clang-tidy 14 takes the 0 inside a comparison of this kind for a null pointer.
    friend constexpr auto operator<=>(Millimetres a,
                                      Millimetres b) = default; // NOLINT(modernize-use-nullptr)

private:
    double m_value = 0;
};

constexpr Millimetres operator""_mm(long double value)
{
    return Millimetres(static_cast<double>(value));
}
constexpr Millimetres operator""_mm(unsigned long long value)
{
    return Millimetres(static_cast<double>(value));
}

/// A twentieth of a printer's point, whole.
class Twips
{
public:
    constexpr Twips() = default;
    constexpr explicit Twips(std::int32_t value) : m_value(value) {}
    [[nodiscard]] constexpr std::int32_t value() const { return m_value; }

    friend constexpr Twips operator+(Twips a, Twips b) { return Twips(a.m_value + b.m_value); }
    friend constexpr Twips operator-(Twips a, Twips b) { return Twips(a.m_value - b.m_value); }
    friend constexpr Twips operator*(Twips a, std::int32_t times) { return Twips(a.m_value * times); }
    friend constexpr auto operator<=>(Twips a, Twips b) = default; // NOLINT(modernize-use-nullptr)

private:
    std::int32_t m_value = 0;
};

constexpr Twips operator""_tw(unsigned long long value)
{
    return Twips(static_cast<std::int32_t>(value));
}

[[nodiscard]] constexpr double inches(Twips length)
{
    constexpr double twipsPerInch = 1440;
    return length.value() / twipsPerInch;
}

/// Dots of one printer. They are drawn as the whole numbers that they are, but no number becomes dots
/// unasked.
class Dots
{
public:
    constexpr Dots() = default;
    constexpr explicit Dots(std::int32_t value) : m_value(value) {}
    constexpr operator std::int32_t() const { return m_value; }

private:
    std::int32_t m_value = 0;
};

static_assert(sizeof(Millimetres) == sizeof(double) && sizeof(Twips) == sizeof(std::int32_t)
              && sizeof(Dots) == sizeof(std::int32_t));

} // namespace suisui
