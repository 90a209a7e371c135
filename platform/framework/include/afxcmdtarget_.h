// CCmdTarget, the base of what receives messages by a message map, and the form of the map.
#pragma once

#include "afx.h"

class CCmdTarget;

/// A message on its way to a handler. For a command, wParam is the control's identifier.
struct AFX_MESSAGE {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT result;
};

/// Calls one handler with the arguments that its message carries; FALSE when the handler passes the message on.
using AFX_INVOKE = BOOL (*)(CCmdTarget* target, AFX_MESSAGE& message);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  // 0 ends the table
    UINT nCode;     // notification code
    UINT nID;       // the first and last control identifiers
    UINT nLastID;
    AFX_INVOKE invoke;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define CN_COMMAND 0

#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)          \
    const AFX_MSGMAP* theClass::GetMessageMap() const { \
        return GetThisMessageMap();                     \
    }                                                   \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {   \
        using ThisClass = theClass;                     \
        using TheBaseClass = baseClass;                 \
        static constexpr AFX_MSGMAP_ENTRY map_entries[] = {
#define END_MESSAGE_MAP()                                                                  \
    { 0, 0, 0, 0, nullptr }                                                                \
    }                                                                                      \
    ;                                                                                      \
    static const AFX_MSGMAP message_map = {&TheBaseClass::GetThisMessageMap, map_entries}; \
    static_cast<void>(static_cast<ThisClass*>(nullptr));                                   \
    return &message_map;                                                                   \
    }

class AFX_PUBLIC CCmdTarget : public CObject {
  public:
    CCmdTarget() = default;
    ~CCmdTarget() override;

    /// Routes a command (code 0, as a button's click) or a control's notification. TRUE when a handler took it.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, void* handler_info);

  protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    /// The most derived entry for the message; null when there is none.
    static const AFX_MSGMAP_ENTRY* FindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id);
};
