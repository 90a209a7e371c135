#include "platform/host/editor/commands.h"

#include "base/case_folding.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/file_question.h"
#include "platform/host/prompt/keywords.h"
#include "platform/host/prompt/person.h"

namespace host {

Document* open_document(const Editor& editor) {
    Document* const document = editor.documents.document();
    if (document == nullptr) {
        person().report(L"No drawing is open.");
    }
    return document;
}

namespace {

/// Writes into the drawing what is not in it yet. To be called before any save.
void settle(Editor& editor) {
    editor.modules.tell_all(AcRx::kSaveMsg);
    editor.store_variables();
}

/// Tells what was saved, or why it could not be.
bool report_saved(const std::filesystem::path& file, const base::Outcome<>& saved) {
    if (!succeeded(saved)) {
        return false;
    }
    person().print(L"\n" + std::filesystem::absolute(file).wstring() + L" saved.");
    return true;
}

bool save_drawing(Editor& editor, const std::filesystem::path& file) {
    settle(editor);
    const bool saved = report_saved(file, editor.documents.save(file));
    if (saved) {
        editor.remember_file(std::filesystem::absolute(file), true);
    }
    return saved;
}

std::optional<std::wstring> ask_target(const Document& document) {
    return ask_file_name({L"Save drawing as", document.name_to_save().wstring(), L"dxf", true, false});
}

std::optional<std::wstring> ask_drawing(const wchar_t* title) {
    return ask_file_name({title, L"", L"dxf;dwg", false, false});
}

void open_drawing(Editor& editor) {
    const auto file = may_leave_drawing(editor) ? ask_drawing(L"Open drawing") : std::nullopt;
    if (file) {
        succeeded(editor.documents.open(*file));
    }
}

void begin_to_open_drawing(Editor& editor) {
    if (const auto file = ask_drawing(L"Drawing to be opened next")) {
        editor.documents.begin_to_open(*file);
    }
}

void close_drawing(Editor& editor) {
    if (may_leave_drawing(editor)) {
        editor.documents.close();
    }
}

void save_drawing_as(Editor& editor) {
    const Document* const document = open_document(editor);
    const auto file = document != nullptr ? ask_target(*document) : std::nullopt;
    if (file) {
        save_drawing(editor, *file);
    }
}

/// Saves the open drawing; false when it is not saved, be it that a person gave no name for it.
bool save_drawing_by_its_name(Editor& editor, const Document& document) {
    if (!document.needs_new_name()) {
        return save_drawing(editor, document.path());
    }
    const auto file = ask_target(document);
    return file && save_drawing(editor, *file);
}

/// Whether two paths name one file, which need not be there any more.
bool is_file_of(const Document& document, const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::equivalent(file, document.path(), error) ||
           base::compare_ignoring_case(std::filesystem::absolute(file).lexically_normal().wstring(),
                                       document.path().lexically_normal().wstring()) == 0;
}

/// Under another name this writes a copy: the drawing keeps its own name and its unsaved changes.
void save_drawing_or_copy(Editor& editor) {
    const Document* const document = open_document(editor);
    const auto file = document != nullptr ? ask_target(*document) : std::nullopt;
    if (!file) {
        return;
    }
    if (document->needs_new_name() || is_file_of(*document, *file)) {
        save_drawing(editor, document->needs_new_name() ? std::filesystem::path(*file) : document->path());
        return;
    }
    settle(editor);
    report_saved(*file, document->save_copy(*file));
}

void save_drawing_quickly(Editor& editor) {
    if (const Document* const document = open_document(editor)) {
        save_drawing_by_its_name(editor, *document);
    }
}

bool may_lose_changes(const Document& document) {
    const Answer answer =
        person().prompt(L"\nDiscard the changes to " + std::wstring(document.docTitle()) + L"? [Yes/No] <No>: ");
    return answer.kind == Answer::line && Keywords(L"Yes No").match(answer.text) == L"Yes";
}

}  // namespace

bool may_leave_drawing(Editor& editor) {
    editor.store_variables();
    const Document* const document = editor.documents.document();
    if (document == nullptr || !document->changed()) {
        return true;
    }
    if (person().is_script() || editor.window == nullptr) {
        return may_lose_changes(*document);
    }
    const std::wstring question = L"Save changes to " + document->path().wstring() + L"?";
    switch (editor.message_box(question.c_str(), MB_YESNOCANCEL | MB_ICONWARNING)) {
        case IDYES:
            return save_drawing_by_its_name(editor, *document);
        case IDNO:
            return true;
        default:
            return false;
    }
}

bool may_end_session(Editor& editor) {
    if (!editor.processor.is_busy() && IsWindowEnabled(editor.main_window()) != 0) {
        return may_leave_drawing(editor);
    }
    const Document* const document = editor.documents.document();
    return document == nullptr || !document->changed();
}

void add_file_commands(Editor& editor) {
    editor.add_command(L"CLOSE", close_drawing);
    editor.add_command(L"OPEN", open_drawing);
    editor.add_command(L"READAHEAD", begin_to_open_drawing);
    editor.add_command(L"QSAVE", save_drawing_quickly);
    editor.add_command(L"QUIT", [](Editor& leaving) { leaving.quit_requested = may_leave_drawing(leaving); });
    editor.add_command(L"SAVE", save_drawing_or_copy);
    editor.add_command(L"SAVEAS", save_drawing_as);
}

}  // namespace host
