// What stands in the forms of a shop: which form fills which table, its headings, and what a cell may hold.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "store/Schema.h"

namespace suisui {

enum class FormKind {
    Code,
    GoodsCode, ///< a code that a reader is to bring as it stands
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
    bool partsOfTheCode = false; ///< several rows of one code are its parts
};

/// What is to be stored of a cell, or in Japanese, to be read behind the heading, why nothing can be.
struct FormCell
{
    std::optional<std::string> stored;
    std::string fault = {};
};

[[nodiscard]] std::span<const Form> allForms();
[[nodiscard]] FormCell formCell(const Form& form, const FormField& field, const std::string& text);

/// Without blanks around it and with full-width letters and digits made half-width, as readers and keys send
/// them.
[[nodiscard]] std::string plainText(const std::string& text);

} // namespace suisui
