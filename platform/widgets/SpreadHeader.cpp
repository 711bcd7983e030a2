#include "platform/widgets/SpreadHeader.h"

#include <algorithm>

#include <QAbstractItemModel>

namespace suisui {

SpreadHeader::SpreadHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

/// Where a letter is missing in the font another one steps in, which may be higher: a caption with more than
/// ASCII goes before one without.
QSize SpreadHeader::sizeHint() const
{
    const auto isAscii = [](QChar letter) { return letter < QChar(128); };
    int measured = -1;
    for (int section = 0; section < count(); ++section) {
        if (isSectionHidden(section))
            continue;
        const QString caption = model()->headerData(section, Qt::Horizontal).toString();
        if (!std::all_of(caption.begin(), caption.end(), isAscii))
            return sectionSizeFromContents(section);
        if (measured < 0 && !caption.isEmpty())
            measured = section;
    }
    return measured < 0 ? QHeaderView::sizeHint() : sectionSizeFromContents(measured);
}

} // namespace suisui
