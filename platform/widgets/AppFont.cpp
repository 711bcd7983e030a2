#include "platform/widgets/AppFont.h"

#include "platform/core/FontName.h"

namespace suisui {

QString fontFamily()
{
    static const QString family = QString::fromUtf16(fontName);
    return family;
}

QFont screenFont()
{
    QFont font(fontFamily());
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(screenFontPixels);
    return font;
}

} // namespace suisui
