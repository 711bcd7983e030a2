// Lengths that cannot be taken for one another: the operator and the sheets speak of millimetres, a printer
// draws dots. Millimetres become dots only by a conversion that is named and knows the resolution; nothing
// leads back. Both are as small and as fast as the numbers that they hold.
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

static_assert(sizeof(Millimetres) == sizeof(double) && sizeof(Dots) == sizeof(std::int32_t));

} // namespace suisui
