// Why the database refused, in the words of the tool.
#pragma once

#include <string_view>

#include "store/DbStatus.h"
#include "tools/Texts.h"

namespace suisui {

class AppDB;

/// Why something was not done, and the kind of trouble, which decides what can be done about it.
struct Fault
{
    Message why;
    DbStatus trouble = DbStatus::Failed;
};

/// The system's failure \a code (an errno).
[[nodiscard]] DbStatus troubleOf(int code);
/// What the last failure of \a db means.
[[nodiscard]] DbStatus troubleOf(const AppDB& db);
/// The last failure of \a db; for a damaged file also what to do about it.
[[nodiscard]] Message causeOf(const AppDB& db);
/// A kind of text that a column may be asked to hold ("date", "whole number").
[[nodiscard]] Message kindNamed(std::string_view english);

} // namespace suisui
