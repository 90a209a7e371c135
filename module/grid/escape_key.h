// The question whether a person wants to end long work by Escape.
#pragma once

#include <windows.h>

namespace corvanes {

// Whether Escape is the next key in the queue; the key is then removed from the queue.
inline bool escape_waits() {
    MSG key;
    return ::PeekMessageW(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE) != 0 && key.wParam == VK_ESCAPE &&
           ::PeekMessageW(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE) != 0;
}

}  // namespace corvanes
