// Files that must not be lost: copied, put in place and removed so that a power cut leaves the old state or
// the new one, with the failures of the file system under the numbers that operators know.
#pragma once

#include <string>

#include "platform/core/RunTimeError.h"

namespace suisui {

/// The number that operators know for the system's error \a code (an errno).
[[nodiscard]] RunTimeError::Number runTimeNumber(int code);

/// Copies \a from onto the new file \a to. Throws RunTimeError under runTimeNumber; FileNotFound when the
/// source is missing, PathNotFound when the target's folder is. Nothing is left of a copy that failed.
void copyFile(const std::string& from, const std::string& to);

/// Makes an empty file. False, with the reason in errno, when something has that name already or none can be
/// made.
[[nodiscard]] bool makeEmptyFile(const std::string& path);

/// Flushes a file, or the entries of a folder, to the disk. A file system that knows no flushing of folders
/// counts as done.
[[nodiscard]] bool syncToDisk(const std::string& path);

/// Gives \a from the name \a to in the same folder. False when something has that name already.
[[nodiscard]] bool renameToNew(const std::string& from, const std::string& to);

/// Makes the finished file \a aside the stored file \a path of the same folder: flushed, renamed, and its
/// name flushed as well. False when something has that name already, or the disk refuses.
[[nodiscard]] bool storeAs(const std::string& aside, const std::string& path);

/// Removes \a path, if it is there, and flushes its folder.
bool removeFile(const std::string& path);

[[nodiscard]] std::string folderOf(const std::string& path);

} // namespace suisui
