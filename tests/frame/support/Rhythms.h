// How persons and readers press keys: when each key goes down, and how long it stays down.
//
// The rows of persons are what keyboards report of fast hands, at the edge of what hands do: the next key
// goes down before the last one is let go of ("rollover", see Dhakal, Feit, Kristensson, Oulasvirta:
// Observations on Typing from 136 Million Keystrokes, CHI 2018), two keys hit by one finger, rolls of
// neighbouring fingers, number pads whose "00" and "000" are one key.
#pragma once

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <QString>

namespace suisui::test {

struct Stroke
{
    char16_t key; ///< u'\r' for Enter
    int gap;      ///< milliseconds since the key before went down
    int held;     ///< milliseconds until it is let go of
    bool repeat = false;
};

struct Rhythm
{
    const char* what;
    std::vector<Stroke> strokes;
};

inline const std::vector<Rhythm> personsRhythms{
    {"two digits and Enter in 40 ms", {{u'1', 0, 55}, {u'2', 18, 60}, {u'\r', 22, 58}}},
    {"a quantity on the number pad", {{u'1', 0, 74}, {u'2', 131, 69}, {u'0', 118, 71}, {u'\r', 152, 80}}},
    {"a roll over three keys of the pad", {{u'4', 0, 88}, {u'5', 31, 84}, {u'6', 28, 90}, {u'\r', 47, 85}}},
    {"the fastest roll, Enter with the thumb",
     {{u'1', 0, 92}, {u'2', 26, 90}, {u'3', 25, 88}, {u'\r', 25, 90}}},
    {"one finger on two keys", {{u'8', 0, 61}, {u'9', 3, 60}, {u'\r', 121, 77}}},
    {"a hand on three keys", {{u'7', 0, 80}, {u'8', 6, 82}, {u'9', 4, 79}, {u'\r', 96, 80}}},
    {"the key for 00", {{u'1', 0, 70}, {u'0', 139, 1}, {u'0', 4, 66}, {u'\r', 23, 70}}},
    {"the key for 000", {{u'5', 0, 68}, {u'0', 148, 1}, {u'0', 4, 1}, {u'0', 4, 60}, {u'\r', 24, 75}}},
    {"the key for 000 first", {{u'0', 0, 1}, {u'0', 4, 1}, {u'0', 4, 60}, {u'\r', 61, 75}}},
    {"the key for 00, twice", {{u'0', 0, 1}, {u'0', 4, 60}, {u'0', 88, 1}, {u'0', 4, 60}, {u'\r', 22, 75}}},
    {"a held zero",
     {{u'1', 0, 70},
      {u'0', 140, 260},
      {u'0', 260, 33, true},
      {u'0', 33, 33, true},
      {u'0', 33, 33, true},
      {u'0', 33, 33, true},
      {u'0', 33, 33, true},
      {u'0', 33, 20, true},
      {u'\r', 45, 70}}},
    {"a held zero at the fastest repeat",
     {{u'0', 0, 200},
      {u'0', 200, 10, true},
      {u'0', 10, 10, true},
      {u'0', 10, 10, true},
      {u'0', 10, 10, true},
      {u'0', 10, 8, true},
      {u'\r', 20, 70}}},
    {"a touch typist at 120 words a minute",
     {{u's', 0, 84},
      {u'a', 96, 88},
      {u'm', 84, 81},
      {u'p', 110, 90},
      {u'l', 72, 86},
      {u'e', 91, 80},
      {u'\r', 140, 92}}},
    {"a typist at 220 words a minute, every key under way before the last one is up",
     {{u's', 0, 84},
      {u't', 58, 88},
      {u'o', 41, 79},
      {u'c', 55, 90},
      {u'k', 38, 83},
      {u's', 52, 76},
      {u'\r', 57, 92}}},
    {"a roll over six keys",
     {{u'a', 0, 96},
      {u's', 35, 94},
      {u'd', 33, 91},
      {u'f', 38, 97},
      {u'j', 36, 90},
      {u'k', 34, 88},
      {u'\r', 58, 90}}},
    {"a typist whose word ends in a burst",
     {{u'1', 0, 70}, {u'4', 180, 66}, {u'5', 21, 62}, {u'6', 20, 60}, {u'\r', 24, 77}}},
};

/// What a person of \a wordsAMinute (five characters each) types who presses \a characters keys and Enter.
/// Gaps scatter around the mean as they do in recordings, with a tail towards the slow side.
inline std::vector<Stroke> personsEntry(std::mt19937& random, double wordsAMinute, int characters)
{
    constexpr double millisecondsAMinute = 60000;
    std::lognormal_distribution<double> gaps(std::log(millisecondsAMinute / (wordsAMinute * 5)), 0.35);
    std::normal_distribution<double> holds(85, 15);
    std::vector<Stroke> strokes;
    for (int i = 0; i <= characters; ++i)
        strokes.push_back({static_cast<char16_t>(i == characters ? u'\r' : u'0' + random() % 10),
                           static_cast<int>(gaps(random)), std::max(40, static_cast<int>(holds(random)))});
    return strokes;
}

/// \a text and Enter as a reader sends them: each key is let go of before the next one goes down.
inline std::vector<Stroke> readersScan(const QString& text, int gap)
{
    std::vector<Stroke> strokes;
    for (const QChar c : text + u'\r')
        strokes.push_back({c.unicode(), gap, gap / 2});
    return strokes;
}

} // namespace suisui::test
