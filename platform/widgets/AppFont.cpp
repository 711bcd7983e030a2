#include "platform/widgets/AppFont.h"

namespace suisui {

QString fontFamily()
{
    return QStringLiteral("BIZ UDGothic");
}

QFont screenFont()
{
    QFont font(fontFamily());
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(14);
    return font;
}

} // namespace suisui
