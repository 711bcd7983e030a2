// Files from elsewhere that are damaged in any way: tables as CSV, and whole databases of the Jet format.
// What cannot be imported is refused with a message, and nothing of it is stored; after an import the books
// are sound. scripts/fuzz.sh runs it for as long as wanted.
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "store/Schema.h"
#include "tests/support/Seed.h"
#include "tests/support/TempShop.h"
#include "tests/tools/JetWriter.h"
#include "tools/JetImport.h"
#include "tools/TagDb.h"

namespace suisui::test {

namespace {

namespace fs = std::filesystem;

class ImportFuzz : public ::testing::Test
{
protected:
    std::size_t below(std::size_t bound) { return random() % bound; }

    /// Damage at random places; unless \a pagesStay also cuts, doublings and holes, which move all that
    /// follows.
    std::string damaged(std::string bytes, bool pagesStay)
    {
        for (std::size_t hits = 1 + below(6); hits > 0 && !bytes.empty(); --hits) {
            const std::size_t at = placeOfSomething(bytes);
            const std::size_t length = std::min(below(40) + 1, bytes.size() - at);
            switch (pagesStay ? 3 + below(5) : below(8)) {
            case 0:
                bytes.resize(at);
                break;
            case 1:
                bytes.erase(at, length);
                break;
            case 2:
                bytes.insert(below(bytes.size()), bytes.substr(at, length));
                break;
            case 3:
                bytes.replace(at, length, length, below(2) == 0 ? '\xFF' : '\0');
                break;
            default:
                bytes[at] = below(3) == 0 ? ",\"\r\n"[below(4)] : static_cast<char>(random());
                break;
            }
        }
        return bytes;
    }
    /// Most of each page of a database is empty, where damage does not matter.
    std::size_t placeOfSomething(const std::string& bytes)
    {
        std::size_t at = below(bytes.size());
        for (int tries = 0; bytes[at] == '\0' && tries < 100; ++tries)
            at = below(bytes.size());
        return at;
    }
    void write(const std::string& file, const std::string& bytes) const
    {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    }

    std::mt19937 random{printedSeed()};
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace

TEST_F(ImportFuzz, aDamagedTable_isStoredWhole_orNotAtAll)
{
    const TempShop shop;
    const std::string base = shop.base().toStdString();
    const std::string file = base + "/t.csv";
    const std::string good =
        "Code,Name,Bikou\r\n01,山田,\"二行\r\nの備考\"\r\n02,\"佐藤,\"\"次郎\"\"\",\r\n03,鈴木,～－①\r\n";
    int taken = 0;
    for (int i = 0; i < 250; ++i) {
        const std::string bytes = i % 10 == 0 ? good : damaged(good, false);
        write(file, bytes);
        const auto before = shop.query("SELECT * FROM TantouTB ORDER BY rowid");
        out.str({});
        err.str({});
        const ToolStatus status = importTable(base, "TantouTB", file, i % 3 == 0, out, err);
        const auto after = shop.query("SELECT * FROM TantouTB ORDER BY rowid");
        if (status == ToolStatus::Failed) {
            ASSERT_EQ(after, before) << bytes;
            ASSERT_NE(err.str().find("nothing was stored"), std::string::npos) << err.str();
            continue;
        }
        ++taken;
        ASSERT_EQ(out.str(), "TantouTB: " + std::to_string(after.size() - before.size()) + " rows\n")
            << bytes;
        ASSERT_EQ(checkBooks(base, out, err), ToolStatus::Good) << bytes << '\n' << out.str();
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        db.Execute("DELETE FROM TantouTB");
        db.Commit();
    }
    EXPECT_GE(taken, 10);
}

TEST_F(ImportFuzz, aDamagedJetDatabase_isRefusedInWords_orMakesWholeBooks)
{
    const TempShop shop; // only for its folder: an import makes the database
    const std::string base = shop.base().toStdString();
    const std::string database = shop.databaseFile();
    fs::remove(database);
    int looked = 0;
    for (const Jet version : {Jet::Three, Jet::Four}) {
        std::vector<JetTable> tables;
        for (const TableDef* table : allTables()) {
            JetTable old{.name = std::string(table->name), .columns = {}, .rows = {}};
            for (const std::string_view column : table->columns)
                old.columns.push_back({.name = std::string(column)});
            for (int row = 0; row < 3; ++row) {
                std::vector<JetTable::Value> values(old.columns.size());
                for (JetTable::Value& value : values)
                    value.bytes = jetText(version, std::to_string(row));
                old.rows.push_back(values);
            }
            tables.push_back(old);
        }
        const std::string good = jetFile(version, tables);
        for (int i = 0; i < 40; ++i) {
            write(base + "/old.mdb", damaged(good, i % 4 != 0));
            out.str({});
            err.str({});
            const ToolStatus status = importJet(base, base + "/old.mdb", i % 2 == 0, out, err);
            ASSERT_FALSE(fs::exists(database + ".importing"));
            const bool said = status == ToolStatus::Failed
                                  ? err.str().find("; nothing was written") != std::string::npos
                                  : out.str().find("InpTB: ") != std::string::npos;
            ASSERT_TRUE(said) << out.str() << err.str();
            looked += status != ToolStatus::Failed ? 1 : 0;
            const bool written = status == ToolStatus::Good || (status == ToolStatus::Found && i % 2 == 0);
            ASSERT_EQ(fs::exists(database), written) << out.str() << err.str();
            if (written) {
                ASSERT_EQ(queryFile(database, "PRAGMA integrity_check"), std::vector<std::string>{"ok"});
            }
            fs::remove(database);
        }
    }
    EXPECT_GE(looked, 10) << "few files were read beyond their first page";
}

} // namespace suisui::test
