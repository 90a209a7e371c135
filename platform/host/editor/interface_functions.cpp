// The host's small interface functions: messages, system variables, the implied selection, well-known objects.
#include "acdocman.h"
#include "acedads.h"
#include "acedsel.h"
#include "acui.h"
#include "base/case_folding.h"
#include "dbid.h"
#include "platform/host/database/object_id.h"
#include "platform/host/editor/editor.h"
#include "platform/host/prompt/person.h"
#include "platform/host/view/drawing_pane.h"
#include "rxregsvc.h"

using host::editor;

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace {

/// The host's well-known objects by name.
class SystemRegistry final : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override {
        const auto is = [key](const ACHAR* name) {
            return key != nullptr && base::compare_ignoring_case(key, name) == 0;
        };
        if (is(ACRX_DYNAMIC_LINKER)) {
            return &editor().modules;
        }
        return is(ACRX_COMMAND_DOCK) ? &editor().commands : nullptr;
    }
};

}  // namespace

AcRxDictionary* acrxSysRegistry() {
    static SystemRegistry registry;
    return &registry;
}

AcApDocManager* acDocManagerPtr() {
    return &editor().documents;
}

HWND adsw_acadMainWnd() {
    return editor().main_window();
}

void acedUpdateDisplay() {
    if (editor().window != nullptr) {
        editor().view()->update();
        UpdateWindow(editor().view()->window());
    }
}

// Does nothing: the dialog library is a part of the host and always ready.
void InitAcUiDLL() {}

int acedAlert(const ACHAR* message) {
    editor().message_box(message != nullptr ? message : L"", MB_OK | MB_ICONWARNING);
    return RTNORM;
}

int acedGetVar(const ACHAR* sym, struct resbuf* result) {
    const std::optional<host::VariableValue> value =
        sym != nullptr && result != nullptr ? editor().variables.get(sym) : std::nullopt;
    if (!value) {
        return RTERROR;
    }
    result->rbnext = nullptr;
    if (const int* whole = std::get_if<int>(&*value)) {
        result->restype = RTSHORT;
        result->resval.rint = static_cast<short>(*whole);
    } else if (const double* real = std::get_if<double>(&*value)) {
        result->restype = RTREAL;
        result->resval.rreal = *real;
    } else if (const host::Point* point = std::get_if<host::Point>(&*value)) {
        result->restype = RT3DPOINT;
        result->resval.rpoint[X] = point->x;
        result->resval.rpoint[Y] = point->y;
        result->resval.rpoint[Z] = point->z;
    } else {
        result->restype = RTSTR;
        result->resval.rstring = acad__strdup(std::get<std::wstring>(*value).c_str());
        return result->resval.rstring != nullptr ? RTNORM : RTERROR;
    }
    return RTNORM;
}

int acedGetEnv(const ACHAR* sym, ACHAR* var) {
    const DWORD length = sym != nullptr ? ::GetEnvironmentVariableW(sym, var, ACED_ENV_LENGTH) : 0;
    return length > 0 && length < ACED_ENV_LENGTH ? RTNORM : RTERROR;
}

namespace {

std::optional<host::VariableValue> value_of(const struct resbuf& buffer) {
    const ads_u_val& value = buffer.resval;
    switch (buffer.restype) {
        case RTSHORT:
            return host::VariableValue(static_cast<int>(value.rint));
        case RTLONG:
            return host::VariableValue(static_cast<int>(value.rlong));
        case RTREAL:
        case RTANG:
        case RTORINT:
            return host::VariableValue(value.rreal);
        case RTSTR:
            return value.rstring != nullptr ? std::optional<host::VariableValue>(std::wstring(value.rstring))
                                            : std::nullopt;
        case RTPOINT:
            return host::VariableValue(host::Point{value.rpoint[X], value.rpoint[Y], 0});
        case RT3DPOINT:
            return host::VariableValue(host::Point{value.rpoint[X], value.rpoint[Y], value.rpoint[Z]});
        default:
            return std::nullopt;
    }
}

}  // namespace

int acedSetVar(const ACHAR* sym, const struct resbuf* value) {
    const std::optional<host::VariableValue> wanted =
        sym != nullptr && value != nullptr ? value_of(*value) : std::nullopt;
    if (!wanted || !editor().variables.set(sym, *wanted)) {
        return RTERROR;
    }
    editor().variable_was_set();
    return RTNORM;
}

int acedSSSetFirst(const ads_name set, const ads_name) {
    long length = 0;
    if (set != nullptr && acedSSLength(set, &length) != RTNORM) {
        return RTERROR;
    }
    std::vector<dxf::RecordId> records;
    records.reserve(static_cast<size_t>(length));
    for (long at = 0; at < length; ++at) {
        ads_name entity;
        acedSSName(set, at, entity);
        records.push_back(host::address_of(AcDbObjectId().setFromOldId(entity[0])).number);
    }
    editor().selection.set(records);
    host::person().show_selected(records);
    return RTNORM;
}
