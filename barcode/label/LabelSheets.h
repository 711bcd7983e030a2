// The sheets of labels that the shop can buy: how many labels, where the first one is, how large they are,
// and what is printed with the bars. All measures are millimetres, as texts of the dialog's fields. The fifth
// sheet is free: it leaves the fields as they are.
#pragma once

#include <array>

#include <QString>

namespace suisui {

inline constexpr int fixedSheets = 4;
inline constexpr int freeSheet = 4;
inline constexpr int sheetChoices = 5;

/// A text below or above the bars: whether it is printed, and its distance from the corner of the bars.
struct SheetText
{
    bool on;
    const char16_t* x;
    const char16_t* y;
};

struct LabelSheet
{
    const char16_t* paper;  ///< first line of the radio button
    const char16_t* labels; ///< second line of the radio button
    const char16_t* title;  ///< name of the sheet
    const char16_t* maker;
    const char16_t* frame; ///< title of the picture
    const char16_t* barPitch;
    const char16_t* barHeight;
    const char16_t* startX;
    const char16_t* startY;
    const char16_t* width;
    const char16_t* height;
    int columns;
    int rows;
    SheetText name;
    SheetText code;
    bool functionCodes; ///< its last row may hold the strip of function codes
};

extern const std::array<LabelSheet, fixedSheets> labelSheets;

// Where the strip of function codes is on the sheet that has room for it, from the first label.
struct StripPlace
{
    const char16_t* x;
    const char16_t* y;
};
inline constexpr StripPlace screenStrip{u"5.00", u"208.00"};
inline constexpr StripPlace searchStrip{u"-6.00", u"228.00"};

} // namespace suisui
