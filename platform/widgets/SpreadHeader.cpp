#include "platform/widgets/SpreadHeader.h"

#include <QAbstractItemModel>

namespace suisui {

SpreadHeader::SpreadHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

QSize SpreadHeader::sizeHint() const
{
    for (int section = 0; section < count(); ++section)
        if (!isSectionHidden(section) && !model()->headerData(section, Qt::Horizontal).toString().isEmpty())
            return sectionSizeFromContents(section);
    return QHeaderView::sizeHint();
}

} // namespace suisui
