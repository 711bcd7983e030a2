// What the forms of receipts and shipments have in common: the head with its filter, the frame, ten blocks of
// three print lines.
#pragma once

#include "lists/report/ReportTemplate.h"

namespace suisui {

inline constexpr FixedText movementHead[] = {
    {u"Label4", u"すいすいＴＡＧ", {1110, 600, 3000, 255}},
    {u"LbSYear", u"", {1110, 1020, 420, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"年", {1540, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbSMonth", u"", {1740, 1020, 220, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"月", {1970, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbSDate", u"", {2170, 1020, 220, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"日", {2400, 1020, 200, 255}, FormAlign::Left, 10},
    {u"lbldayfromto", u"～", {2700, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbEYear", u"", {2970, 1020, 420, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"年", {3400, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbEMonth", u"", {3600, 1020, 220, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"月", {3830, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbEDate", u"", {4030, 1020, 220, 255}, FormAlign::Right, 10},
    {u"lbldayfromto", u"日", {4260, 1020, 200, 255}, FormAlign::Left, 10},
    {u"LbNyuka", u"", {1980, 1275, 4000, 255}},
    {u"lblselect_t", u"商品名 ：", {6120, 1275, 870, 255}},
    {u"LbSyouhin", u"", {6990, 1275, 4500, 255}},
    {u"lblselect_t", u"担当者 ：", {11640, 1275, 870, 255}},
    {u"LbTantou", u"", {12510, 1275, 3480, 255}},
    {u"LbPage", u"", {14535, 1020, 375, 255}, FormAlign::Centre},
    {u"Label2", u"／", {14910, 1020, 180, 255}},
    {u"LbSPage", u"", {15090, 1020, 375, 255}, FormAlign::Centre},
    {u"Label3", u"ページ", {15450, 1020, 540, 255}},
};

// The frame stands outside the bands, which reach from 1110 to 15990.
inline constexpr FixedLine movementLines[] = {
    {1093, 1560, 1093, 11117, 2}, {1093, 420, 16007, 420, 3},   {15990, 1560, 15990, 11117, 2},
    {1093, 1543, 16007, 1543, 2}, {1110, 2383, 15990, 2383, 2}, {1093, 11100, 16007, 11100, 2},
};

inline constexpr int movementRows = 10;
inline constexpr int movementPitch = 870;
inline constexpr FixedLine movementLnIn{1110, 3270, 15990, 3270};
inline constexpr TwipBox movementBand{1110, 2400, 14880, 300};
inline constexpr TwipBox movementTitleBand{1110, 1560, 14880, 823};

} // namespace suisui
