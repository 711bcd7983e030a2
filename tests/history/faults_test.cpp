// What goes wrong while periods are saved and loaded: afterwards the books are as before, and no half file
// lies about.
#include <csignal>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/core/Files.h"
#include "tests/support/HistoryDesk.h"

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

const Period january{"20260101", "20260131"};

/// A shop with movements in January, and what it looked like.
struct FaultyDesk : HistoryDesk
{
    FaultyDesk()
    {
        stock("A", "11", "5");
        stock("B", "-2", "0");
        receipt("A", "0000010", "20260101", "20260101090000");
        receipt("A", "0000005", "20260131", "20260131090000");
        shipment("A", "0000004", "20260115", "20260115090000");
        shipment("B", "0000003", "20260228", "20260228090000");
    }

    [[nodiscard]] Lines books() const
    {
        Lines all = movements();
        for (const char* table : {"ZaikoTB", "RirekiTB"}) {
            const Lines more = rows(table);
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// The save fails as a whole, without a box of its own.
    void expectSaveFails(const std::function<void()>& meanwhile = {})
    {
        const Lines before = books();
        const QStringList there = files();
        EXPECT_EQ(save(january), RirekiDB::Failed);
        if (meanwhile)
            meanwhile();
        EXPECT_TRUE(box.shown.empty());
        EXPECT_EQ(books(), before);
        EXPECT_EQ(files(), there);
        EXPECT_FALSE(frame.waitVisible());
        EXPECT_FALSE(db.inUnit());
    }
    /// The file system refuses: the report, and the result stays what it was.
    void expectSaveReports(const std::string& number, const QString& reason)
    {
        const Lines before = books();
        EXPECT_EQ(save(january), RirekiDB::Done);
        ASSERT_EQ(box.shown.size(), 1U);
        EXPECT_EQ(box.shown[0].title, QStringLiteral(" 履歴の保存 エラー"));
        EXPECT_EQ(box.shown[0].icon, BoxIcon::Stop);
        QString text = QStringLiteral("「 履歴の保存 」 "
                                      "に失敗しました。　(Err={number})　　　　　　　　　　　　　\r\n\r\n{"
                                      "reason}\r\n\r\n　　　準備 ・ 確認した後に、再度、実行して下さい。");
        text.replace(QStringLiteral("{number}"), QString::fromStdString(number));
        if (reason.isEmpty())
            text.remove(QStringLiteral("{reason}\r\n\r\n"));
        text.replace(QStringLiteral("{reason}"), reason);
        EXPECT_EQ(box.shown[0].text, text);
        EXPECT_EQ(books(), before);
        EXPECT_FALSE(frame.waitVisible());
    }
    void expectLoadFails()
    {
        const Lines before = books();
        const QStringList there = files();
        EXPECT_EQ(load(january), RirekiDB::Failed);
        EXPECT_TRUE(box.shown.empty());
        EXPECT_EQ(books(), before);
        EXPECT_EQ(files(), there) << "a failed load never deletes the file";
        EXPECT_FALSE(frame.waitVisible());
    }
};

const QString writeProtected = QStringLiteral("　　　書き込み禁止になっています。");

std::string bytesOf(const QString& path)
{
    std::ifstream file(path.toStdString(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const QString& path, const std::string& bytes)
{
    std::ofstream(path.toStdString(), std::ios::binary | std::ios::trunc) << bytes;
}

/// Files cannot grow beyond \a bytes while it lives, as on a full disk.
class SizeLimit
{
public:
    explicit SizeLimit(rlim_t bytes) : m_handler(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const struct rlimit limit = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        ::signal(SIGXFSZ, m_handler);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    struct rlimit m_before = {};
    void (*m_handler)(int);
};

/// Without the rights of the superuser while it lives.
class PlainUser
{
public:
    PlainUser() { m_good = m_before != 0 || ::seteuid(nobody) == 0; }
    ~PlainUser()
    {
        if (::geteuid() != m_before && ::seteuid(m_before) != 0)
            std::abort();
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;
    [[nodiscard]] bool good() const { return m_good; }

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_before = ::geteuid();
    bool m_good = false;
};

} // namespace

TEST(SaveFaults, missingTemplate_isReported_withoutAReason)
{
    FaultyDesk desk;
    ASSERT_EQ(::unlink(desk.emptyDatabase().c_str()), 0);
    desk.expectSaveReports("53", {});
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, folderThatIsGone_isReported)
{
    FaultyDesk desk;
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    desk.expectSaveReports("76", writeProtected);
}

TEST(SaveFaults, folderThatIsAFile_isReported)
{
    FaultyDesk desk;
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    write(desk.folder(), "");
    desk.expectSaveReports("76", writeProtected);
}

TEST(SaveFaults, readOnlyFolder_isReported)
{
    FaultyDesk desk;
    ASSERT_EQ(::chmod(desk.shop->base().toLocal8Bit().constData(), 0755), 0);
    ASSERT_EQ(::chmod(desk.folder().toLocal8Bit().constData(), 0555), 0);
    {
        const PlainUser user;
        ASSERT_TRUE(user.good());
        EXPECT_EQ(desk.save(january), RirekiDB::Done);
    }
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(QStringLiteral("(Err=70)")));
    EXPECT_TRUE(desk.box.shown[0].text.contains(writeProtected));
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"2"});
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, diskWithoutRoomForTheTemplate_isReported)
{
    FaultyDesk desk;
    const SizeLimit limit(20000);
    desk.expectSaveReports("61", QStringLiteral("　　　空き容量が不足しています。"));
    EXPECT_TRUE(desk.files().isEmpty());
}

TEST(SaveFaults, reportOfTheFileSystem_leavesWhatWasPendingPending)
{
    FaultyDesk desk;
    desk.db.Execute("UPDATE Master SET Unit='x'");
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    EXPECT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_TRUE(desk.db.inUnit());
}

TEST(SaveFaults, diskThatFillsUpOnTheWay_undoesEverything)
{
    FaultyDesk desk;
    const std::string longText(3000, 'x');
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), longText);
    struct stat empty = {};
    ::stat(desk.emptyDatabase().c_str(), &empty);
    const SizeLimit limit(static_cast<rlim_t>(empty.st_size) + 100000);
    desk.expectSaveFails();
}

