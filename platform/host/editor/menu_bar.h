// The main window's menu bar. Its lines type commands, and it shows those that there are.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct CommandGroup;

/// A module's menu comes from its menu resource "HOST_MENU", when it has one: what stands behind the tab of a line is
/// the command that the line types, and behind a blank the files that it takes ("*.txt"). The commands of a group
/// without one stand in a menu with the group's name.
class MenuBar {
  public:
    /// What the menu shows besides its own lines.
    struct Contents {
        std::function<bool(std::wstring_view)> has_command;
        const std::vector<CommandGroup>* groups = nullptr;
        std::vector<std::wstring> recent;  ///< paths of drawings
    };

    /// The window destroys the menu with itself.
    explicit MenuBar(HWND window) : window_(window) {}

    /// Makes the menu anew when its contents have changed.
    void update(const Contents& contents);
    /// What a line types (see TypedAhead::add); empty for a line that is not of this menu.
    std::wstring typed_by(UINT line) const;
    /// Where a command is: "Menu > Line"; empty for one that no line types.
    std::wstring place_of(std::wstring_view command) const;
    /// What a file that was dropped on the window types: a module's command that its menu names for such files, or
    /// OPEN.
    std::wstring typed_by_file(const std::wstring& path) const;
    /// The line that a key stands for. With `in_text` the key goes to a text and edits that rather than the drawing.
    static std::optional<UINT> line_of_key(const MSG& message, bool in_text);

  private:
    void add_own_menus(HMENU bar, const Contents& contents);
    void add_module_menus(HMENU bar, const Contents& contents);
    void add_group(HMENU bar, const CommandGroup& group);
    void add_recent(HMENU menu, const Contents& contents);
    void add_line(HMENU menu, const std::wstring& caption, std::wstring typed);
    void take_lines_of(HMENU menu);

    HWND window_;
    std::wstring shown_;  ///< what the menu was made of, as a text
    std::map<UINT, std::wstring> added_;
    UINT next_ = 0;
    std::map<std::wstring, std::wstring> takers_;  ///< commands by the ends of files' names, in lower case
};

}  // namespace host
