// Grids as the list tabs leave them, filled without a database, and a PDF printer to print them on.
#pragma once

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include <QLocale>
#include <QStringList>
#include <QTemporaryDir>

#include "lists/ListSide.h"
#include "lists/StockRows.h"
#include "lists/report/ListReport.h"
#include "platform/widgets/vaSpread.h"
#include "tests/support/PdfPrinter.h"

namespace suisui::test {

using namespace Qt::Literals::StringLiterals;

/// Texts of a row of the stock grid, column by column; every row differs from the others.
inline QStringList stockTexts(int row)
{
    const QLocale grouped(QLocale::English);
    const QStringList goods{u"ボールペン 黒 0.5mm"_s, u"コピー用紙 Ａ４ 500枚"_s, u"ＬＥＤ電球 60形 昼白色"_s,
                            u"ギフトセット（石けん・タオル）"_s, u"ﾀｵﾙﾊﾝｶﾁ 花柄"_s};
    return {QString::number(4900000000000 + row * 17),
            goods.at(row % goods.size()) + u" %1"_s.arg(row),
            grouped.toString((row * 7919) % 123456 - 500),
            grouped.toString(row % 9000 + 50),
            grouped.toString(row % 9000 + 80),
            QString(),
            QString(),
            row % 3 == 0 ? u"箱"_s : u"個"_s,
            grouped.toString(row % 40),
            QString::number(row)};
}

/// The same for a movement list; a shipment has two columns of returns.
inline QStringList movementTexts(int row, Side side)
{
    const QLocale grouped(QLocale::English);
    const QStringList partners{u"株式会社 山田商店"_s, u"佐藤文具"_s, u"（有）北海物産 札幌営業所"_s};
    QStringList texts{u"2026/11/%1"_s.arg(row % 28 + 1, 2, 10, QLatin1Char('0')),
                      stockTexts(row).at(1),
                      partners.at(row % partners.size()),
                      grouped.toString(row % 9000 + 50),
                      grouped.toString(row % 500 + 1),
                      grouped.toString(row % 90),
                      grouped.toString((row * 7919) % 9876543 - 1000),
                      stockTexts(row).at(0),
                      row % 2 == 0 ? u"山田　太郎"_s : u"鈴木 花子"_s,
                      grouped.toString(row % 7)};
    if (side == Side::Shipment)
        texts << grouped.toString(row % 5);
    return texts << stockTexts(row).at(7) << u"備考%1"_s.arg(row) << QString::number(row);
}

inline QStringList rowTexts(const ReportTemplate& report, int row)
{
    return report.tab == Tab::Stock
               ? stockTexts(row)
               : movementTexts(row, report.tab == Tab::ShipmentList ? Side::Shipment : Side::Receipt);
}

inline const ReportTemplate* const reports[] = {&rptList_Stock, &rptList_In, &rptList_Out};

/// The text \a name of a row of \a report.
inline const RowElement& elementOf(const ReportTemplate& report, std::u16string_view name)
{
    const auto found = std::find_if(report.cells.begin(), report.cells.end(),
                                    [name](const RowElement& each) { return each.name == name; });
    if (found == report.cells.end())
        throw std::runtime_error("no element " + QStringView(name).toUtf8().toStdString());
    return *found;
}

/// What a tab may give its report.
inline ReportHead sampleHead()
{
    return {.texts = {{u"LbDate", u"2026/11/21  08:05  現在"_s},
                      {u"LbSYear", u"2026"_s},
                      {u"LbSMonth", u"11"_s},
                      {u"LbSDate", u"01"_s},
                      {u"LbEYear", u"2026"_s},
                      {u"LbEMonth", u"11"_s},
                      {u"LbEDate", u"21"_s},
                      {u"LbNyuka", u"株式会社 山田商店"_s},
                      {u"LbSyouhin", u"（すべて）"_s},
                      {u"LbTantou", u"（すべて）"_s}}};
}

/// A grid of \a rows rows for \a report.
inline std::unique_ptr<vaSpread> filledGrid(const ReportTemplate& report, int rows)
{
    auto grid = std::make_unique<vaSpread>();
    const std::vector<SpreadColumn> columns(static_cast<std::size_t>(rowTexts(report, 1).size()));
    grid->setColumns(columns);
    grid->setMaxRows(rows);
    for (int row = 1; row <= rows; ++row) {
        const QStringList texts = rowTexts(report, row);
        for (int i = 0; i < texts.size(); ++i)
            grid->SetText(i + 1, row, texts.at(i));
    }
    return grid;
}

/// Prints the way the dialog does, on a PDF.
struct ReportDesk
{
    QTemporaryDir folder;
    std::shared_ptr<PdfSetup> setup = std::make_shared<PdfSetup>();
    Printer printer{pdfDialog(setup)};
    Printer_Properties paper{printer};

    ReportDesk() { setup->file = folder.filePath(u"list.pdf"_s); }

    [[nodiscard]] bool select()
    {
        printer.setOrientation(PaperOrientation::Landscape);
        return paper.PrinterSelect(nullptr) == PrinterChoice::GoOn;
    }

    ReportStatus print(const ReportTemplate& report, const vaSpread& grid, const ReportHead& head = {},
                       PageRange range = {0, 0})
    {
        if (!select())
            return ReportStatus::Failed;
        const int pages = pageCount(report, grid.MaxRows());
        if (range == PageRange{0, 0})
            range = {1, pages};
        return ListReport(report, grid).print(paper, head, range, pages);
    }
};

} // namespace suisui::test
