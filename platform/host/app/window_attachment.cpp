#include "platform/host/app/window_attachment.h"

#include "base/code_page.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/status_line.h"

namespace host {
namespace {

/// What the drawing view shows: the space of the open drawing that commands work in.
PaneContent current_content() {
    const Document* const document = editor().documents.document();
    if (document == nullptr) {
        return {};
    }
    const bool model = document->database()->tilemode();
    return {&document->drawing(), document->drawing().edits_made(),
            model ? DisplayList::Space::model : DisplayList::Space::paper};
}

std::wstring current_name() {
    const Document* const document = editor().documents.document();
    return document == nullptr ? L"" : (document->changed() ? L"*" : L"") + std::wstring(document->docTitle());
}

MenuBar::Contents current_menu() {
    return {[](std::wstring_view name) { return editor().processor.has(name); }, &editor().commands.groups(),
            editor().settings.settings().recent};
}

/// For the window's procedure, which no exception may leave.
bool may_end_session_now() {
    try {
        return may_end_session(editor());
    } catch (const std::exception& exception) {
        person().report(base::wide_from_utf8(exception.what()));
        return false;
    }
}

PointerGuide select_at(const Point& at, double reach, bool with_shift) {
    const PointerGuide guide = editor().selection.pick(at, reach, with_shift);
    person().show_selected(editor().selection.records());
    return guide;
}

}  // namespace

WindowProgram program_of_editor() {
    WindowProgram program;
    program.content = current_content;
    program.drawing_name = current_name;
    program.menu = current_menu;
    program.command_names = [] { return editor().processor.names(); };
    program.is_busy = [] { return editor().processor.is_busy(); };
    program.picked = select_at;
    program.describe = [](dxf::RecordId entity) {
        const Document* const document = editor().documents.document();
        return document == nullptr ? std::wstring() : entity_text(document->drawing(), entity);
    };
    program.may_end_session = may_end_session_now;
    return program;
}

WindowAttachment::WindowAttachment(MainWindow& window) : window_(window), program_(program_name) {
    acDocManagerPtr()->addReactor(this);
    main_.Attach(window.window());
    program_.m_pMainWnd = &main_;
    editor().window = &window;
    window.pane().on_new_list(
        [](const dxf::Drawing& drawing, const DisplayList& list) { editor().say_left_out(drawing, list); });
}

WindowAttachment::~WindowAttachment() {
    acDocManagerPtr()->removeReactor(this);
    window_.pane().on_new_list({});
    editor().window = nullptr;
    program_.m_pMainWnd = nullptr;
    main_.Detach();
}

void WindowAttachment::documentActivated(AcApDocument*) {
    window_.update_title();
    window_.pane().drawing_opened();
}

}  // namespace host
