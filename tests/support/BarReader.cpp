#include "tests/support/BarReader.h"

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

std::string readBarCodes(const QImage& picture)
{
    constexpr int deadline = 120000;
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"page.pgm"_s);
    if (!picture.convertToFormat(QImage::Format_Grayscale8).save(file))
        return {};
    QProcess zbar;
    zbar.start(u"zbarimg"_s, {u"-q"_s, u"--raw"_s, u"-Sdisable"_s, u"-Scode128.enable"_s, file});
    if (!zbar.waitForFinished(deadline))
        return {};
    QStringList texts = QString::fromUtf8(zbar.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    texts.sort();
    return texts.join(u' ').toStdString();
}

} // namespace suisui::test
