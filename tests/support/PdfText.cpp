#include "tests/support/PdfText.h"

#include <algorithm>

#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(120000);
    return process.readAllStandardOutput();
}

} // namespace

int pdfPages(const QString& file)
{
    static const QRegularExpression pages(u"^Pages:\\s+(\\d+)"_s, QRegularExpression::MultilineOption);
    return pages.match(QString::fromUtf8(outputOf(u"pdfinfo"_s, {file}))).captured(1).toInt();
}

std::vector<PdfWord> pdfWords(const QString& file)
{
    std::vector<PdfWord> words;
    QXmlStreamReader xml(outputOf(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s}));
    int page = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"page")
            ++page;
        if (xml.name() != u"word")
            continue;
        const auto at = [&xml](QLatin1StringView name) { return xml.attributes().value(name).toDouble(); };
        const QRectF box(QPointF(at("xMin"_L1), at("yMin"_L1)), QPointF(at("xMax"_L1), at("yMax"_L1)));
        words.push_back({page, box, xml.readElementText()});
    }
    return words;
}

QImage pdfPicture(const QString& file, int page, int dpi, Edges edges)
{
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    QStringList arguments{u"-r"_s, QString::number(dpi), u"-f"_s,   number, u"-l"_s,
                          number,  u"-singlefile"_s,     u"-gray"_s};
    if (edges == Edges::Exact)
        arguments << u"-aa"_s << u"no"_s << u"-aaVector"_s << u"no"_s;
    arguments << file << folder.filePath(u"page"_s);
    outputOf(u"pdftoppm"_s, arguments);
    QImageReader::setAllocationLimit(0); // a page has a pixel for each dot
    return QImage(folder.filePath(u"page.pgm"_s));
}

QString textIn(const std::vector<PdfWord>& words, int page, const QRectF& box)
{
    std::vector<PdfWord> found;
    std::copy_if(words.begin(), words.end(), std::back_inserter(found),
                 [&](const PdfWord& word) { return word.page == page && box.contains(word.box.center()); });
    std::sort(found.begin(), found.end(),
              [](const PdfWord& a, const PdfWord& b) { return a.box.left() < b.box.left(); });
    QString text;
    for (const PdfWord& word : found)
        text += word.text;
    return text;
}

} // namespace suisui::test
