// How much the process holds on its heap at this moment, also where a sanitizer has put its own in place.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
// Of the sanitizers' public interface, whose header this compiler does not bring along.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#else
#include <malloc.h>
#endif

namespace suisui::test {

[[nodiscard]] inline std::size_t heldBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

} // namespace suisui::test
