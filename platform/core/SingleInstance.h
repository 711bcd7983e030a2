// One copy of the program for a program folder.
#pragma once

#include <optional>

#include <QString>

#include "platform/core/FileLock.h"

namespace suisui {

class SingleInstance
{
public:
    explicit SingleInstance(const QString& baseFolder);

    /// True when another living process holds \a baseFolder. Otherwise this object holds it until it
    /// is destroyed; a kill frees it as well. A folder that cannot be written counts as not held.
    [[nodiscard]] bool prevInstance();
    /// Whether this object holds the folder. False after prevInstance() said no as well when the folder
    /// cannot be written: then it is unknown whether another process works in it.
    [[nodiscard]] bool holds() const { return m_lock && m_lock->held(); }

private:
    QString m_path;
    std::optional<FileLock> m_lock;
};

} // namespace suisui
