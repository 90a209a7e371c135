#include "platform/host/editor/editor.h"

#include "base/case_folding.h"
#include "platform/host/database/database_store.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/modal_dialog.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

/// Days since the start of the Julian calendar, as DATE gives the local time.
double julian_date_now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const int month_shift = (14 - now.wMonth) / 12;
    const int year = now.wYear + 4800 - month_shift;
    const int month = now.wMonth + 12 * month_shift - 3;
    const int day = now.wDay + (153 * month + 2) / 5 + 365 * year + year / 4 - year / 100 + year / 400 - 32045;
    return day + (now.wHour * 3600 + now.wMinute * 60 + now.wSecond) / 86400.0;
}

int active_command_bits(const Editor& editor) {
    constexpr int ordinary = 1;
    constexpr int transparent = 2;
    constexpr int script = 4;
    constexpr int dialog = 8;
    const bool dialog_is_up = editor.window != nullptr && IsWindowEnabled(editor.main_window()) == 0;
    return (editor.processor.is_busy() ? ordinary : 0) |
           (editor.processor.runs_transparent_command() ? transparent : 0) | (person().is_script() ? script : 0) |
           (dialog_is_up ? dialog : 0);
}

std::filesystem::path current_path(const Editor& editor) {
    const Document* const document = editor.documents.document();
    return document != nullptr ? document->path() : std::filesystem::path();
}

std::wstring current_folder(const Editor& editor) {
    std::wstring folder = current_path(editor).parent_path().wstring();
    if (!folder.empty() && folder.back() != L'\\') {
        folder += L'\\';
    }
    return folder;
}

/// A corner of what the drawing's current space shows. When it shows nothing, the lower corner lies above and the upper
/// one below all points.
VariableValue extents_corner(const Editor& editor, bool upper) {
    constexpr double beyond = 1e20;
    const Box2 extents = editor.window != nullptr ? editor.view()->list().extents() : Box2();
    if (extents.empty()) {
        return upper ? Point{-beyond, -beyond, -beyond} : Point{beyond, beyond, beyond};
    }
    const Vec2 corner = upper ? extents.high : extents.low;
    return Point{corner.x, corner.y, 0};
}

void compute_variables(Editor& editor) {
    SystemVariables& variables = editor.variables;
    variables.compute(L"CMDACTIVE", [&editor] { return active_command_bits(editor); });
    variables.compute(L"CMDNAMES", [&editor] { return editor.processor.running_names(); });
    variables.compute(L"DATE", [] { return julian_date_now(); });
    variables.compute(L"DBMOD", [&editor] {
        const Document* const document = editor.documents.document();
        return document != nullptr && document->changed() ? 1 : 0;
    });
    variables.compute(L"DWGNAME", [&editor] { return current_path(editor).filename().wstring(); });
    variables.compute(L"DWGPREFIX", [&editor] { return current_folder(editor); });
    variables.compute(L"EXTMAX", [&editor] { return extents_corner(editor, true); });
    variables.compute(L"EXTMIN", [&editor] { return extents_corner(editor, false); });
    variables.compute(L"DWGTITLED", [&editor] { return editor.documents.document() != nullptr ? 1 : 0; });
}

/// Gives the entry of a symbol table that a name stands for, as it is spelt there. A table without it still has the
/// `usual` entry.
SystemVariables::TextForm entry_of(const Editor& editor, std::string_view table, std::wstring_view usual) {
    return [&editor, table, usual](const std::wstring& name) -> std::optional<std::wstring> {
        const Document* const document = editor.documents.document();
        if (document == nullptr) {
            return name;
        }
        const dxf::Drawing& drawing = document->drawing();
        if (const dxf::RecordId entry = drawing.table_entry(table, name); entry != dxf::no_record) {
            return drawing.view(entry).text(2);
        }
        return base::compare_ignoring_case(name, usual) == 0 ? std::optional<std::wstring>(usual) : std::nullopt;
    };
}

void restrict_variables(Editor& editor) {
    editor.variables.restrict(L"ADDEDCOLOR", added_colour_from_text);
    editor.variables.restrict(L"CECOLOR", current_colour_from_text);
    editor.variables.restrict(L"CLAYER", entry_of(editor, "LAYER", L"0"));
    editor.variables.restrict(L"TEXTSTYLE", entry_of(editor, "STYLE", L"Standard"));
}

}  // namespace

Editor::Editor()
    : documents({[this](Document& document) { opened(document); }, [this] { modules.tell_all(AcRx::kUnloadDwgMsg); }}) {
    compute_variables(*this);
    restrict_variables(*this);
    processor.after_each([this] { store_variables(); });
}

HWND Editor::main_window() const {
    return window != nullptr ? window->window() : nullptr;
}

DrawingPane* Editor::view() const {
    return window != nullptr ? &window->pane() : nullptr;
}

int Editor::message_box(const wchar_t* text, UINT kind) const {
    return MessageBoxW(dialog_owner(main_window()), text, program_name, kind);
}

void Editor::add_command(std::wstring name, void (*body)(Editor&), bool transparent) {
    processor.add_built_in(
        std::move(name), [this, body] { body(*this); }, transparent);
}

void Editor::remember_file(const std::filesystem::path& file, bool is_drawing) {
    succeeded(settings.change([&](WindowSettings& known) {
        known.folder = file.parent_path().wstring();
        if (is_drawing) {
            known.add_recent(file.wstring());
        }
    }));
}

void Editor::opened(Document& document) {
    remember_file(std::filesystem::absolute(document.path()), true);
    drawing_variables.load(document.drawing());
    settle_added_colour(document);
    modules.tell_all(AcRx::kLoadDwgMsg);
}

void Editor::variable_was_set() {
    if (const Document* const document = documents.document()) {
        settle_added_colour(*document);
    }
    if (!processor.is_busy()) {
        store_variables();
    } else if (const Document* const document = documents.document()) {
        drawing_variables.store_current_names(document->drawing());
    }
}

void Editor::settle_added_colour(const Document& document) const {
    const std::wstring colour = std::get<std::wstring>(*variables.get(L"ADDEDCOLOR"));
    document.database()->store().set_added_colour(colour.empty() ? std::nullopt
                                                                 : std::optional<int>(current_colour_number(colour)));
}

void Editor::say_left_out(const dxf::Drawing& drawing, const DisplayList& list) {
    if ((list.left_out == 0 && list.not_shown.empty()) ||
        std::exchange(said_left_out_of_, drawing.serial()) == drawing.serial()) {
        return;
    }
    if (!list.not_shown.empty()) {
        std::wstring kinds;
        for (const auto& [kind, count] : list.not_shown) {
            kinds += (kinds.empty() ? L"" : L", ") + std::to_wstring(count) + L" " + kind;
        }
        person().print(L"\nNot shown: " + kinds + L".");
    }
    if (list.left_out != 0) {
        person().print(L"\nNot shown, or not whole: " + std::to_wstring(list.left_out) +
                       (list.left_out == 1 ? L" entity" : L" entities") +
                       (list.stopped ? L", since it was ended. REGEN shows all."
                                     : L", which would take too much memory or time."));
    }
}

void Editor::store_variables() {
    if (const Document* const document = documents.document()) {
        drawing_variables.store(document->drawing());
    }
}

Editor& editor() {
    static Editor the_editor;
    return the_editor;
}

}  // namespace host
