// The three forms that the list reports fill: the place of each text, line and shaded band on a landscape A4
// sheet. Data only, in twips (1440 to the inch), to be compared with the printed form.
//
// A page has head, column titles and frame once, and many rows. Places within a row are those of the first
// one, number 0; row n is n times the pitch lower. A row of the form takes one row of the grid.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "frame/support/Frame.h"
#include "lists/report/Printer_Properties.h"
#include "platform/core/Length.h"

namespace suisui {

/// A place on a form. Its four figures are twips, and become so nowhere else.
struct TwipBox
{
    constexpr TwipBox() = default;
    constexpr TwipBox(int leftTwips, int topTwips, int widthTwips, int heightTwips)
        : left(leftTwips), top(topTwips), width(widthTwips), height(heightTwips)
    {
    }
    constexpr TwipBox(Twips boxLeft, Twips boxTop, Twips boxWidth, Twips boxHeight)
        : left(boxLeft), top(boxTop), width(boxWidth), height(boxHeight)
    {
    }

    Twips left;
    Twips top;
    Twips width;
    Twips height;
};

/// A line on a form, from one end to the other, in twips as a TwipBox.
struct TwipLine
{
    constexpr TwipLine(int fromX, int fromY, int toX, int toY) : x1(fromX), y1(fromY), x2(toX), y2(toY) {}

    Twips x1;
    Twips y1;
    Twips x2;
    Twips y2;
};

/// A text of a row, taken from a column of the grid.
struct RowElement
{
    std::u16string_view name;
    int column;
    TwipBox box;
    FormAlign alignment = FormAlign::Left;
};

/// A text that is on each page once. An empty one is filled in by the engine.
struct FixedText
{
    std::u16string_view name;
    std::u16string_view text;
    TwipBox box;
    FormAlign alignment = FormAlign::Left;
    int size = 9; ///< points
    bool bold = false;
    bool optional = false; ///< title of a column that not every view fills
};

struct FixedLine
{
    TwipLine at;
    int borderWidth = 1;
    bool optional = false; ///< between optional titles
};

struct ReportTemplate
{
    std::u16string_view name;
    std::u16string_view title;    ///< of the report, and of its job at the printer
    std::u16string_view listName; ///< as the dialog names it
    Tab tab;
    int termIndex;
    std::u16string_view drawingError; ///< shown when a page cannot be drawn
    int rowsPerPage;
    Twips pitch;
    std::span<const RowElement> cells;
    FixedLine rowLine;                ///< LnIn, under the row
    TwipBox rowBand;                  ///< LbYerrow, the shaded band behind the row
    int rowsPerBand;                  ///< 2: behind every other row
    TwipBox titleBand;                ///< behind the column titles
    std::span<const FixedLine> lines; ///< frame; the first is the left reference line, the second the top one
    std::array<std::span<const FixedText>, 2> texts;
};

extern const ReportTemplate rptList_Stock;
extern const ReportTemplate rptList_In;
extern const ReportTemplate rptList_Out;

/// The report of a list tab.
[[nodiscard]] const ReportTemplate& reportOf(Tab tab);

/// Pages that \a gridRows rows fill.
[[nodiscard]] int pageCount(const ReportTemplate& report, int gridRows);

} // namespace suisui
