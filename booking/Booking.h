// Booking a movement: a code has been scanned, and stock and tables follow. One object carries one booking
// from its first moment to its last, in steps between which the screen shows what has come of it:
//
//     lookUp -> post -> (the row comes into view) -> store -> waitForNextSecond
//
// Nothing is in the tables before store has returned true, and nothing stays when a step has failed.
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
    /// Takes the moment that everything of this booking carries.
    Booking(Side side, const Books& books);

    /// Finds the goods. False when the goods master does not know \a code; then there is nothing to book.
    [[nodiscard]] bool lookUp(const std::string& code);
    /// Moves the stock: components first, then the goods. On false everything has been rolled back, and
    /// whoever had to know has been told.
    [[nodiscard]] bool post();
    /// The movement as it comes into view; partner and person in charge are the caller's to add.
    [[nodiscard]] MovementTexts row() const;
    /// Quantity times price, as a grid shows it.
    [[nodiscard]] std::string total() const;
    /// Adds \a row to the rows of the side's entry tab and to its table, and commits. On false everything has
    /// been rolled back; the new row stays among the rows of the tab, unsaved.
    [[nodiscard]] bool store(const MovementTexts& row);
    /// Returns in a later second than the one in which the booking began, so that no two carry the same
    /// stamp. When the wall clock steps back meanwhile, one second of steady time is enough.
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
