// A printing object that records what it is asked for: the calls in order, and what went on which page and
// where.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QPoint>
#include <QString>

#include "platform/widgets/BarPrt.h"

namespace suisui::test {

class RecordingBarPrt final : public BarPrt
{
public:
    struct Mark
    {
        QPoint at;
        QString text;
    };
    struct Sheet
    {
        std::vector<Mark> bars;
        std::vector<Mark> texts;
    };

    void setOrientation(PaperOrientation which) override
    {
        turned = which;
        calls.emplace_back("orientation");
    }
    [[nodiscard]] PaperOrientation orientation() const override { return turned; }
    [[nodiscard]] std::int32_t copies() const override { return copyCount; }
    [[nodiscard]] std::int32_t dotsPerInchX() const override { return dpiX; }
    [[nodiscard]] std::int32_t dotsPerInchY() const override { return dpiY; }
    [[nodiscard]] std::int32_t physicalOffsetX() const override { return offsetX; }
    [[nodiscard]] std::int32_t physicalOffsetY() const override { return offsetY; }
    [[nodiscard]] PrinterChoice choosePrinter(QWidget*) override
    {
        calls.emplace_back("choose");
        if (onChoose)
            onChoose();
        return chosen;
    }
    void startDocument() override
    {
        calls.emplace_back("start document");
        if (onStart)
            onStart();
    }
    void endDocument() override { calls.emplace_back("end document"); }
    void startPage() override
    {
        calls.emplace_back("start page");
        pages.emplace_back();
    }
    void endPage() override { calls.emplace_back("end page"); }
    void printBar(const QString& text) override { pages.back().bars.push_back({pen(), text}); }
    void printText(const QString& text) override { pages.back().texts.push_back({pen(), text}); }

    PaperOrientation turned = PaperOrientation::Portrait;
    std::int32_t copyCount = 1;
    std::int32_t dpiX = 600;
    std::int32_t dpiY = 600;
    std::int32_t offsetX = 0;
    std::int32_t offsetY = 0;
    PrinterChoice chosen = PrinterChoice::GoOn;
    std::function<void()> onChoose; ///< runs while the printer dialog would be on the screen
    std::function<void()> onStart;  ///< runs when the document begins
    std::vector<std::string> calls;
    std::vector<Sheet> pages;
};

} // namespace suisui::test
