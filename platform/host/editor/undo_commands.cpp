#include "platform/host/editor/undo_commands.h"

#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/document.h"
#include "platform/host/editor/editor.h"

namespace host {
namespace {

void undo(Editor& editor) {
    const Document* const document = editor.documents.document();
    std::optional<std::wstring> undone;
    if (document != nullptr) {
        undone = document->drawing().undo();
        editor.drawing_variables.follow(document->drawing());
    }
    command_line().print(L"\n" + undone.value_or(L"Nothing to undo."));
}

}  // namespace

void add_undo_commands(Editor& editor) {
    for (const wchar_t* const name : {L"U", L"UNDO"}) {
        editor.processor.add_built_in(name, [&editor] { undo(editor); });
    }
}

}  // namespace host
