#include "booking/ZaikoPost.h"

#include <optional>

#include "platform/core/FillIn.h"
#include "platform/core/MsgBox.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "store/Where.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// What the goods master says about the posted item; empty texts when the item has left the master.
struct Goods
{
    bool known = false;
    std::string name;
    std::string lowest; ///< minimum stock
};

std::optional<Goods> lookUp(MasterRec& master, std::string_view code)
{
    const int count = master.Select(whereCode(code));
    if (count < 0)
        return std::nullopt;
    Goods goods;
    if (count > 0) {
        goods.known = true;
        goods.name = master.get(1, MasterCol::Name);
        goods.lowest = master.get(1, MasterCol::Stock);
    }
    master.Clear();
    return goods;
}

void makeFirstLine(std::string& name, std::string_view code, const Goods& goods)
{
    if (name.empty() && !goods.known) {
        name = "コード「 " + std::string(code) + " 」 の　　　\r\n";
        return;
    }
    name = "「 " + (name.empty() ? goods.name : name) + " 」　（ コード ： " + std::string(code)
           + " ） の　　　\r\n";
}

QString plain(double number)
{
    return QString::fromStdString(CStr(number));
}

void warnNegative(MsgBox& msgBox, const std::string& firstLine, double stock, bool rowExists)
{
    const QString closing = rowExists ? u"\r\n\r\n在庫を確認して下さい。"_s : QString();
    msgBox.show({u" 在庫不足"_s,
                 QString::fromStdString(firstLine)
                     + u"在庫数が マイナスになります。　　　\r\n\r\n　　 在庫数 = "_s + plain(stock)
                     + closing,
                 BoxIcon::Stop});
}

void warnLow(MsgBox& msgBox, const std::string& firstLine, double stock, double lowest)
{
    msgBox.show({u" 最低在庫数 未満"_s,
                 QString::fromStdString(firstLine)
                     + fillIn(u"在庫数が 最低在庫数 未満になります。　　　\r\n\r\n　　在庫数 = {new stock}  "
                              u"<  最低在庫数 = {Stock}　",
                              {{u"new stock", plain(stock)}, {u"Stock", plain(lowest)}}),
                 BoxIcon::Exclamation});
}

bool overflows(MsgBox& msgBox, double stock)
{
    if (!(stock > stockLimit))
        return false;
    msgBox.show({u"桁あふれエラー"_s,
                 u"在庫数が 「桁あふれ」 しました。　　　\r\n\r\n　再度、入力して下さい。"_s, BoxIcon::Stop});
    return true;
}

PostResult writeStock(AppDB& db)
{
    if (db.ZaikoTbl().WriteRows() != DbStatus::Good || db.LastStatus() != DbStatus::Good) {
        db.Rollback();
        return PostResult::DatabaseFailure;
    }
    db.ZaikoTbl().Clear();
    return PostResult::Posted;
}

/// First posting of a code: a new stock row, unless the master does not know the code either.
PostResult postFirst(AppDB& db, MsgBox& msgBox, std::string_view code, std::string_view delta,
                     std::string& name, std::string_view stamp)
{
    const std::optional<Goods> goods = lookUp(db.MasterPost(), code);
    if (!goods)
        return PostResult::DatabaseFailure;
    if (!goods->known)
        return PostResult::Posted;
    const double quantity = numberOf(delta);
    if (quantity < 0) {
        makeFirstLine(name, code, *goods);
        warnNegative(msgBox, name, quantity, false);
    }
    if (overflows(msgBox, quantity))
        return PostResult::DigitOverflow;

    ZaikoRec& stock = db.ZaikoTbl();
    stock.NewRows(1);
    const int row = stock.Count();
    stock.set(row, ZaikoCol::Code, code);
    stock.set(row, ZaikoCol::ZaikoSuu, delta);
    stock.set(row, ZaikoCol::KuriSuu, "0");
    stock.set(row, ZaikoCol::InpDate, stamp);
    stock.set(row, ZaikoCol::UpdDate, stamp);
    return writeStock(db);
}

/// Any later posting. Only a movement downwards warns, however low the stock is.
PostResult postAgain(AppDB& db, MsgBox& msgBox, std::string_view code, std::string_view delta,
                     std::string& name, std::string_view stamp)
{
    ZaikoRec& stock = db.ZaikoTbl();
    const double quantity = numberOf(delta);
    const double figure = plus(quantity, numberOf(stock.get(1, ZaikoCol::ZaikoSuu)));
    const std::optional<Goods> goods = lookUp(db.MasterPost(), code);
    if (!goods)
        return PostResult::DatabaseFailure;
    makeFirstLine(name, code, *goods);
    if (quantity < 0) {
        const double lowest = numberOf(goods->lowest);
        if (lowest > figure) {
            if (figure < 0)
                warnNegative(msgBox, name, figure, true);
            else
                warnLow(msgBox, name, figure, lowest);
        }
    }
    if (overflows(msgBox, figure))
        return PostResult::DigitOverflow;
    stock.set(1, ZaikoCol::ZaikoSuu, CStr(figure));
    stock.set(1, ZaikoCol::UpdDate, stamp);
    return writeStock(db);
}

} // namespace

PostResult ZaikoPost(AppDB& db, MsgBox& msgBox, std::string_view code, std::string_view delta,
                     std::string& name, std::string_view stamp)
{
    if (delta == "0")
        return PostResult::Posted;
    const int rows = db.ZaikoTbl().Select(whereCode(code));
    if (rows < 0)
        return PostResult::DatabaseFailure;
    return rows == 0 ? postFirst(db, msgBox, code, delta, name, stamp)
                     : postAgain(db, msgBox, code, delta, name, stamp);
}

} // namespace suisui
