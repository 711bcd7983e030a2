// The pointer of a program that is at work.
#pragma once

#include <QCursor>

namespace suisui {

/// The system's pointer for waiting; under Wayland a picture that does not move. Qt 6.4 uses the memory of
/// the last picture of a moving pointer after it has freed it, and crashes there sooner or later.
[[nodiscard]] QCursor hourglass();

/// The pointer of the whole program has another shape while it lives.
class PointerShape
{
public:
    explicit PointerShape(const QCursor& shape);
    ~PointerShape();
    PointerShape(const PointerShape&) = delete;
    PointerShape& operator=(const PointerShape&) = delete;
};

} // namespace suisui
