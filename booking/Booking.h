// Booking a movement: a code has been scanned, and stock and tables follow. One object is one booking, in
// steps between which the screen shows the result so far:
//
//     lookUp -> post -> (the row is shown) -> store -> waitForNextSecond
//
// Nothing is committed before store has returned true, and nothing is left when a step has failed.
#pragma once

#include <array>
#include <string>

#include <QDateTime>

#include "booking/Books.h"
#include "store/Side.h"

namespace suisui {

/// A movement as it is shown, by the names that both sides share.
struct MovementTexts
{
    std::string code;
    std::string name;
    std::string price;
    std::string quantity;
    std::string discount;
    std::string partnerCode;
    std::string partnerName;
    std::string staffCode;
    std::string staffName;
    std::string unit;
    std::array<std::string, 2> returned; ///< a receipt has one
    std::string date;                    ///< YYYY/MM/DD
    std::string time;                    ///< HH:MM:SS
    std::string remark;
};

class Booking
{
public:
    /// Takes the time that everything of this booking is stamped with.
    Booking(Side side, const Books& books);

    /// Finds the goods. False when the goods table does not have \a code; then there is nothing to book.
    [[nodiscard]] bool lookUp(const std::string& code);
    /// Moves the stock: components first, then the goods. On false everything has been rolled back and the
    /// operator has seen why.
    [[nodiscard]] bool post();
    /// The movement to be shown; the caller adds partner and member of staff.
    [[nodiscard]] MovementTexts row() const;
    /// Quantity times price, as a grid shows it.
    [[nodiscard]] std::string total() const;
    /// Adds \a row to the rows of the side's entry tab and to its table, and commits. On false everything has
    /// been rolled back; the new row stays among the rows of the tab, unsaved.
    [[nodiscard]] bool store(const MovementTexts& row);
    /// Returns in a later second than the one in which the booking began, so that no two have the same stamp.
    /// When the wall clock steps back meanwhile, one second of steady time is enough.
    void waitForNextSecond() const;

private:
    const MovementTable& m_table;
    Books m_books;
    QDateTime m_moment;
    std::string m_stamp;
    std::string m_code; ///< of the goods master, not as typed
    std::string m_name;
    std::string m_unit;
    std::string m_quantity;
    std::string m_price;
};

} // namespace suisui
