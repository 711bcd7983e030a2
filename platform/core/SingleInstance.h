// One copy of the program for a program folder.
#pragma once

#include <memory>

#include <QString>

class QLockFile;

namespace suisui {

class SingleInstance
{
public:
    explicit SingleInstance(const QString& baseFolder);
    ~SingleInstance();

    /// True when another living process holds \a baseFolder. Otherwise this object holds it until it
    /// is destroyed; a kill frees it as well. A folder that cannot be written counts as not held.
    [[nodiscard]] bool prevInstance();
    /// Whether this object holds the folder. False after prevInstance() said no as well when the folder
    /// cannot be written: then it is unknown whether another process works in it.
    [[nodiscard]] bool holds() const;

private:
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace suisui
