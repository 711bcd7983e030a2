// Reading a form that the shop has filled in: its encoding, its headings, its lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/FormCells.h"

namespace suisui {

inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; ///< by which spreadsheets know UTF-8

/// Collects what is wrong with a form, each fault with the name of the form and the current line.
class FormFaults
{
public:
    FormFaults(const Form& form, std::vector<std::string>& all)
        : m_form(form), m_all(all), m_before(all.size())
    {
    }

    /// The line of the faults that follow; 0: the form as a whole.
    void atLine(int line) { m_line = line; }
    [[nodiscard]] int line() const { return m_line; }
    void add(const std::string& what);
    [[nodiscard]] bool any() const { return m_all.size() > m_before; }

private:
    const Form& m_form;
    std::vector<std::string>& m_all;
    std::size_t m_before;
    int m_line = 0;
};

/// Takes the lines of a form, one after the other.
class FormRows
{
public:
    virtual ~FormRows() = default;
    FormRows() = default;
    FormRows(const FormRows&) = delete;
    FormRows& operator=(const FormRows&) = delete;

    /// \a cells: one for each field of the form, as in the file; none where the file has no such column.
    virtual void take(const std::vector<std::optional<std::string>>& cells) = 0;
    /// All lines have been taken.
    virtual void finish() {}
};

/// Reads \a bytes, in UTF-8 or code page 932, and hands its lines to \a rows.
void readForm(const std::string& bytes, const Form& form, FormFaults& faults, FormRows& rows);

} // namespace suisui
