// The forms that a shop fills in where there is no master-data program: staff, partners, goods and what goods
// are made of, each a CSV file with Japanese headings that any spreadsheet opens.
//
// They accept what spreadsheets and typists do (code page 932 or UTF-8, full-width digits, thousands commas,
// empty lines) and refuse what would hurt the shop later: a code that a spreadsheet has rounded or stripped
// of its zeros, a code that no reader can send, a price that is not a number, a component that is not among
// the goods. What the database already has is accepted as it is, however odd. Messages about a form are in
// Japanese, since they are for whoever filled it in.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tools/TagDb.h"

namespace suisui {

class AppDB;

/// Writes the forms that are missing from \a folder, filled with the rows of the database. A form that is
/// there stays unchanged.
[[nodiscard]] ToolStatus writeForms(const std::string& base, const std::string& folder, std::ostream& out,
                                    std::ostream& err);

/// Takes over the forms in \a folder, all of them or, when anything is wrong in one, none: new codes are
/// added, known ones get what the form says. Nothing is ever deleted except components: those of goods that
/// the form of components names become what it says (a line with the goods alone: none). The stock figures of
/// the parts stay; the difference goes to their carry-forward. Every fault is listed by file and line.
[[nodiscard]] ToolStatus takeForms(const std::string& base, const std::string& folder, std::ostream& out,
                                   std::ostream& err);

/// What \a db lacks for the program to start, in the words of the screen.
[[nodiscard]] std::vector<std::string> missingForStart(AppDB& db);

} // namespace suisui
