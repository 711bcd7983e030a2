// A shop on which something goes wrong while a period is saved or loaded, and ways to make it go wrong.
#pragma once

#include <csignal>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "tests/support/ExpectBox.h"
#include "tests/support/HistoryDesk.h"

namespace suisui::test {

using Lines = std::vector<std::string>;

inline const Period january{"20260101", "20260131"};

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
        QString text = QStringLiteral("「 履歴の保存 」 "
                                      "に失敗しました。　(Err={number})　　　　　　　　　　　　　\r\n\r\n{"
                                      "reason}\r\n\r\n　　　準備 ・ 確認した後に、再度、実行して下さい。");
        text.replace(QStringLiteral("{number}"), QString::fromStdString(number));
        if (reason.isEmpty())
            text.remove(QStringLiteral("{reason}\r\n\r\n"));
        text.replace(QStringLiteral("{reason}"), reason);
        expectOneBox(box,
                     {.title = QStringLiteral(" 履歴の保存 エラー"), .text = text, .icon = BoxIcon::Stop});
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

inline std::string bytesOf(const QString& path)
{
    std::ifstream file(path.toStdString(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write(const QString& path, const std::string& bytes)
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

} // namespace suisui::test