TEST(SaveFaults, quoteInAnyText_undoesEverything)
{
    for (const bool receipt : {true, false}) {
        FaultyDesk desk;
        if (receipt)
            desk.receipt("A", "0000001", "20260110", "20260110090000", "John's");
        else
            desk.shipment("A", "0000001", "20260110", "20260110090000", "''");
        desk.expectSaveFails();
    }
}

TEST(SaveFaults, numberThatCannotBeRead_undoesEverything)
{
    FaultyDesk desk;
    desk.stock("C", "much", "0");
    desk.expectSaveFails();
}

TEST(SaveFaults, periodThatIsListedAlready_undoesEverything)
{
    FaultyDesk desk;
    desk.shop->add(rirekiTable, {"20260101", "20260131", "hst", "1", "20260301000000"});
    desk.expectSaveFails();
}

TEST(SaveFaults, templateThatHoldsRows_isNoTemplate)
{
    FaultyDesk desk;
    ASSERT_EQ(::unlink(desk.emptyDatabase().c_str()), 0);
    std::filesystem::copy_file(desk.shop->databaseFile(), desk.emptyDatabase());
    desk.expectSaveFails();
}

TEST(SaveFaults, templateThatIsNoDatabase_undoesEverything)
{
    FaultyDesk desk;
    write(QString::fromStdString(desk.emptyDatabase()), "これはデータベースではありません。");
    desk.expectSaveFails();
}

TEST(SaveFaults, workingDatabaseHeldByAnother_undoesEverything)
{
    FaultyDesk desk;
    AppDB other(desk.shop->databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), 0);
    other.Execute("UPDATE Master SET Unit='x'");
    ASSERT_EQ(other.LastStatus(), 0);
    desk.expectSaveFails([&other] { other.Rollback(); });
    EXPECT_EQ(desk.save(january), RirekiDB::Done);
}

TEST(SaveFaults, nameThatIsTakenMeanwhile_isLeftToItsOwner)
{
    FaultyDesk desk;
    write(desk.fileOf(january), "somebody else's");
    desk.expectSaveFails();
    EXPECT_EQ(bytesOf(desk.fileOf(january)), "somebody else's");
}

TEST(SaveFaults, fileLeftBehindByAKilledProgram_isNoObstacle)
{
    FaultyDesk desk;
    write(desk.folder() + QStringLiteral("/.RRK20260101-20260131.hst.new"), "half a file");
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    EXPECT_EQ(desk.files(), QStringList{QStringLiteral("RRK20260101-20260131.hst")});
}

