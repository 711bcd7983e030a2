// A grid is not painted during the life of this object.
#pragma once

#include "platform/widgets/vaSpread.h"

namespace suisui {

class ReDrawOff
{
public:
    explicit ReDrawOff(vaSpread& grid) : m_grid(grid), m_before(grid.ReDraw()) { m_grid.setReDraw(false); }
    ~ReDrawOff() { m_grid.setReDraw(m_before); }
    ReDrawOff(const ReDrawOff&) = delete;
    ReDrawOff& operator=(const ReDrawOff&) = delete;

private:
    vaSpread& m_grid;
    bool m_before;
};

} // namespace suisui
