#include "platform/host/editor/menu_bar.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "base/case_folding.h"
#include "platform/host/editor/command_stack.h"

namespace host {
namespace {

constexpr UINT first_own = 100;
constexpr UINT first_added = 1000;

struct Line {
    const wchar_t* caption;      ///< with its key behind a tab; null for a separating line
    const wchar_t* typed = L"";  ///< empty for the title of a menu, and for the recent drawings
    WORD key = 0;                ///< a virtual key
    bool control = false, shift = false;
    bool edits = false;  ///< whether the key has a meaning of its own in a text
};

// The places in the menu of what the program finds when it runs.
constexpr wchar_t recent_drawings[] = L"&Recent drawings";
constexpr wchar_t module_menus[] = L"";

// A line without a command begins the next menu.
constexpr Line lines[] = {
    {L"&File"},
    {L"&Open...\tCtrl+O", L"OPEN", 'O', true},
    {recent_drawings},
    {L"&Save\tCtrl+S", L"QSAVE", 'S', true},
    {L"Save &As...\tCtrl+Shift+S", L"SAVEAS", 'S', true, true},
    {nullptr},
    {L"Export &picture...\tCtrl+P", L"PNGOUT", 'P', true},
    {L"Export pa&ge...", L"PAGEOUT"},
    {L"Export S&VG...", L"SVGOUT"},
    {nullptr},
    {L"&Load module...", L"APPLOAD"},
    {nullptr},
    {L"E&xit", L"QUIT"},
    {L"&Edit"},
    {L"&Undo\tCtrl+Z", L"U", 'Z', true, false, true},
    {nullptr},
    {L"&Erase\tDelete", L"ERASE", VK_DELETE, false, false, true},
    {L"Select &all\tCtrl+A", L"AI_SELALL", 'A', true, false, true},
    {L"&View"},
    {L"Zoom &extents", L"'ZOOM\nExtents"},
    {L"Zoom &window", L"'ZOOM\nWindow"},
    {L"Zoom &previous", L"'ZOOM\nPrevious"},
    {L"Zoom &in", L"'ZOOM\n2x"},
    {L"Zoom &out", L"'ZOOM\n0.5x"},
    {nullptr},
    {L"&Black background", L"'BACKGROUND\nBlack"},
    {L"W&hite background", L"'BACKGROUND\nWhite"},
    {nullptr},
    {L"&Layers...", L"LAYERS"},
    {module_menus},
    {L"&Help"},
    {L"&Commands\tF1", L"'HELP", VK_F1},
    {L"&History larger or smaller\tF2", L"'TEXTSCR", VK_F2},
    {nullptr},
    {L"&About Drawing Host", L"'ABOUT"},
};

bool is_pressed(int key) {
    return GetKeyState(key) < 0;
}

/// The command that a line begins with, without "'".
std::wstring_view command_of(std::wstring_view typed) {
    typed.remove_prefix(typed.starts_with(L'\'') ? 1 : 0);
    return typed.substr(0, typed.find(L'\n'));
}

bool begins_menu(const Line& line) {
    return line.caption != nullptr && *line.typed == 0 && line.caption != recent_drawings &&
           line.caption != module_menus;
}

HMENU add_popup(HMENU menu, const std::wstring& caption) {
    const HMENU popup = CreatePopupMenu();
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), caption.c_str());
    return popup;
}

/// The caption that shows a name: each "&" in it is doubled, so that it is a letter and not a mark.
std::wstring as_caption(std::wstring name) {
    for (size_t at = 0; (at = name.find(L'&', at)) != std::wstring::npos; at += 2) {
        name.insert(at, 1, L'&');
    }
    return name;
}

/// A line's caption without its marks and its key.
std::wstring plain_caption(HMENU menu, int line) {
    wchar_t caption[120] = L"";
    GetMenuStringW(menu, static_cast<UINT>(line), caption, static_cast<int>(std::size(caption)), MF_BYPOSITION);
    std::wstring text = caption;
    text.resize(std::min(text.find_first_of(L"\t."), text.size()));
    std::erase(text, L'&');
    return text;
}

HMODULE library_of(const CommandGroup& group) {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(group.commands.front().function), &library);
    return library;
}

std::wstring as_text(const MenuBar::Contents& contents) {
    std::wstring text;
    for (const CommandGroup& group : *contents.groups) {
        text += group.name + L'\n';
        for (const RegisteredCommand& command : group.commands) {
            text += command.local_name + L'\t';
        }
    }
    for (const std::wstring& path : contents.recent) {
        text += L'\n' + path;
    }
    return text;
}

/// Adds a separator, unless the menu is empty or ends in one, where it would separate nothing.
void add_separator(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    if (count > 0 && (GetMenuState(menu, static_cast<UINT>(count - 1), MF_BYPOSITION) & MF_SEPARATOR) == 0) {
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    }
}

}  // namespace

void MenuBar::update(const Contents& contents) {
    std::wstring text = as_text(contents);
    if (GetMenu(window_) != nullptr && text == shown_) {
        return;
    }
    shown_ = std::move(text);
    added_.clear();
    takers_.clear();
    next_ = first_added;
    const HMENU bar = CreateMenu();
    add_own_menus(bar, contents);
    const HMENU former = GetMenu(window_);
    SetMenu(window_, bar);
    if (former != nullptr) {
        DestroyMenu(former);
    }
}

