// The forms that a shop fills in: which form fills which table, its headings, and what a cell may hold.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "store/Schema.h"

namespace suisui {

enum class FormKind {
    Code,
    GoodsCode, ///< a code that a reader must be able to send
    Text,
    Number,
    Whole, ///< a number without a fraction
    Count, ///< a number above zero
    Flag,
};

struct FormField
{
    std::string_view heading;
    int column;
    FormKind kind = FormKind::Text;
    std::string_view whenEmpty = {};
};

/// A form and the table it fills. The first field is the code of the row.
struct Form
{
    std::string_view file;
    std::string_view what;
    const TableDef& table;
    std::span<const FormField> fields;
    bool partsOfTheCode = false; ///< a code has several rows, one for each of its parts
};

/// What to store for a cell, or the reason why it cannot be stored: in Japanese, to follow the heading.
struct FormCell
{
    std::optional<std::string> stored;
    std::string fault = {};
};

[[nodiscard]] std::span<const Form> allForms();
[[nodiscard]] FormCell formCell(const Form& form, const FormField& field, const std::string& text);

/// \a text without blanks around it and with half-width letters and digits, as readers and keyboards send
/// them.
[[nodiscard]] std::string plainText(const std::string& text);

} // namespace suisui
