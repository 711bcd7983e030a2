// One copy of the program for a program folder.
#pragma once

#include <QString>

namespace suisui {

class SingleInstance
{
public:
    explicit SingleInstance(const QString& baseFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// True when another living process holds \a baseFolder. Otherwise this object holds it until it
    /// is destroyed; a kill or a power cut frees it as well. A folder that cannot be written, or is on a file
    /// system without locks, counts as not held.
    [[nodiscard]] bool prevInstance();
    /// Whether this object holds the folder. False after prevInstance() said no as well when the folder
    /// cannot be written: then it is unknown whether another process works in it.
    [[nodiscard]] bool holds() const { return m_file >= 0; }

private:
    QString m_path;
    int m_file = -1;
};

} // namespace suisui
