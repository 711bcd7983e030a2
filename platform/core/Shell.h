// Starting another program.
#pragma once

#include <QString>

namespace suisui {

/// Starts \a program, an absolute path, with working folder \a folder, in a window of its own, and does
/// not wait for it. Throws RunTimeError::FileNotFound when it cannot be started.
void Shell(const QString& program, const QString& folder);

} // namespace suisui
