// Letting pending events run.
#pragma once

namespace suisui {

/// Works everything that is pending now and returns: repaints, keys, timers, bytes on the port.
void DoEvents();

/// As DoEvents, but when nothing at all is pending it sleeps in the event dispatcher until something is:
/// a byte on the port, a key, a timer, or wakeEvents(). An idle program uses no processor. Objects given up
/// for deletion are deleted first, so it is for the main loop alone and never for use inside a handler.
void DoEventsOrWait();

/// Ends a sleep of DoEventsOrWait.
void wakeEvents();

} // namespace suisui
