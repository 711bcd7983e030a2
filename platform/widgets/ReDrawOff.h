// A grid is not painted while this lives.
#pragma once

#include "platform/widgets/vaSpread.h"

namespace suisui {

class ReDrawOff
{
public:
    /// What follows: the state before, or painting in any case, since a grid may have been left unpainted.
    enum Then { ThenAsBefore, ThenOn };

    explicit ReDrawOff(vaSpread& grid, Then then = ThenAsBefore)
        : m_grid(grid), m_after(then == ThenOn || grid.ReDraw())
    {
        m_grid.setReDraw(false);
    }
    ~ReDrawOff() { end(); }
    ReDrawOff(const ReDrawOff&) = delete;
    ReDrawOff& operator=(const ReDrawOff&) = delete;

    /// Ends it before its scope does.
    void end()
    {
        if (!m_ended)
            m_grid.setReDraw(m_after);
        m_ended = true;
    }
    /// The grid keeps its last picture beyond the scope.
    void stay() { m_ended = true; }

private:
    vaSpread& m_grid;
    bool m_after;
    bool m_ended = false;
};

} // namespace suisui
