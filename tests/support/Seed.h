// The seed of a randomised test: another one at each run, and printed, so that a failed run can be repeated.
#pragma once

#include <cstdint>
#include <iostream>
#include <random>

#include <gtest/gtest.h>

namespace suisui::test {

/// The seed given by --gtest_random_seed, else a fresh one.
[[nodiscard]] inline std::uint32_t printedSeed()
{
    constexpr std::uint32_t highestSeedOfOption = 99999;
    const auto given = static_cast<std::uint32_t>(GTEST_FLAG_GET(random_seed));
    const std::uint32_t seed = given != 0 ? given : 1 + std::random_device()() % highestSeedOfOption;
    std::cout << "repeat with --gtest_random_seed=" << seed << std::endl;
    return seed;
}

} // namespace suisui::test