void MenuBar::add_own_menus(HMENU bar, const Contents& contents) {
    HMENU menu = nullptr;
    for (const Line& line : lines) {
        if (begins_menu(line)) {
            menu = add_popup(bar, line.caption);
        } else if (line.caption == nullptr) {
            add_separator(menu);
        } else if (line.caption == recent_drawings) {
            add_recent(menu, contents);
        } else if (line.caption == module_menus) {
            add_module_menus(bar, contents);
        } else if (contents.has_command(command_of(line.typed))) {
            AppendMenuW(menu, MF_STRING, first_own + static_cast<UINT>(&line - lines), line.caption);
        }
    }
}

void MenuBar::add_recent(HMENU menu, const Contents& contents) {
    if (contents.recent.empty()) {
        return;
    }
    const HMENU recent = add_popup(menu, recent_drawings);
    int number = 0;
    for (const std::wstring& path : contents.recent) {
        const std::wstring key = ++number < 10 ? L"&" + std::to_wstring(number) + L" " : L"";
        add_line(recent, key + as_caption(path), L"OPEN\n" + path);
    }
}

void MenuBar::add_line(HMENU menu, const std::wstring& caption, std::wstring typed) {
    AppendMenuW(menu, MF_STRING, next_, caption.c_str());
    added_[next_++] = std::move(typed);
}

void MenuBar::add_module_menus(HMENU bar, const Contents& contents) {
    for (const CommandGroup& group : *contents.groups) {
        if (const HMENU loaded = LoadMenuW(library_of(group), L"HOST_MENU")) {
            while (GetMenuItemCount(loaded) > 0) {
                wchar_t caption[80] = L"";
                GetMenuStringW(loaded, 0, caption, static_cast<int>(std::size(caption)), MF_BYPOSITION);
                const HMENU menu = GetSubMenu(loaded, 0);
                RemoveMenu(loaded, 0, MF_BYPOSITION);
                take_lines_of(menu);
                AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), caption);
            }
            DestroyMenu(loaded);
        } else {
            add_group(bar, group);
        }
    }
}

/// Adds a menu of the group's commands, but for those that the host's own menus have, and those that ask at the command
/// line, as the "-" in their names says.
void MenuBar::add_group(HMENU bar, const CommandGroup& group) {
    HMENU menu = nullptr;
    for (const RegisteredCommand& command : group.commands) {
        const bool is_typed = command.local_name.starts_with(L'-');
        if (!is_typed && std::none_of(std::begin(lines), std::end(lines),
                                      [&](const Line& line) { return command_of(line.typed) == command.local_name; })) {
            menu = menu != nullptr ? menu : add_popup(bar, as_caption(group.name));
            add_line(menu, as_caption(command.local_name), command.local_name);
        }
    }
}

/// Gives the lines of a module's menu numbers that no other line has.
void MenuBar::take_lines_of(HMENU menu) {
    for (int at = 0; at < GetMenuItemCount(menu); ++at) {
        wchar_t caption[120] = L"";
        const auto position = static_cast<UINT>(at);
        GetMenuStringW(menu, position, caption, static_cast<int>(std::size(caption)), MF_BYPOSITION);
        std::wstring text = caption;
        const size_t tab = text.find(L'\t');
        if (tab == std::wstring::npos) {
            continue;
        }
        const size_t files = text.find(L" *", tab);
        if (files != std::wstring::npos) {
            takers_[base::lower(text.substr(files + 2))] = text.substr(tab + 1, files - tab - 1);
            text.erase(files);
        }
        ModifyMenuW(menu, position, MF_BYPOSITION | MF_STRING, next_, text.c_str());
        added_[next_++] = text.substr(tab + 1);
    }
}

std::wstring MenuBar::typed_by(UINT line) const {
    if (line >= first_own && line - first_own < std::size(lines)) {
        return lines[line - first_own].typed;
    }
    const auto added = added_.find(line);
    return added == added_.end() ? std::wstring() : added->second;
}

std::wstring MenuBar::place_of(std::wstring_view command) const {
    const HMENU bar = GetMenu(window_);
    for (int at = 0; at < GetMenuItemCount(bar); ++at) {
        const HMENU menu = GetSubMenu(bar, at);
        for (int line = 0; line < GetMenuItemCount(menu); ++line) {
            if (command_of(typed_by(GetMenuItemID(menu, line))) == command) {
                return plain_caption(bar, at) + L" > " + plain_caption(menu, line);
            }
        }
    }
    return {};
}

std::wstring MenuBar::typed_by_file(const std::wstring& path) const {
    const std::wstring name = base::lower(path);
    const auto taker =
        std::find_if(takers_.begin(), takers_.end(), [&](const auto& entry) { return name.ends_with(entry.first); });
    return (taker == takers_.end() ? L"OPEN" : taker->second) + L"\n" + path;
}

std::optional<UINT> MenuBar::line_of_key(const MSG& message, bool in_text) {
    if (message.message != WM_KEYDOWN) {
        return std::nullopt;
    }
    const auto found = std::find_if(std::begin(lines), std::end(lines), [&](const Line& line) {
        return line.key != 0 && line.key == message.wParam && line.control == is_pressed(VK_CONTROL) &&
               line.shift == is_pressed(VK_SHIFT) && !is_pressed(VK_MENU) && !(line.edits && in_text);
    });
    return found == std::end(lines) ? std::nullopt : std::optional(first_own + static_cast<UINT>(found - lines));
}

}  // namespace host
