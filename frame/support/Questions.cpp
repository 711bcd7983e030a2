#include "frame/support/Questions.h"

#include "frame/support/Frame.h"
#include "platform/core/FillIn.h"
#include "platform/core/MsgBox.h"
#include "store/AppIni.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

bool agreesToManyRows(WaitWindows& frame, MsgBox& msgBox, int count)
{
    frame.unloadWait();
    return msgBox.show({u"表示の確認"_s,
                        fillIn(u"検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n"
                               u"\r\n　　　（検索結果： {count} 件）\r\n\r\n表示を行っても、よろしいですか？",
                               {{u"count", QString::number(count)}}),
                        BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::Yes})
           == BoxAnswer::Yes;
}

void sayUnregistered(MsgBox& msgBox, const AppIni& ini, std::string_view code)
{
    const QString goods = ini.MasterTerm(0);
    msgBox.show({goods + u" 未登録エラー"_s,
                 fillIn(u"入力された コード 「 {text} 」 は\r\n「{master term 0}」 "
                        u"に登録されていません。\r\n\r\n登録されているコードを入力して下さい。　　　",
                        {{u"master term 0", goods}, {u"text", QString::fromUtf8(code)}}),
                 BoxIcon::Stop});
}

} // namespace suisui
