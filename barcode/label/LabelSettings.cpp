#include "barcode/label/LabelSettings.h"

#include <algorithm>
#include <vector>

#include "barcode/label/LabelSetup.h"
#include "platform/core/BarPitch.h"
#include "store/AppIni.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int usualPitch = 3;
constexpr int mostInLine = 99; ///< largest number of columns or rows

/// The saved fields in the order of their places. A check box comes before the fields that it enables, and
/// columns and rows come before the check boxes that change them.
std::vector<LabelFieldRow> keptFields()
{
    std::vector<LabelFieldRow> kept;
    std::copy_if(labelFields().begin(), labelFields().end(), std::back_inserter(kept),
                 [](const LabelFieldRow& row) { return row.saving.key != nullptr; });
    std::sort(kept.begin(), kept.end(),
              [](const LabelFieldRow& a, const LabelFieldRow& b) { return a.saving.place < b.saving.place; });
    return kept;
}

bool isTick(const QString& text)
{
    return text == u"0" || text == u"1";
}

QString sheetOf(const QString& saved)
{
    return saved.size() == 1 && saved >= u"0" && saved <= u"4" ? saved : u"0"_s;
}

QString pitchOf(const QString& saved)
{
    const double step = numberIn(saved).value_or(0);
    return QString::number(step >= 1 && step <= barPitchSteps ? static_cast<int>(step) : usualPitch);
}

void takeBack(LabelSetup& setup, const LabelFieldRow& row, const QString& saved)
{
    const std::optional<double> number = numberIn(saved);
    switch (row.saving.takes) {
    case LabelTakes::number:
        if (number)
            setup.set(row.field, saved);
        break;
    case LabelTakes::count:
        if (number && *number >= 1 && *number <= mostInLine)
            setup.set(row.field, QString::number(static_cast<int>(*number)));
        break;
    case LabelTakes::tick:
        if (setup.enabled(row.field) && isTick(saved))
            setup.set(row.field, saved);
        break;
    case LabelTakes::pitch:
        if (!saved.isEmpty())
            setup.set(row.field, pitchOf(saved));
        break;
    case LabelTakes::sheet:
        break; // already chosen, since its figures fill the other fields
    }
}

} // namespace

void restoreLabelSettings(LabelSetup& setup, const AppIni& ini, LabelMode mode)
{
    const auto saved = [&](const LabelFieldRow& row) {
        return ini.labelSetting(mode, QString::fromUtf16(row.saving.key));
    };
    setup.set(LabelField::sheet, sheetOf(saved(rowOf(LabelField::sheet))));
    for (const LabelFieldRow& row : keptFields())
        takeBack(setup, row, saved(row));
}

void storeLabelSettings(const LabelSetup& setup, AppIni& ini, LabelMode mode)
{
    std::vector<std::pair<QString, QString>> settings;
    for (const LabelFieldRow& row : keptFields())
        settings.emplace_back(QString::fromUtf16(row.saving.key), setup.text(row.field));
    ini.setLabelSettings(mode, settings);
}

} // namespace suisui
