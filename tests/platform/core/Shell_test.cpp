// Starting another program.
#include "platform/core/Shell.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/core/RunTimeError.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ShellTest : public ::testing::Test
{
protected:
    /// A program in a folder with blanks and Japanese in its name, as a user's folder may have.
    QString program(const QByteArray& script, bool executable = true)
    {
        QDir(m_folder.path()).mkpath(u"マイ プログラム/exe"_s);
        QFile file(base() + u"/exe/Master.exe"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        if (executable)
            file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
        return file.fileName();
    }
    [[nodiscard]] QString base() const { return m_folder.path() + u"/マイ プログラム"_s; }

    QTemporaryDir m_folder;
};

RunTimeError::Number errorOf(const QString& program, const QString& folder)
{
    try {
        Shell(program, folder);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return {};
}

} // namespace

TEST_F(ShellTest, startsTheProgramInTheFolder_withoutArguments_andDoesNotWait)
{
    // It ends only when asked to, which a Shell that waits would never get to do.
    Shell(program("echo \"$# $(pwd)\" > said.new; mv said.new said\n"
                  "while [ ! -e go ]; do sleep 0.01; done; mv said ended\n"),
          base());
    ASSERT_TRUE(eventually([this] { return QFile::exists(base() + u"/said"_s); }));
    QFile said(base() + u"/said"_s);
    ASSERT_TRUE(said.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(said.readAll()), u"0 "_s + QDir(base()).canonicalPath() + u'\n');
    QFile go(base() + u"/go"_s);
    ASSERT_TRUE(go.open(QIODevice::WriteOnly));
    EXPECT_TRUE(eventually([this] { return QFile::exists(base() + u"/ended"_s); }));
}

TEST_F(ShellTest, aProgramThatIsNotThere_orCannotBeStarted_isFileNotFound)
{
    const QString present = program("exit 0\n");
    EXPECT_EQ(errorOf(base() + u"/exe/PrintRpt.exe"_s, base()), RunTimeError::FileNotFound);
    EXPECT_EQ(errorOf(present, base() + u"/no such folder"_s), RunTimeError::FileNotFound);
    QFile::remove(present);
    EXPECT_EQ(errorOf(program("exit 0\n", false), base()), RunTimeError::FileNotFound);
}

} // namespace suisui::test
