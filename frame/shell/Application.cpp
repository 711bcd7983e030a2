#include "frame/shell/Application.h"

#include <array>
#include <cstdlib>
#include <new>

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLibraryInfo>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QTabBar>
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
    ErrorWords{RunTimeError::OutOfMemory, u"メモリが不足しています。"},
    ErrorWords{RunTimeError::SubscriptOutOfRange, u"インデックスが有効範囲にありません。"},
    ErrorWords{RunTimeError::TypeMismatch, u"型が一致しません。数値でない文字が 登録されています。"},
    ErrorWords{RunTimeError::InternalError, u"内部エラーです。"},
    ErrorWords{RunTimeError::DeviceNotReady, u"装置の準備ができていません。"},
    ErrorWords{RunTimeError::FileNotFound, u"ファイルが見つかりません。"},
    ErrorWords{RunTimeError::FileAlreadyExists, u"同じ名前のファイルが 既に存在します。"},
    ErrorWords{RunTimeError::DiskFull, u"ディスクの空き容量が足りません。"},
    ErrorWords{RunTimeError::PermissionDenied, u"書き込みが許可されていません。"},
    ErrorWords{RunTimeError::PathAccessError, u"フォルダまたはファイルに 書き込めません。"},
    ErrorWords{RunTimeError::PathNotFound, u"フォルダが見つかりません。"},
    ErrorWords{RunTimeError::InvalidPropertyValue, u"設定の値が不正です。"},
    ErrorWords{RunTimeError::InvalidPortNumber, u"通信ポートの番号が不正です。"},
    ErrorWords{RunTimeError::PortAlreadyOpen, u"通信ポートは 既に使われています。"},
    ErrorWords{RunTimeError::DeviceError, u"通信ポートを使えません。"},
    ErrorWords{RunTimeError::PortNotOpen, u"通信ポートが 開かれていません。"},
};

/// Kilobytes of pictures that the style may keep of controls it has drawn, on a screen of plain scale: about
/// those of one page. It keeps one for each palette, and the mark of the focus is a palette, so ten
/// megabytes, as Qt would have it, only hold what nobody looks at again.
constexpr int pictureCache = 512;

/// Whether the wheel would change what \a receiver has chosen. A hand that scrolls past must not book the
/// next scan to another partner, or as a shipment. An open list is a window of its own and scrolls.
bool changesUnderTheWheel(const QObject* receiver)
{
    return qobject_cast<const QComboBox*>(receiver) != nullptr
           || qobject_cast<const QTabBar*>(receiver) != nullptr
           || qobject_cast<const QAbstractSpinBox*>(receiver) != nullptr;
}

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
    RunTimeError::Number number = RunTimeError::InternalError;
    if (runTime != nullptr)
        number = runTime->number();
    else if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        number = RunTimeError::OutOfMemory;
    QString words;
    for (const ErrorWords& entry : errorWords)
        if (entry.number == number)
            words = QString::fromUtf16(entry.words);
    return u"%1 : %2"_s.arg(QString::number(number), words);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Wheel && changesUnderTheWheel(receiver)) {
        event->ignore();
        return false;
    }
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        qCritical("%s", error.what());
        if (m_end)
            m_end(describe(error));
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace suisui
