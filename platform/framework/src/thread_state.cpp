#include "thread_state.h"

namespace framework {
namespace {

void CALLBACK delete_state(void* state) {
    delete static_cast<ThreadState*>(state);
}

/// A fiber-local slot: unlike a thread_local object, it can be asked for again by the destructors of static objects.
DWORD slot() {
    static const DWORD index = FlsAlloc(delete_state);
    return index;
}

}  // namespace

void ThreadState::delete_temporary_objects() {
    if (handlers_running > 0) {
        return;
    }
    windows.delete_temporary();
    contexts.delete_temporary();
    drawing_objects.delete_temporary();
    menus.delete_temporary();
}

ThreadState& thread_state() {
    auto* state = static_cast<ThreadState*>(FlsGetValue(slot()));
    if (!state) {
        auto made = std::make_unique<ThreadState>();
        FlsSetValue(slot(), made.get());
        state = made.release();
    }
    return *state;
}

}  // namespace framework
