#include "tests/frame/shell/books/BooksModel.h"

#include <algorithm>

namespace suisui::test {

namespace {

/// Pieces that a movement moves.
long long net(std::size_t side, const Words& words)
{
    return side == 0 ? words.quantity - words.returned[0] : words.quantity;
}

} // namespace

BookedMovement& ModelSide::of(const std::string& stamp)
{
    return *std::find_if(table.begin(), table.end(),
                         [&stamp](const BookedMovement& each) { return each.stamp == stamp; });
}

void BooksModel::post(const std::string& code, long long quantity)
{
    if (quantity != 0 && (stock.contains(code) || goods.contains(code)))
        stock[code] += quantity;
}

/// Moves the stock by what \a quantity more of the movement's net figure means.
void BooksModel::postNet(std::size_t side, const std::string& code, long long quantity)
{
    if (side == 1)
        return post(code, -quantity);
    post(code, quantity);
    for (const auto& [part, perUnit] : goods[code].parts)
        post(part, -perUnit * quantity);
}

void BooksModel::book(const std::string& code, const std::string& stamp)
{
    BookedMovement made{stamp, code, {}, {}};
    made.stored = {.name = "品 " + code,
                   .unit = "個",
                   .remark = "",
                   .date = stamp.substr(0, 8),
                   .time = stamp.substr(8),
                   .price = at == 0 ? 100 : 150,
                   .quantity = at == 0 ? goods[code].nyuSuu : goods[code].syuSuu};
    made.shown = made.stored;
    postNet(at, code, made.stored.quantity);
    now().table.push_back(made);
    now().grid.insert(now().grid.begin(), stamp);
}

void BooksModel::corrected(int row)
{
    now().dirty = true;
    now().inRow(row).touched = true;
}

void BooksModel::update(std::size_t side)
{
    for (const std::string& stamp : sides[side].grid) {
        BookedMovement& each = sides[side].of(stamp);
        if (!each.touched)
            continue;
        postNet(side, each.code, net(side, each.shown) - net(side, each.stored));
        each.stored = each.shown;
        each.touched = false;
    }
    sides[side].dirty = false;
}

void BooksModel::giveUp()
{
    now().dirty = now().fresh = false;
}

void BooksModel::erase(int row)
{
    const BookedMovement removed = now().inRow(row);
    postNet(at, removed.code, -net(at, removed.stored));
    now().grid.erase(now().grid.begin() + (row - 1));
    std::erase_if(now().table,
                  [&removed](const BookedMovement& each) { return each.stamp == removed.stamp; });
}

void BooksModel::search(std::size_t side)
{
    ModelSide& model = sides[side];
    std::vector<const BookedMovement*> found;
    for (BookedMovement& each : model.table) {
        each.shown = each.stored;
        each.touched = false;
        if (each.stored.date >= model.from && each.stored.date <= model.to)
            found.push_back(&each);
    }
    std::stable_sort(found.begin(), found.end(), [](const BookedMovement* a, const BookedMovement* b) {
        return a->stored.date + a->stored.time < b->stored.date + b->stored.time;
    });
    model.fresh = true;
    model.grid.clear();
    for (auto each = found.rbegin(); each != found.rend(); ++each)
        model.grid.push_back((*each)->stamp);
}

void BooksModel::changeTab()
{
    at = 1 - at;
    if (at == 1 && !shipmentsShown) {
        shipmentsShown = true;
        now().fresh = false;
    }
    if (!now().fresh)
        search(at);
}

std::map<std::string, long long> BooksModel::sums() const
{
    std::map<std::string, long long> all;
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}})
        for (const BookedMovement& each : sides[side].table) {
            const long long quantity = net(side, each.stored);
            all[each.code] += side == 0 ? quantity : -quantity;
            if (side == 0)
                for (const auto& [part, perUnit] : goods.at(each.code).parts)
                    all[part] -= quantity * perUnit;
        }
    return all;
}

} // namespace suisui::test
