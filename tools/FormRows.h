// What the lines of a form do to the tables. What the database already has is never a fault, however odd, so
// a form that the program wrote itself can always be taken over again.
#pragma once

#include <map>
#include <set>

#include "store/AppDB.h"
#include "tools/FormReader.h"

namespace suisui {

using FormCells = std::vector<std::optional<std::string>>;

/// Finds codes whose leading zeros a spreadsheet may have removed: "1" where there is a "01".
class LeadingZeros
{
public:
    LeadingZeros(AppDB& db, const TableDef& table);
    void add(std::string_view code);
    /// The code that \a code may have been; empty when there is none.
    [[nodiscard]] std::string lostBy(std::string_view code) const;

private:
    std::multimap<std::string, std::string, std::less<>> m_codes; ///< by the code without its zeros
};

/// Staff, partners, goods: one row for each code.
class CodeRows : public FormRows
{
public:
    CodeRows(AppDB& db, const Form& form, FormFaults& faults);
    void take(const FormCells& cells) override;
    [[nodiscard]] std::string summary() const;

private:
    using Texts = std::vector<std::pair<int, std::string>>;
    [[nodiscard]] bool select(const std::string& code);
    [[nodiscard]] bool findRow(const std::string& cell, std::string& code);
    [[nodiscard]] bool isFirstOf(const std::string& code);
    void store(const Texts& texts);

    const Form& m_form;
    FormFaults& m_faults;
    RowSet m_rows; ///< the row of the current line, if the table has one
    LeadingZeros m_zeros;
    std::map<std::string, int> m_lines; ///< line of each code
    int m_added = 0;
    int m_changed = 0;
};

/// What goods are made of: the lines of a product name all its parts; a line without a part says that it has
/// none.
class PartRows : public FormRows
{
public:
    PartRows(AppDB& db, const Form& form, FormFaults& faults);
    void take(const FormCells& cells) override;
    void finish() override;
    [[nodiscard]] std::string summary() const;

private:
    struct Part
    {
        std::string product; ///< as its line or row has it
        std::string code;
        std::string quantity;
        bool settled = false; ///< its counterpart in the form, or in the table, has been found
    };
    struct Product
    {
        std::string code;
        std::vector<Part> stored;         ///< what the table says, in its order
        std::vector<Part> wanted;         ///< what the form says
        std::map<std::string, int> lines; ///< line of each part; "" for a line without a part
    };

    [[nodiscard]] Product* productOf(const std::string& cell);
    [[nodiscard]] bool takeStored(Product& product, const std::string& part, const std::string& count);
    void takePart(Product* product, const FormCells& cells);
    void takeNone(Product& product);
    [[nodiscard]] bool isSound(const Product& product, const std::string& part);
    [[nodiscard]] bool isKnown(std::size_t field, const std::string& code);
    void expectNoMix(const Product& product);
    [[nodiscard]] bool write(Product& product);
    [[nodiscard]] bool writeStored(Product& product);

    const Form& m_form;
    FormFaults& m_faults;
    HSeihinRec m_rows;
    MasterRec& m_goods;
    LeadingZeros m_zeros;
    std::map<std::string, Product> m_products; ///< by code, letter case folded
    int m_added = 0;
    int m_changed = 0;
    int m_removed = 0;
};

} // namespace suisui
