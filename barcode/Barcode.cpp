#include "barcode/Barcode.h"

#include "platform/core/CodePage.h"
#include "platform/core/MSComm.h"
#include "platform/core/RunTimeError.h"
#include "platform/core/MsgBox.h"
#include "store/Numbers.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

const QByteArrayView frameEnd("\r\n");

std::int16_t settingNumber(const QString& text)
{
    return CInt(numberOf(text.toStdString()));
}

} // namespace

Barcode::Barcode(std::function<ReaderSettings()> settings, MsgBox& msgBox,
                 std::function<void()> unloadShortWait)
    : m_settings(std::move(settings)), m_msgBox(msgBox), m_unloadShortWait(std::move(unloadShortWait))
{
}

Barcode::~Barcode()
{
    CommClose();
}

bool Barcode::BarCodeInit(MSComm* port)
{
    m_commReady = true;
    m_commCtl = port;
    return CommInit();
}

bool Barcode::CommInit()
{
    try {
        const ReaderSettings settings = m_settings();
        m_commKind = settingNumber(settings.commKind);
        m_commPortNo = settingNumber(settings.commPortNo);
        m_commBaud = settings.commBaud;
        m_commParity = settings.commParity;
        m_commDataBit = settings.commDataBit;
        m_commStopBit = settings.commStopBit;
        CommOpen();
    } catch (const RunTimeError&) {
        m_unloadShortWait();
        m_msgBox.show(
            {u"通信ポート(COM) 未設定"_s,
             u"【基本情報 登録】 バーコード設定画面で\r\n通信ポート(COM)を正しく設定して下さい。\r\n\r\n設定を行うまで、バーコードはご使用になれません。　　　"_s,
             BoxIcon::Stop});
        m_commReady = false;
    }
    return false;
}

void Barcode::CommOpen()
{
    m_commCtl->setCommPort(m_commPortNo);
    m_commCtl->setSettings(m_commBaud + u',' + m_commParity + u',' + m_commDataBit + u',' + m_commStopBit);
    m_commCtl->setPortOpen(true);
    m_commCtl->clearInBuffer(); // scans from before the program was ready are dropped
}

QString Barcode::line()
{
    if (!m_commReady)
        return {};
    m_recvBuffer += CommRead();
    const qsizetype end = findEnd();
    if (end < 0)
        return {};
    const std::string text =
        fromCp932(std::string_view(m_recvBuffer.constData(), static_cast<std::size_t>(end)));
    m_recvBuffer.remove(0, end + frameEnd.size());
    m_searched = 0;
    return QString::fromStdString(text);
}

/// Position of the first CR LF, -1 when there is none yet. No part of a long frame is searched twice.
qsizetype Barcode::findEnd()
{
    if (m_recvBuffer.size() < frameEnd.size())
        return -1;
    const qsizetype end = m_recvBuffer.indexOf(frameEnd, m_searched);
    if (end < 0)
        m_searched = m_recvBuffer.size() - 1; // the last byte may be a CR whose LF has not come yet
    return end;
}

QByteArray Barcode::CommRead()
{
    if (m_commCtl == nullptr || m_commCtl->inBufferCount() <= 0)
        return {};
    return m_commCtl->input();
}

bool Barcode::CommWrite(const QString& text)
{
    try {
        if (m_commCtl != nullptr)
            m_commCtl->output(QByteArray::fromStdString(toCp932(text.toStdString()).value_or(std::string())));
    } catch (const RunTimeError&) {
        return false; // nothing depends on an answer of the reader
    }
    return false;
}

void Barcode::CommClose()
{
    if (m_commReady && m_commCtl != nullptr) {
        try {
            m_commCtl->setPortOpen(false);
        } catch (const RunTimeError&) {
            m_commReady = false; // it was no longer open
        }
    }
    m_commReady = false;
    m_commCtl = nullptr;
}

bool Barcode::hasLine() const
{
    if (!m_commReady || m_commCtl == nullptr)
        return false;
    return m_commCtl->inBufferCount() > 0 || m_recvBuffer.indexOf(frameEnd, m_searched) >= 0;
}

} // namespace suisui
