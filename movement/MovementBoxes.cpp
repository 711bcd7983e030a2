#include "movement/MovementBoxes.h"

#include "platform/core/FillIn.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

Box question(const QString& title, QStringView text, const QString& term)
{
    return {title, fillIn(text, {{u"term", term}}), BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No};
}

Box done(const QString& title, QStringView text, const QString& term)
{
    return {title, fillIn(text, {{u"term", term}}), BoxIcon::Information};
}

} // namespace

Box unregisteredBox(const QString& goods, const QString& code)
{
    return {
        fillIn(u"{goods} 未登録エラー", {{u"goods", goods}}),
        fillIn(u"入力された コード 「 {text} 」 は\r\n「{goods}」 に登録されていません。\r\n\r\n【基本情報 "
               u"登録】 で\r\n「{goods}」 に登録した後に、再度、入力して下さい。　　",
               {{u"goods", goods}, {u"text", code}}),
        BoxIcon::Stop};
}

Box notStoredBox(const MovementSide& side)
{
    return {u"データベースエラー"_s, QString::fromUtf16(side.insertErrorText), BoxIcon::Stop};
}

Box quantityQuestion(const QString& typed, const QString& goods, const QString& quantity)
{
    return {
        u"数量の確認"_s,
        fillIn(
            u"入力された 「 {typed} 」 は\r\n登録されている {goods} の コード です。\r\n\r\n数量を 「 "
            u"{quantity} 」 に変更しますか？　　　\r\n\r\n　　はい　　： 数量を変更します\r\n　　いいえ　： "
            u"数量は変更せず、コードを入力欄に移します　　　\r\n　　　　　　　（Enter を押すと 登録します）",
            {{u"typed", typed}, {u"goods", goods}, {u"quantity", quantity}}),
        BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No};
}

Box updateQuestion(const QString& term)
{
    return question(u"更新の確認"_s, u"「 {term} 」を更新します。　　　　\r\n\r\n　よろしいですか？", term);
}

Box updatedBox(const QString& term)
{
    return done(u"更新の完了"_s, u"「 {term} 」を更新しました。　　　　", term);
}

Box deleteQuestion(const MovementSide& side, const QString& term)
{
    return question(u"削除の確認"_s, side.deleteQuestion, term);
}

Box deletedBox(const QString& term)
{
    return done(u"削除の完了"_s, u"「 {term} 」を削除しました。　　　　", term);
}

Box concurrentChangeBox(const QString& term, bool deleting)
{
    QString text = fillIn(
        u"「 {term} 」 の更新ができませんでした。\r\n\r\n他の処理で "
        u"変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。",
        {{u"term", term}});
    if (deleting)
        text.replace(u" 」 の更新ができませんでした。"_s, u" 」 の削除ができませんでした。"_s);
    return {u"データベースエラー"_s, text, BoxIcon::Stop};
}

} // namespace suisui
