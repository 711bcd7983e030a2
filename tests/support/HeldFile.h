// A second program in the middle of a unit of work: during the life of this object nobody else can write.
#pragma once

#include <stdexcept>
#include <string>

#include "store/AppDB.h"
#include "tests/support/TempShop.h"

namespace suisui::test {

class HeldFile
{
public:
    /// Holds the database \a file; a bare name is looked for in the folder of \a shop's database.
    explicit HeldFile(const TempShop& shop, const std::string& file = "trnvik.mdb")
        : m_writer(shop.databaseFolder())
    {
        if (m_writer.Open(file) != DbStatus::Good)
            throw std::runtime_error("cannot open " + file);
        m_writer.Execute("UPDATE Master SET Unit='x'");
        if (m_writer.LastStatus() != DbStatus::Good)
            throw std::runtime_error("cannot hold " + file);
    }
    ~HeldFile() { m_writer.Rollback(); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    AppDB m_writer;
};

} // namespace suisui::test
