#include "bom/drawing_name.h"

#include <afxwin.h>
#include <aced.h>

#include "common/host_text.h"

namespace corvanes {

std::wstring drawing_name() {
    resbuf value{};
    const bool known = acedGetVar(L"DWGNAME", &value) == RTNORM;
    return HostText(known ? value.resval.rstring : nullptr).get();
}

}  // namespace corvanes
