#include "common/file_question.h"

#include <aced.h>

#include "common/host_text.h"

namespace corvanes {

std::optional<std::wstring> ask_for_file(const wchar_t* title, const std::wstring& proposal, const wchar_t* extension,
                                         FileQuestion question) {
    resbuf result{};
    const int answer = acedGetFileD(title, proposal.c_str(), extension, static_cast<int>(question), &result);
    // An answer that is no text holds no pointer. Hosts differ in the code that they return when the user declines, so
    // any answer without a file counts as a cancel.
    const HostText path(result.restype == RTSTR ? result.resval.rstring : nullptr);
    return answer == RTERROR || path.get()[0] == L'\0' ? std::nullopt : std::optional<std::wstring>(path.get());
}

}  // namespace corvanes
