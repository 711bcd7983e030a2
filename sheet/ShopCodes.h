// What a reader can scan in a shop, from its master data: staff, partners and goods, each with the text of
// its bars.
#pragma once

#include <optional>
#include <vector>

#include <QString>

namespace suisui {

class AppDB;

struct ScanCode
{
    QString scan; ///< as the reader sends it: "@01@", "#101#", a goods code
    QString name;
};

struct CodeGroup
{
    QString heading;
    std::vector<ScanCode> codes; ///< in the order of their codes
};

/// The groups of the shop in \a db in the order of a day's work; a partner for both receipts and shipments is
/// in both groups. None when a table cannot be read.
[[nodiscard]] std::optional<std::vector<CodeGroup>> shopCodes(AppDB& db);

} // namespace suisui
