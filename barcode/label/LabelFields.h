// The fields of the label dialog, one row of a table for each: the control, the keys and number of characters
// that it takes, the check before printing with the words of its box, the key in the settings, and where
// Enter goes from it. A new field is a new row.
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
    position, ///< the chosen radio button in the picture of the sheet
    sheet,    ///< the radio button of the chosen sheet
    count
};

enum class LabelKeys {
    none,
    digits,  ///< NumKeyCheck
    measure, ///< measureKeyCheck
};

/// What a field accepts while the operator types.
struct LabelTyping
{
    LabelKeys keys = LabelKeys::none;
    int length = 0;        ///< characters
    bool pasteToo = false; ///< the limits hold for pasted text too
};

enum class LabelCheck {
    none,
    number,
    notZero,    ///< a number other than 0
    atLeastOne, ///< a number that does not round to 0
};

/// Which saved texts a field accepts.
enum class LabelTakes {
    number,
    count, ///< 1 to 99, as a whole number
    tick,  ///< "0" or "1", while its box is enabled
    pitch, ///< a bar pitch; any other text gives the usual one
    sheet, ///< "0" to "4"; any other text gives the first sheet
};

struct LabelSaving
{
    const char16_t* key = nullptr; ///< null: the field is not saved
    int place = 0;                 ///< among the saved fields, from 1
    LabelTakes takes = LabelTakes::number;
};

/// Texts of the boxes that refuse a field. They are written out in full, so that they can be searched for.
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
    std::array<const char*, 2> labels{};    ///< object names of the labels that are disabled with it
    const char16_t* fresh = u"";            ///< its text in a new dialog
    LabelField follows = LabelField::count; ///< the check box or radio button that enables it
    LabelTyping typing{};
    LabelCheck check = LabelCheck::none;
    LabelWords words{};
    LabelSaving saving{};
    LabelField next; ///< where Enter goes; if that is disabled, where Enter goes from there
};

inline constexpr std::size_t labelFieldCount = static_cast<std::size_t>(LabelField::count);

/// The table, in the order of LabelField.
[[nodiscard]] const std::array<LabelFieldRow, labelFieldCount>& labelFields();
[[nodiscard]] const LabelFieldRow& rowOf(LabelField field);

/// Accepts digits, "-" and ".", Ctrl-C, Backspace and Enter. Sets any other \a keyAscii to 0; returns it.
int measureKeyCheck(int& keyAscii);

} // namespace suisui
