#include "platform/widgets/FontsAhead.h"

#include <system_error>

#include <QFontDatabase>
#include <QStringList>

#include <dlfcn.h>

namespace suisui {

FontsAhead::FontsAhead(void (*work)())
{
    try {
        m_helper = std::thread(work);
    } catch (const std::system_error&) {
        return;
    }
}

FontsAhead::~FontsAhead()
{
    if (m_helper.joinable())
        m_helper.join();
}

/// Qt links the font library and calls this function at its first font. Once it has been called, later calls
/// return at once.
void FontsAhead::readConfiguration()
{
    using Init = int (*)();
    if (const auto init = reinterpret_cast<Init>(dlsym(RTLD_DEFAULT, "FcInit")))
        init();
}

void FontsAhead::readFamilies()
{
    (void)QFontDatabase::families(); // guarded by a lock of Qt, which every font takes
}

} // namespace suisui
