#include "platform/host/editor/transparent_command_line.h"

#include "platform/host/editor/command_name.h"
#include "platform/host/editor/command_processor.h"

namespace host {

Answer TransparentCommandLine::prompt(std::wstring_view text) {
    for (;;) {
        Answer answer = answering_.prompt(text);
        const bool starts_command =
            answer.kind == Answer::line && processor_.is_busy() && parse_command_name(answer.text).transparent;
        if (!starts_command) {
            return answer;
        }
        processor_.run_transparent(answer.text);
        answering_.print(L"\nResuming " + processor_.running_names() + L" command.");
    }
}

}  // namespace host
