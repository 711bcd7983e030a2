// The fields of the label dialog, one row of one table for each: the control, which keys it takes and how
// many characters, what is checked before a print and by which name a box speaks of it, under which key it is
// kept in the settings, and where Enter goes from it. A field is added by adding a row.
#pragma once

#include <array>
#include <cstddef>

#include <QString>

namespace suisui {

/// In the order of the checks.
enum class LabelField : std::size_t {
    startY,
    startX,
    columns,
    barHeight,
    height,
    barPitch,
    rows,
    width,
    name,
    nameX,
    nameY,
    code,
    codeX,
    codeY,
    screenCodes,
    screenX,
    screenY,
    searchCodes,
    searchX,
    searchY,
    print,
    eachRow,
    startLabel,
    markedRows,
    rowRange,
    firstRow,
    lastRow,
    firstPage,
    lastPage,
    position, ///< the chosen round button in the picture of the sheet
    sheet,    ///< the button of the chosen sheet
    count
};

enum class LabelKeys {
    none,
    digits,  ///< NumKeyCheck
    measure, ///< measureKeyCheck
};

/// What a field lets through while it is typed in.
struct LabelTyping
{
    LabelKeys keys = LabelKeys::none;
    int length = 0;        ///< characters
    bool pasteToo = false; ///< what is pasted keeps to the same limits
};

enum class LabelCheck {
    none,
    number,
    notZero,    ///< a number other than 0
    atLeastOne, ///< a number that is not 0 when rounded to a whole one
};

/// Which saved texts a field takes back.
enum class LabelTakes {
    number,
    count, ///< 1 to 99, as a whole number
    tick,  ///< "0" or "1", while its box is enabled
    pitch, ///< a step of the bars; any other text is the usual step
    sheet, ///< "0" to "4"; any other text is the first sheet
};

struct LabelSaving
{
    const char16_t* key = nullptr; ///< null: the field is not kept
    int place = 0;                 ///< among the kept fields, from 1
    LabelTakes takes = LabelTakes::number;
};

/// What the boxes say of a field that is refused. Each text is whole, so that it can be searched for.
struct LabelWords
{
    const char16_t* title = u"";
    const char16_t* notANumber = u"";
    const char16_t* tooSmall = u"";
};

struct LabelFieldRow
{
    LabelField field;
    const char* control;                    ///< object name; null where the control depends on the sheet
    std::array<const char*, 2> labels{};    ///< object names of what turns grey with it
    const char16_t* fresh = u"";            ///< what a fresh dialog holds
    LabelField follows = LabelField::count; ///< the box without whose tick it is grey
    LabelTyping typing{};
    LabelCheck check = LabelCheck::none;
    LabelWords words{};
    LabelSaving saving{};
    LabelField next; ///< where Enter goes; when that is grey, where Enter goes from there
};

inline constexpr std::size_t labelFieldCount = static_cast<std::size_t>(LabelField::count);

/// The table, in the order of LabelField.
[[nodiscard]] const std::array<LabelFieldRow, labelFieldCount>& labelFields();
[[nodiscard]] const LabelFieldRow& rowOf(LabelField field);

/// Digits, "-" and "."; Ctrl-C, Backspace, Enter. Sets \a keyAscii to 0 when it is refused, and returns it.
int measureKeyCheck(int& keyAscii);

} // namespace suisui
