#include "history/frmRirekiFileExt.h"

#include "platform/widgets/KeyCodes.h"
#include "platform/core/MsgBox.h"
#include "ui_frmRirekiFileExt.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

// The choice is for the life of the database, and no file system takes names without an end.
constexpr int longestExtension = 32;

} // namespace

frmRirekiFileExt::frmRirekiFileExt(MsgBox& msgBox, DialogScan::ReadLine readLine, QWidget* parent)
    : HistoryDialog(msgBox, std::move(readLine), parent), m_ui(std::make_unique<Ui::frmRirekiFileExt>())
{
    m_ui->setupUi(this);
    m_ui->lblCaption->setText(u"「%1」 ファイルの 「拡張子」 を 指定して下さい。"_s.arg(u"履歴"_s));
    m_ui->txtFileExt->setMaxLength(longestExtension);
    m_ui->txtFileExt->setKeyPressHandler([this](int& key) {
        if (key == KeyCode::enter)
            m_ui->CmdOK->setFocus();
    });
    wire(*m_ui->CmdOK, *m_ui->CmdEnd, 1);
    m_ui->txtFileExt->setFocus();
}

frmRirekiFileExt::~frmRirekiFileExt() = default;

void frmRirekiFileExt::CmdOK_Click()
{
    stopTimer();
    const QString extension = m_ui->txtFileExt->text().trimmed();
    if (extension.isEmpty())
        return refuse(
            u"拡張子 未指定エラー"_s,
            u"「拡張子」 が指定されていません。\r\n\r\n拡張子を指定した後に、再度、決定して下さい。　　　"_s);
    if (holdsForbidden(extension))
        return refuse(
            u"拡張子 使用文字エラー"_s,
            u"「拡張子」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\n拡張子を修正した後に、再度、決定して下さい。　　　"_s);
    m_historyExt = extension;
    unload();
}

void frmRirekiFileExt::refuse(const QString& title, const QString& text)
{
    m_msgBox.show({title, text, BoxIcon::Stop});
    m_ui->txtFileExt->setFocus();
    restartTimer();
}

void frmRirekiFileExt::CmdEnd_Click()
{
    unload();
}

} // namespace suisui
