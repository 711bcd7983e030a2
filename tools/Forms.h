// The forms that a shop fills in where no master-data program is at hand: staff, partners, goods and what
// goods are made of, each a CSV file with Japanese headings that any spreadsheet opens.
//
// Forgiving about what spreadsheets and typists do (code page 932 or UTF-8, full-width digits, thousands
// commas, empty lines), strict about what would hurt the shop later: a code that a spreadsheet has rounded or
// shortened by its zeros, one that no reader can bring, a price that is no number, a component that is no
// goods. What the database says already is taken as it is, however odd. What is said about a form is said in
// Japanese, since it goes to whoever filled it in.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tools/TagDb.h"

namespace suisui {

class AppDB;

/// Writes the forms that \a folder lacks, with the rows that the database has already. A form that is there
/// stays as it is.
[[nodiscard]] ToolStatus writeForms(const std::string& base, const std::string& folder, std::ostream& out,
                                    std::ostream& err);

/// Takes over the forms that are in \a folder, all of them together or, when anything in them cannot be,
/// none: new codes are added, known ones get what the form says. Nothing is ever deleted but the components
/// of goods that the form of components names, which become what it says (a line with the goods alone says
/// that there are none); what that makes of the parts' stock is carried forward. Every fault is listed by
/// file and line.
[[nodiscard]] ToolStatus takeForms(const std::string& base, const std::string& folder, std::ostream& out,
                                   std::ostream& err);

/// What the program cannot start without and \a db has none of, in the words of the screen.
[[nodiscard]] std::vector<std::string> missingForStart(AppDB& db);

} // namespace suisui
