#include "platform/host/editor/file_question.h"

#include <windows.h>
#include <commdlg.h>

#include <algorithm>
#include <cwchar>

#include "acedads.h"
#include "base/loaded_library.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/modal_dialog.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

constexpr size_t longest_path = 2048;

std::wstring full_path(const std::wstring& typed) {
    wchar_t path[longest_path];
    const DWORD length = GetFullPathNameW(typed.c_str(), longest_path, path, nullptr);
    return length == 0 || length >= longest_path ? typed : std::wstring(path, length);
}

std::wstring first_extension(const std::wstring& extensions) {
    return extensions.substr(0, extensions.find(L';'));
}

bool is_there(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool is_folder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The path that a typed one stands for. A file to be read may do without an extension; a folder's name may stand for
/// the file beside it that has the usual one.
std::wstring completed(const std::wstring& path, const FileQuestion& question) {
    if (!question.new_file && is_there(path) && !is_folder(path)) {
        return path;
    }
    const size_t name = path.find_last_of(L"\\/") + 1;
    const bool has_one = path.find(L'.', name) != std::wstring::npos;
    const std::wstring extension = first_extension(question.extensions);
    if (has_one || extension.empty() || question.any_extension) {
        return path;
    }
    const std::wstring whole = path + L"." + extension;
    return !question.new_file && is_folder(path) && !is_there(whole) ? path : whole;
}

bool may_replace(const std::wstring& path) {
    if (!is_there(path)) {
        return true;
    }
    const std::wstring text = path + L" already exists.\nDo you want to replace it?";
    return editor().message_box(text.c_str(), MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) == IDYES;
}

std::optional<std::wstring> ask_at_command_line(const FileQuestion& question) {
    const std::wstring proposal = question.proposal.empty() ? L"" : L" <" + question.proposal + L">";
    for (;;) {
        const Answer answer = person().prompt(L"\n" + question.title + proposal + L": ");
        const std::wstring& typed = answer.kind == Answer::return_only ? question.proposal : answer.text;
        if (answer.kind == Answer::cancel || typed.empty()) {
            return std::nullopt;
        }
        const std::wstring path = completed(full_path(typed), question);
        if (!question.new_file || may_replace(path)) {
            return path;
        }
    }
}

/// "prc files (*.prc)" and "All files", each with its pattern, in the form that the system's dialog takes.
std::wstring dialog_filter(const std::wstring& extensions) {
    std::wstring patterns;
    for (size_t from = 0; from < extensions.size();) {
        const size_t end = std::min(extensions.find(L';', from), extensions.size());
        patterns += (patterns.empty() ? L"*." : L";*.") + extensions.substr(from, end - from);
        from = end + 1;
    }
    const std::wstring all = std::wstring(L"All files (*.*)") + L'\0' + L"*.*" + L'\0' + L'\0';
    return patterns.empty()
               ? all
               : first_extension(extensions) + L" files (" + patterns + L")" + L'\0' + patterns + L'\0' + all;
}

/// Whether the system takes the text as a file's name.
bool can_be_name(const std::wstring& name) {
    constexpr size_t longest_name = 255;
    constexpr wchar_t first_printable = 0x20;
    return name.size() <= longest_name && std::all_of(name.begin(), name.end(), [](wchar_t character) {
               return character >= first_printable && std::wcschr(L"<>:\"/\\|?*", character) == nullptr;
           });
}

/// The folder of the open drawing; without one, that of the last file.
std::wstring drawing_folder() {
    const Document* const document = editor().documents.document();
    return document != nullptr ? document->path().parent_path().wstring() : editor().settings.settings().folder;
}

struct DialogStart {
    std::wstring folder;
    std::wstring path;  ///< shorter than MAX_PATH; empty for none
};

/// Where the dialog begins. A name that no file can have is left out, because the system's dialogs would not open with
/// it.
DialogStart dialog_start(const std::wstring& proposal) {
    const size_t name_begin = proposal.find_last_of(L"\\/") + 1;
    const std::wstring folder = proposal.substr(0, name_begin);
    const std::wstring name = proposal.substr(name_begin);
    const bool folder_is_there = is_folder(folder);
    DialogStart start{folder_is_there ? folder : drawing_folder(), L""};
    if (can_be_name(name)) {
        start.path = folder_is_there && !name.empty() ? folder + name : name;
    }
    if (start.path.size() >= MAX_PATH) {
        start.path.clear();
    }
    return start;
}

std::optional<std::wstring> ask_in_dialog(const FileQuestion& question) {
    // The dialog's library is loaded only now, because it takes longer to load than the rest of the host.
    const base::LoadedLibrary dialogs = base::LoadedLibrary::load(L"comdlg32.dll");
    auto* const show =
        dialogs.function<BOOL WINAPI(OPENFILENAMEW*)>(question.new_file ? "GetSaveFileNameW" : "GetOpenFileNameW");
    if (show == nullptr) {
        person().report(L"The system has no file dialogs.");
        return std::nullopt;
    }
    const DialogStart start = dialog_start(question.proposal);
    wchar_t path[longest_path] = {};
    std::copy(start.path.begin(), start.path.end(), path);
    const std::wstring filter = dialog_filter(question.extensions);
    const std::wstring extension = first_extension(question.extensions);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = dialog_owner(editor().main_window());
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path;
    dialog.nMaxFile = longest_path;
    dialog.lpstrInitialDir = start.folder.empty() ? nullptr : start.folder.c_str();
    dialog.lpstrTitle = question.title.c_str();
    dialog.lpstrDefExt = extension.empty() || question.any_extension ? nullptr : extension.c_str();
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                   (question.new_file ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    if (show(&dialog) == 0) {
        return std::nullopt;
    }
    editor().remember_file(path, false);
    return path;
}

std::wstring text_or_empty(const ACHAR* text) {
    return text != nullptr ? text : L"";
}

}  // namespace

std::optional<std::wstring> ask_file_name(const FileQuestion& question) {
    const bool dialogs_wanted = editor().variables.get(L"FILEDIA") != VariableValue(0);
    return dialogs_wanted && editor().window != nullptr && !person().has_typed_ahead() ? ask_in_dialog(question)
                                                                                       : ask_at_command_line(question);
}

}  // namespace host

int acedGetFileD(const ACHAR* title, const ACHAR* defawlt, const ACHAR* ext, int flags, struct resbuf* result) {
    if (result == nullptr) {
        return RTERROR;
    }
    host::FileQuestion question;
    question.title = host::text_or_empty(title);
    question.proposal = host::text_or_empty(defawlt);
    question.extensions = host::text_or_empty(ext);
    question.new_file = (flags & ACED_GETFILE_NEW) != 0;
    question.any_extension = (flags & ACED_GETFILE_ANY_EXTENSION) != 0;
    const std::optional<std::wstring> chosen = host::ask_file_name(question);
    if (!chosen) {
        return RTERROR;
    }
    result->restype = RTSTR;
    result->resval.rstring = acad__strdup(chosen->c_str());
    return result->resval.rstring != nullptr ? RTNORM : RTERROR;
}