TEST(LoadFaults, fileThatCannotBeUsed_isLeftAsItIs)
{
    const TempShop foreign;
    {
        Sqlite engine;
        ASSERT_EQ(engine.open(foreign.databaseFile()), 0);
        ASSERT_EQ(engine.execute("ALTER TABLE Master RENAME COLUMN Stock TO Other"), 0);
    }
    const std::string foreignBytes = bytesOf(QString::fromStdString(foreign.databaseFile()));
    const std::function<std::string(const std::string&)> spoil[] = {
        [](const std::string&) { return std::string(); },
        [](const std::string&) { return std::string("text"); },
        [](const std::string& whole) { return whole.substr(0, whole.size() / 2); },
        [](const std::string& whole) { return whole.substr(0, whole.size() - 100); },
        [&foreignBytes](const std::string&) { return foreignBytes; },
    };
    for (const auto& change : spoil) {
        FaultyDesk desk;
        ASSERT_EQ(desk.save(january), RirekiDB::Done);
        const std::string spoilt = change(bytesOf(desk.fileOf(january)));
        write(desk.fileOf(january), spoilt);
        desk.expectLoadFails();
        EXPECT_EQ(bytesOf(desk.fileOf(january)), spoilt);
    }
}

TEST(LoadFaults, fileDamagedWithin_bringsNothingBack)
{
    FaultyDesk desk;
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), std::string(300, 'x'));
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    std::string bytes = bytesOf(desk.fileOf(january));
    const std::size_t page = bytes.find(std::string(300, 'x')) / 4096 * 4096;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page), 4096, '\xAA');
    write(desk.fileOf(january), bytes);
    desk.expectLoadFails();
}

TEST(LoadFaults, fileThatIsGone_keepsItsPlaceOnTheList)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_TRUE(QFile::remove(desk.fileOf(january)));
    desk.expectLoadFails();
    EXPECT_EQ(desk.listed().size(), 1U);
}

TEST(LoadFaults, fileHeldByAnother_canBeLoadedLater)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        AppDB other(desk.shop->databaseFolder());
        ASSERT_EQ(other.Open(desk.fileOf(january).toStdString()), 0);
        other.Execute("UPDATE Master SET Unit='x'");
        ASSERT_EQ(other.LastStatus(), 0);
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
}

TEST(LoadFaults, workingDatabaseHeldByAnother_canBeLoadedLater)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        AppDB other(desk.shop->databaseFolder());
        ASSERT_EQ(other.Open("trnvik.mdb"), 0);
        other.Execute("UPDATE Master SET Unit='x'");
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
}

TEST(LoadFaults, quoteInAHistoryRow_bringsNothingBack)
{
    FaultyDesk desk;
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    {
        Sqlite engine;
        ASSERT_EQ(engine.open(desk.fileOf(january).toStdString()), 0);
        ASSERT_EQ(engine.execute("UPDATE OutTB SET Bikou='it''s'"), 0);
    }
    desk.expectLoadFails();
}

TEST(LoadFaults, diskThatFillsUpOnTheWay_bringsNothingBack)
{
    FaultyDesk desk;
    for (int i = 0; i < 200; ++i)
        desk.receipt("A", "0000001", "20260110", std::to_string(20260110000000 + i), std::string(3000, 'x'));
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    // Other rows take the room that the saved ones have left in the file.
    for (int i = 0; i < 220; ++i)
        desk.receipt("A", "0000001", "20260310", std::to_string(20260310000000 + i), std::string(3000, 'x'));
    struct stat file = {};
    ::stat(desk.shop->databaseFile().c_str(), &file);
    {
        const SizeLimit limit(static_cast<rlim_t>(file.st_size) + 100000);
        desk.expectLoadFails();
    }
    EXPECT_EQ(desk.load(january), RirekiDB::Done);
    EXPECT_EQ(desk.shop->query("SELECT COUNT(*) FROM InpTB"), Lines{"422"});
}

TEST(LoadFaults, fileThatCannotBeDeleted_isLoadedAllTheSame)
{
    FaultyDesk desk;
    const Lines movements = desk.movements();
    ASSERT_EQ(desk.save(january), RirekiDB::Done);
    ASSERT_EQ(::chmod(desk.shop->base().toLocal8Bit().constData(), 0777), 0);
    ASSERT_EQ(::chmod(desk.shop->databaseFolder().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(desk.shop->databaseFile().c_str(), 0666), 0);
    ASSERT_EQ(::chmod(desk.fileOf(january).toLocal8Bit().constData(), 0666), 0);
    ASSERT_EQ(::chmod(desk.folder().toLocal8Bit().constData(), 0555), 0);
    {
        const PlainUser user;
        ASSERT_TRUE(user.good());
        EXPECT_EQ(desk.load(january), RirekiDB::Done);
    }
    EXPECT_EQ(desk.movements(), movements);
    EXPECT_TRUE(desk.listed().empty());
    EXPECT_TRUE(QFile::exists(desk.fileOf(january)));
}

} // namespace suisui::test
