#include "frame/shell/Application.h"

#include <array>
#include <cstdlib>

#include <QLibraryInfo>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QTranslator>
#include <QtMath>

#include "frame/shell/TagIcon.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/AppFont.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

struct ErrorWords
{
    RunTimeError::Number number;
    const char16_t* words;
};

constexpr std::array errorWords{
    ErrorWords{RunTimeError::InvalidCall, u"プロシージャの呼び出し、または引数が不正です。"},
    ErrorWords{RunTimeError::Overflow, u"オーバーフローしました。"},
    ErrorWords{RunTimeError::SubscriptOutOfRange, u"インデックスが有効範囲にありません。"},
    ErrorWords{RunTimeError::TypeMismatch, u"型が一致しません。数値でない文字が 登録されています。"},
    ErrorWords{RunTimeError::FileNotFound, u"ファイルが見つかりません。"},
};

/// Kilobytes of pictures that the style may keep of controls it has drawn, on a screen of plain scale: about
/// those of one page. It keeps one for each palette, and the mark of the focus is a palette, so ten
/// megabytes, as Qt would have it, only hold what nobody looks at again.
constexpr int pictureCache = 512;

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(u"suisuitag"_s);
    setDesktopFileName(u"suisuitag"_s);
    setWindowIcon(tagIcon());
    setQuitOnLastWindowClosed(false); // the main loop decides when the run is over
    setStyle(QStyleFactory::create(u"Fusion"_s));
    setFont(screenFont());
    QPixmapCache::setCacheLimit(qCeil(pictureCache * devicePixelRatio() * devicePixelRatio()));
    auto* words = new QTranslator(this);
    if (words->load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(words);
}

QString Application::describe(const std::exception& error)
{
    const auto* runTime = dynamic_cast<const RunTimeError*>(&error);
    if (runTime == nullptr)
        return QString::fromUtf8(error.what());
    for (const ErrorWords& entry : errorWords)
        if (entry.number == runTime->number())
            return u"%1 : %2\r\n　　（ %3 ）"_s.arg(QString::number(runTime->number()),
                                                    QString::fromUtf16(entry.words),
                                                    QString::fromUtf8(runTime->what()));
    return u"%1 : %2"_s.arg(QString::number(runTime->number()), QString::fromUtf8(runTime->what()));
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        if (m_end)
            m_end(describe(error));
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace suisui
