// The books of a shop as a test expects them after every movement.
#pragma once

#include <gtest/gtest.h>

#include "booking/BooksCheck.h"
#include "store/AppDB.h"

namespace suisui::test {

/// Every stock figure in the file behind \a db is what its movements make of it.
inline void expectBooksHold(AppDB& db)
{
    InpRec receipts(db, inpTable);
    OutRec shipments(db, outTable);
    HSeihinRec components(db, hseihinTable);
    ZaikoRec stock(db, zaikoTable);
    RowSet* const all[] = {&receipts, &shipments, &components, &stock};
    for (RowSet* rows : all)
        rows->Select({});
    const BookRows rows{
        .receipts = receipts, .shipments = shipments, .components = components, .stock = stock};
    for (const BooksDifference& each : checkBooks(db, rows))
        ADD_FAILURE() << each.code << ": " << each.stock << ", expected " << each.expected;
}

} // namespace suisui::test
