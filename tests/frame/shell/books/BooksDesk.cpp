#include "tests/frame/shell/books/BooksDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

BooksDesk::BooksDesk()
{
    fillShop();
    addGoods("A", {1, 1, {}});
    addGoods("B", {12, 3, {}});
    addGoods("P", {2, 1, {{"A", 1}, {"B", 3}}});
    addGoods("Q", {1, 2, {{"P", 2}, {"GONE", 4}}}); // GONE is in no table
    open();
    EXPECT_EQ(watcher.emplace(shop.databaseFolder()).Open("trnvik.mdb"), DbStatus::Good);
}

void BooksDesk::addGoods(const std::string& code, const ModelGoods& is)
{
    shop.add(masterTable, {code, "品 " + code, "", std::to_string(is.nyuSuu), "100",
                           std::to_string(is.syuSuu), "150", "個", "0"});
    for (const auto& [part, perUnit] : is.parts)
        shop.add(hseihinTable, {code, "", part, std::to_string(perUnit)});
    model.goods[code] = is;
}

MovementPage& BooksDesk::entry()
{
    return static_cast<MovementPage&>(window->page(static_cast<Tab>(model.at)));
}

void BooksDesk::answer(const std::deque<BoxAnswer>& given)
{
    m_questions = given;
    box.answers.clear();
    box.onShow = [this](const Box& shown) {
        if (shown.buttons == BoxButtons::Ok) {
            box.answers.push_front(BoxAnswer::Ok);
        } else {
            ASSERT_FALSE(m_questions.empty()) << shown.text.toStdString();
            box.answers.push_front(m_questions.front());
            m_questions.pop_front();
        }
    };
}

std::string BooksDesk::step()
{
    switch (below(model.now().table.size() > 40 ? 14 : 11)) {
    case 0:
    case 1:
    case 2:
        return scan(), "scan";
    case 3:
    case 4:
    case 5:
    case 6:
        return correct(), "correction";
    case 7:
    case 8:
        return update(), "update";
    case 9:
        return search(), "search";
    case 10:
        return changeTab(), "change of tab";
    default:
        return erase(), "delete";
    }
}

void BooksDesk::scan()
{
    const auto chosen =
        std::next(model.goods.begin(), static_cast<std::ptrdiff_t>(below(model.goods.size())));
    const std::string code = chosen->first;
    const std::string stamp = clock.now().toString(u"yyyyMMddHHmmss"_s).toStdString();
    window->GoodsCodeSet(QString::fromStdString(code));
    model.book(code, stamp);
}

void BooksDesk::type(int column, int row, const std::string& text)
{
    sheet().SetText(column, row, std::string_view(text));
    Q_EMIT sheet().Change(column, row);
}

void BooksDesk::correctFigure(int column, int row, long long& place, long long value)
{
    place = value;
    type(column, row, below(10) == 0 && value == 0 ? "" : std::to_string(value));
    // The cell and the buffer are compared as texts, so any figure of fewer than seven digits counts.
    model.corrected(row);
}

void BooksDesk::correctWords(int column, int row, std::string& place, const std::string& value,
                             const std::string& typed)
{
    const bool changes = place != value;
    place = value;
    type(column, row, typed);
    if (changes)
        model.corrected(row);
}

void BooksDesk::correct()
{
    if (model.now().grid.empty())
        return;
    const int row = static_cast<int>(below(model.now().grid.size())) + 1;
    Words& shown = model.now().inRow(row).shown;
    const MovementCells& cells = movementSide(static_cast<Side>(model.at)).cells;
    const auto figure = [&](int column, long long& place, std::size_t limit, long long lowest = 0) {
        correctFigure(column, row, place, static_cast<long long>(below(limit)) + lowest);
    };
    const auto words = [&](int column, std::string& place, const std::string& value,
                           const std::string& typed) { correctWords(column, row, place, value, typed); };
    switch (below(9)) {
    case 0:
        return figure(cells.price, shown.price, 5000);
    case 1:
    case 2:
        return figure(cells.quantity, shown.quantity, 60, -5);
    case 3:
        return figure(cells.discount, shown.discount, 300);
    case 4:
        return figure(cells.returned[0], shown.returned[0], 9);
    case 5:
        if (model.at == 1)
            return figure(cells.returned[1], shown.returned[1], 9);
        return words(cells.name, shown.name, "改名", "改名");
    case 6: {
        const std::string remark = below(2) == 0 ? "it's 備考" : "";
        return words(cells.remark, shown.remark, remark, remark);
    }
    case 7: {
        const std::string day = anyDay();
        return words(cells.date, shown.date, "202604" + day, "2026/04/" + day);
    }
    default: {
        const std::string minute = std::to_string(10 + below(50));
        return words(cells.time, shown.time, "12" + minute + "00", "12:" + minute + ":00");
    }
    }
}

void BooksDesk::update()
{
    const bool yes = below(4) != 0;
    answer({yes ? BoxAnswer::Yes : BoxAnswer::No});
    entry().cmdKousin_Click();
    if (model.now().dirty && yes)
        model.update(model.at);
}

void BooksDesk::erase()
{
    if (model.now().grid.empty())
        return;
    const int row = static_cast<int>(below(model.now().grid.size())) + 1;
    sheet().SetActiveCell(movementSide(static_cast<Side>(model.at)).cells.quantity, row);
    const bool yes = below(5) != 0;
    answer({yes ? BoxAnswer::Yes : BoxAnswer::No});
    entry().cmdDelete_Click();
    if (yes)
        model.erase(row);
}

bool BooksDesk::guardLetsGo()
{
    constexpr BoxAnswer all[] = {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel};
    const BoxAnswer given = all[below(3)];
    answer({given});
    if (!model.now().dirty)
        return true;
    if (given == BoxAnswer::Yes)
        model.update(model.at);
    else if (given == BoxAnswer::No)
        model.giveUp();
    return given != BoxAnswer::Cancel;
}

void BooksDesk::search()
{
    ModelSide& side = model.now();
    const std::string from = below(2) == 0 ? "20260401" : "202604" + anyDay();
    const std::string to = std::max<std::string>(from, below(3) == 0 ? "20260401" : "20260430");
    setPeriod(from, to);
    const bool goesOn = guardLetsGo();
    entry().cmdKensaku_Click();
    if (goesOn) {
        side.from = from;
        side.to = to;
        model.search(model.at);
    } else {
        setPeriod(side.from, side.to);
    }
}

void BooksDesk::setPeriod(const std::string& from, const std::string& to) const
{
    const QString letter = model.at == 0 ? u"N"_s : u"S"_s;
    const auto set = [&](const QString& end, const std::string& day) {
        const QString text = QString::fromStdString(day);
        control<QLineEdit>(u"txt%1yyyy_%2"_s.arg(letter, end)).setText(text.left(4));
        control<QLineEdit>(u"txt%1mm_%2"_s.arg(letter, end)).setText(text.mid(4, 2));
        control<QLineEdit>(u"txt%1dd_%2"_s.arg(letter, end)).setText(text.mid(6, 2));
    };
    set(u"F"_s, from);
    set(u"T"_s, to);
}

void BooksDesk::changeTab()
{
    const bool goesOn = guardLetsGo();
    window->showTab(static_cast<Tab>(1 - model.at));
    if (goesOn)
        model.changeTab();
}

} // namespace suisui::test
