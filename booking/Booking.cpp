#include "booking/Booking.h"

#include <algorithm>

#include "booking/Components.h"
#include "booking/Deltas.h"
#include "booking/ZaikoPost.h"
#include "platform/core/Clock.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "store/Where.h"

using namespace std::chrono_literals;

namespace suisui {

namespace {

constexpr auto longestNap = 50ms; // a clock that steps back is noticed this soon

} // namespace

Booking::Booking(Side side, const Books& books)
    : m_table(movementTable(side)), m_books(books), m_moment(books.clock.now()), m_stamp(stampOf(m_moment))
{
}

bool Booking::lookUp(const std::string& code)
{
    RowSet& goods = m_table.master(m_books.db);
    if (!canBeCode(code) || goods.Select(whereCode(code)) <= 0)
        return false;
    const auto text = [&goods](MasterCol column) {
        return std::string(goods.get(1, static_cast<int>(column)));
    };
    const auto number = [&text](MasterCol column) {
        std::string value = text(column);
        return value.empty() ? "0" : value;
    };
    m_code = text(MasterCol::Code);
    m_name = text(MasterCol::Name);
    m_unit = text(MasterCol::Unit);
    m_quantity = number(m_table.defaultQuantity);
    m_price = number(m_table.defaultPrice);
    return true;
}

bool Booking::post()
{
    AppDB& db = m_books.db;
    const auto ofComponent = [this](std::string_view perUnit) {
        return componentScanDelta(perUnit, m_quantity);
    };
    bool posted =
        !m_table.movesComponents || postComponents(db, m_books.msgBox, m_code, m_stamp, ofComponent);
    if (posted) {
        // The quantity is posted as the text in the goods table: "0012" stays "0012" in a first stock row.
        const std::string delta = m_table.stockSign > 0 ? m_quantity : CStr(-numberOf(m_quantity));
        std::string name = m_name;
        posted = ZaikoPost(db, m_books.msgBox, m_code, delta, name, m_stamp) == PostResult::Posted;
    }
    if (!posted)
        db.Rollback();
    return posted;
}

MovementTexts Booking::row() const
{
    return {.code = m_code,
            .name = m_name,
            .price = m_price,
            .quantity = m_quantity,
            .discount = "0",
            .partnerCode = {},
            .partnerName = {},
            .staffCode = {},
            .staffName = {},
            .unit = m_unit,
            .returned = {"0", "0"},
            .date = screenDate(m_stamp.substr(0, 8)),
            .time = screenTime(m_stamp.substr(8)),
            .remark = {}};
}

std::string Booking::total() const
{
    return Format(times(numberOf(m_quantity), numberOf(m_price)), maskA);
}

bool Booking::store(const MovementTexts& texts)
{
    m_table.master(m_books.db).Clear();
    RowSet& rows = m_table.rows(m_books.db);
    const MovementColumns& columns = m_table.columns;
    rows.NewRows(1);
    const int row = rows.Count();
    rows.set(row, columns.code, texts.code);
    rows.set(row, columns.name, texts.name);
    rows.set(row, columns.price, movementNumber(texts.price));
    rows.set(row, columns.quantity, movementNumber(texts.quantity));
    rows.set(row, columns.discount, movementNumber(texts.discount));
    rows.set(row, columns.partnerCode, texts.partnerCode);
    rows.set(row, columns.partnerName, texts.partnerName);
    rows.set(row, columns.staffCode, texts.staffCode);
    rows.set(row, columns.staffName, texts.staffName);
    rows.set(row, columns.unit, texts.unit);
    for (std::size_t i = 0; i < columns.returned.size(); ++i)
        if (columns.returned[i] != noColumn)
            rows.set(row, columns.returned[i], movementNumber(texts.returned[i]));
    rows.set(row, columns.date, storedDate(texts.date));
    rows.set(row, columns.time, storedTime(texts.time));
    rows.set(row, columns.remark, texts.remark);
    rows.set(row, columns.inpDate, m_stamp);
    rows.set(row, columns.updDate, m_stamp);
    return commitWhen(m_books.db, rows.InsertRow(row));
}

void Booking::waitForNextSecond() const
{
    Clock& clock = m_books.clock;
    const auto start = clock.steady();
    for (QDateTime now = clock.now(); stampOf(now) <= m_stamp; now = clock.now()) {
        if (now < m_moment && clock.steady() - start >= 1s)
            return;
        const std::chrono::milliseconds toNextSecond(1000 - now.time().msec());
        clock.letPass(std::min<std::chrono::milliseconds>(toNextSecond, longestNap));
    }
}

} // namespace suisui
