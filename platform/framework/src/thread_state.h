// What the framework knows of each thread: its objects by their handles, the message that is being handled, and the
// object whose window is being created.
#pragma once

#include <memory>
#include <typeinfo>
#include <unordered_map>
#include <utility>
#include <vector>

#include "afxmenu_.h"

namespace framework {

/// The objects of one kind of handle, by their handles: those that own their handle, and the temporary ones.
template <class Object, class Handle, Handle Object::*handle_member>
class HandleMap {
  public:
    /// False when another object owns the handle.
    bool attach(Handle handle, Object* object) { return owners_.emplace(handle, object).first->second == object; }
    void detach(Handle handle) { owners_.erase(handle); }
    Object* owner(Handle handle) const {
        const auto found = owners_.find(handle);
        return found == owners_.end() ? nullptr : found->second;
    }
    bool owns(const Object* object) const { return object->*handle_member && owner(object->*handle_member) == object; }

    /// The owner of the handle when it is a `Kind`, else a temporary object of exactly that class. Null for no handle.
    template <class Kind>
    Kind* object(Handle handle) {
        if (!handle) {
            return nullptr;
        }
        if (const auto owning = dynamic_cast<Kind*>(owner(handle))) {
            return owning;
        }
        auto& candidates = temporary_[handle];
        // A temporary object to which another handle was attached later owns that handle and stands for it.
        for (const auto& candidate : candidates) {
            if (typeid(*candidate) == typeid(Kind) && candidate.get()->*handle_member == handle) {
                return static_cast<Kind*>(candidate.get());
            }
        }
        candidates.push_back(std::make_unique<Kind>());
        candidates.back().get()->*handle_member = handle;
        return static_cast<Kind*>(candidates.back().get());
    }

    void delete_temporary() { std::exchange(temporary_, {}).clear(); }

  private:
    std::unordered_map<Handle, Object*> owners_;
    std::unordered_map<Handle, std::vector<std::unique_ptr<Object>>> temporary_;
};

struct ThreadState {
    HandleMap<CWnd, HWND, &CWnd::m_hWnd> windows;
    HandleMap<CGdiObject, HGDIOBJ, &CGdiObject::m_hObject> drawing_objects;
    HandleMap<CDC, HDC, &CDC::m_hDC> contexts;
    HandleMap<CMenu, HMENU, &CMenu::m_hMenu> menus;

    CWnd* being_created = nullptr;
    MSG handled{};              // the message that is being handled
    int handlers_running = 0;   // window procedures on the stack
    HWND exchanging = nullptr;  // the dialog whose UpdateData is running; its controls' notifications are ignored
    POINT last_mouse{};
    UINT last_mouse_message = 0;
    int exit_code = 0;  // the code of WM_QUIT

    /// Deletes the temporary objects. Does nothing while a handler is running, which may hold some of them.
    void delete_temporary_objects();
};

/// The calling thread's state; made when it is first asked for, deleted when the thread ends.
ThreadState& thread_state();

/// Sets a value for the time of a scope.
template <class Value>
class Scoped {
  public:
    Scoped(Value& place, Value value) : place_(place), before_(std::exchange(place, std::move(value))) {}
    ~Scoped() { place_ = std::move(before_); }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

  private:
    Value& place_;
    Value before_;
};

}  // namespace framework
