#include "platform/core/Files.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

namespace suisui::test {

namespace {

struct Folder
{
    QTemporaryDir dir;
    [[nodiscard]] std::string path(const std::string& name) const
    {
        return dir.path().toStdString() + "/" + name;
    }
    void write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string read(const std::string& name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] QStringList names() const { return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden); }
};

int numberThrown(const std::string& from, const std::string& to)
{
    try {
        copyFile(from, to);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Files, systemErrors_haveTheNumbersThatOperatorsKnow)
{
    const struct
    {
        int code;
        int number;
    } cases[] = {
        {ENOMEM, 7},  {EIO, 52},      {ENXIO, 52},     {ENODEV, 52},       {ENOMEDIUM, 52},
        {ESTALE, 52}, {ENOTCONN, 52}, {ETIMEDOUT, 52}, {EEXIST, 58},       {ENOSPC, 61},
        {EDQUOT, 61}, {EFBIG, 61},    {EACCES, 70},    {EPERM, 70},        {EROFS, 75},
        {EISDIR, 75}, {ENOENT, 76},   {ENOTDIR, 76},   {ENAMETOOLONG, 51}, {EINVAL, 51},
    };
    for (const auto& each : cases)
        EXPECT_EQ(runTimeNumber(each.code), each.number) << std::strerror(each.code);
}

TEST(Files, copy_hasEveryByte)
{
    const Folder folder;
    std::string bytes;
    for (int i = 0; i < 200000; ++i)
        bytes += static_cast<char>(i * 7);
    folder.write("a", bytes);
    copyFile(folder.path("a"), folder.path("b"));
    EXPECT_EQ(folder.read("b"), bytes);
}

TEST(Files, copyThatFails_saysWhy_andLeavesNothing)
{
    const Folder folder;
    folder.write("a", "x");
    folder.write("there", "old");
    EXPECT_EQ(numberThrown(folder.path("missing"), folder.path("b")), 53);
    EXPECT_EQ(numberThrown(folder.path("a"), folder.path("no/b")), 76);
    EXPECT_EQ(numberThrown(folder.path("a"), folder.path("a/b")), 76);
    EXPECT_EQ(numberThrown(folder.path("a"), folder.path("there")), 58);
    EXPECT_EQ(numberThrown(folder.path("a"), "/dev/full/b"), 76);
    EXPECT_EQ(numberThrown(folder.path("a"), folder.path(std::string(300, 'n'))), 51);
    EXPECT_EQ(folder.read("there"), "old");
    EXPECT_EQ(folder.names(), (QStringList{QStringLiteral("a"), QStringLiteral("there")}));
}

TEST(Files, newName_isNeverTakenFromAnother)
{
    const Folder folder;
    folder.write("a", "new");
    folder.write("b", "old");
    EXPECT_FALSE(renameToNew(folder.path("a"), folder.path("b")));
    EXPECT_EQ(folder.read("b"), "old");
    EXPECT_TRUE(renameToNew(folder.path("a"), folder.path("c")));
    EXPECT_EQ(folder.read("c"), "new");
}

TEST(Files, areFlushed_andRemoved)
{
    const Folder folder;
    folder.write("a", "x");
    EXPECT_TRUE(syncToDisk(folder.path("a")));
    EXPECT_TRUE(syncToDisk(folderOf(folder.path("a"))));
    EXPECT_FALSE(syncToDisk(folder.path("missing")));
    EXPECT_TRUE(removeFile(folder.path("a")));
    EXPECT_TRUE(removeFile(folder.path("a"))) << "gone is gone";
    EXPECT_FALSE(removeFile(folder.path("")));
    EXPECT_TRUE(folder.names().isEmpty());
}

TEST(Files, folderOfAPath)
{
    EXPECT_EQ(folderOf("/a/b"), "/a");
    EXPECT_EQ(folderOf("b"), ".");
}

} // namespace suisui::test
