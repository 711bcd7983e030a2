// What a folder refuses is not refused to root, as whom tests often run.
#pragma once

#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace suisui::test {

/// While it lives, \a folder takes no new file. When the test runs as root, files are opened as a user
/// without rights of his own meanwhile; the paths \a writable take his writes.
class AsAnotherUser
{
public:
    AsAnotherUser(const std::string& folder, const std::vector<std::string>& writable) : m_folder(folder)
    {
        (void)::chmod(m_folder.c_str(), 0555);
        if (m_user != 0)
            return;
        for (const std::string& path : writable)
            (void)::chmod(path.c_str(), 0777);
        (void)::seteuid(nobody);
    }
    ~AsAnotherUser()
    {
        if (m_user == 0)
            (void)::seteuid(m_user);
        (void)::chmod(m_folder.c_str(), 0755);
    }
    AsAnotherUser(const AsAnotherUser&) = delete;
    AsAnotherUser& operator=(const AsAnotherUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    std::string m_folder;
    uid_t m_user = ::geteuid();
};

} // namespace suisui::test
