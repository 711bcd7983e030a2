// Folders that wait for no disk, for tests that write a great deal.
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace suisui::test {

/// A folder for temporary files: in memory where the system offers that.
[[nodiscard]] inline QString inMemory()
{
    const QString memory = QStringLiteral("/dev/shm");
    return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
}

} // namespace suisui::test
