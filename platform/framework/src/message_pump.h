// The functions that get and run the messages of the thread's queue.
#pragma once

#include "afxver_.h"

namespace framework {

bool queue_is_empty();

/// Waits for a message, offers it to PreTranslateMessage and dispatches it; false for WM_QUIT, whose code goes into the
/// thread's state. An exception from PreTranslateMessage is reported, and the message counts as taken.
bool pump_message(MSG& message);

/// Whether idle work is due once the queue is empty again: not after painting, nor when the mouse did not really move.
bool is_idle_message(const MSG& message);

}  // namespace framework
