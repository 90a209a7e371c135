#include "pricelist/file_question.h"

#include <aced.h>

#include <memory>

namespace corvanes {

std::optional<std::wstring> ask_for_file(const wchar_t* title, const std::wstring& proposal, const wchar_t* extension,
                                         FileQuestion question) {
    resbuf result{};
    if (acedGetFileD(title, proposal.c_str(), extension, static_cast<int>(question), &result) == RTERROR) {
        return std::nullopt;
    }
    // An answer of another kind holds no pointer.
    wchar_t* const chosen = result.restype == RTSTR ? result.resval.rstring : nullptr;
    const std::unique_ptr<wchar_t, decltype(&acad_free)> path(chosen, acad_free);
    return std::wstring(path ? path.get() : L"");
}

}  // namespace corvanes
