#include "platform/host/editor/script.h"

#include <array>

#include "base/code_page.h"
#include "platform/host/editor/script_words.h"
#include "platform/host/prompt/input_text.h"

namespace host {
namespace {

/// What may stand at one place after the action's name.
enum class Argument { none, target, number, text, on_or_off, key, optional_button };

struct ActionForm {
    std::wstring_view name;
    DialogAction::Kind kind;
    std::array<Argument, 2> arguments;
    std::wstring_view usage;
};

constexpr ActionForm action_forms[] = {
    {L"@press", DialogAction::press, {Argument::target}, L"@press TARGET"},
    {L"@tick", DialogAction::tick, {Argument::target, Argument::on_or_off}, L"@tick TARGET on|off"},
    {L"@click-cell", DialogAction::click_cell, {Argument::number, Argument::number}, L"@click-cell COLUMN ROW"},
    {L"@double-click-cell",
     DialogAction::double_click_cell,
     {Argument::number, Argument::number},
     L"@double-click-cell COLUMN ROW"},
    {L"@click-heading", DialogAction::click_heading, {Argument::number}, L"@click-heading COLUMN"},
    {L"@drag-border", DialogAction::drag_border, {Argument::number, Argument::number}, L"@drag-border COLUMN PIXELS"},
    {L"@type", DialogAction::type, {Argument::text}, L"@type \"TEXT\""},
    {L"@key", DialogAction::key, {Argument::key}, L"@key [CTRL+][SHIFT+][ALT+]NAME"},
    {L"@picture", DialogAction::picture, {Argument::text}, L"@picture \"FILE.png\""},
    {L"@print", DialogAction::print, {Argument::text}, L"@print \"FILE.png\""},
    {L"@expect-text", DialogAction::expect_text, {Argument::number, Argument::text}, L"@expect-text ID \"TEXT\""},
    {L"@expect-enabled",
     DialogAction::expect_enabled,
     {Argument::target, Argument::on_or_off},
     L"@expect-enabled TARGET on|off"},
    {L"@close", DialogAction::close, {}, L"@close"},
    {L"@alert", DialogAction::alert, {Argument::text, Argument::optional_button}, L"@alert \"TEXT\" [BUTTON]"},
};

/// Whether the action's text is a file's name, in which a backslash is itself.
bool names_file(DialogAction::Kind kind) {
    return kind == DialogAction::picture || kind == DialogAction::print;
}

bool is_button_name(std::wstring_view name) {
    for (const std::wstring_view known : {L"OK", L"CANCEL", L"ABORT", L"RETRY", L"IGNORE", L"YES", L"NO"}) {
        if (name == known) {
            return true;
        }
    }
    return false;
}

void put_number(DialogAction& action, size_t place, int number) {
    switch (action.kind) {
        case DialogAction::expect_text:
            action.id = number;
            break;
        case DialogAction::drag_border:
            (place == 0 ? action.column : action.pixels) = number;
            break;
        default:
            (place == 0 ? action.column : action.row) = number;
            break;
    }
}

bool take_argument(DialogAction& action, Argument argument, size_t place, const ScriptWord& word) {
    const std::optional<int> number = word.quoted ? std::nullopt : parse_integer(word.text);
    switch (argument) {
        case Argument::target:
            action.id = number;
            action.text = number ? std::wstring() : plain_caption(word.text);
            return number || word.quoted;
        case Argument::number:
            put_number(action, place, number.value_or(0));
            return number.has_value();
        case Argument::text:
            action.text = word.text;
            return word.quoted || names_file(action.kind);
        case Argument::on_or_off:
            action.on = word.text == L"on";
            return !word.quoted && (word.text == L"on" || word.text == L"off");
        case Argument::key: {
            const std::optional<NamedKey> key = parse_key(word.text);
            action.virtual_key = key ? key->virtual_key : 0;
            action.modifiers = key ? key->modifiers : 0;
            return key.has_value();
        }
        case Argument::optional_button:
            action.button = word.text;
            return !word.quoted && is_button_name(word.text);
        case Argument::none:
            break;
    }
    return false;
}

bool take_arguments(DialogAction& action, const ActionForm& form, const std::vector<ScriptWord>& words) {
    size_t next = 1;
    for (size_t place = 0; place < form.arguments.size() && form.arguments[place] != Argument::none; ++place) {
        if (next == words.size()) {
            return form.arguments[place] == Argument::optional_button;
        }
        if (!take_argument(action, form.arguments[place], place, words[next++])) {
            return false;
        }
    }
    return next == words.size();
}

base::Result<DialogAction> parse_action(const std::wstring& line) {
    const std::wstring name = line.substr(0, line.find_first_of(L" \t"));
    for (const ActionForm& form : action_forms) {
        if (name != form.name) {
            continue;
        }
        DialogAction action;
        action.kind = form.kind;
        const Escapes escapes = names_file(action.kind) ? Escapes::none : Escapes::taken;
        const std::optional<std::vector<ScriptWord>> words = split_script_words(line, escapes);
        if (!words) {
            return base::Failure{L"a quoted text is not closed"};
        }
        if (!take_arguments(action, form, *words)) {
            return base::Failure{L"expected " + std::wstring(form.usage)};
        }
        return action;
    }
    return base::Failure{L"unknown action " + name};
}

/// The text without the blanks and line ends around it; line ends inside become blanks.
std::wstring one_line(std::wstring_view text) {
    const size_t first = text.find_first_not_of(L" \n");
    const size_t last = text.find_last_not_of(L" \n");
    std::wstring line(first == std::wstring_view::npos ? L"" : text.substr(first, last + 1 - first));
    for (wchar_t& character : line) {
        character = character == L'\n' || character == L'\r' ? L' ' : character;
    }
    return line;
}

std::wstring quoted(std::wstring_view text) {
    return L'"' + one_line(text) + L'"';
}

}  // namespace

base::Result<Script, ScriptFault> read_script(std::string_view bytes, std::wstring file) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (bytes.substr(0, byte_order_mark.size()) == byte_order_mark) {
        bytes.remove_prefix(byte_order_mark.size());
    }
    Script script{std::move(file), {}};
    for (size_t number = 1; !bytes.empty(); ++number) {
        const size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line_bytes = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (!line_bytes.empty() && line_bytes.back() == '\r') {
            line_bytes.remove_suffix(1);
        }
        if (!base::valid_utf8(line_bytes)) {
            return base::Failure{ScriptFault{number, L"not UTF-8"}};
        }
        ScriptLine line{number, base::wide_from_utf8(line_bytes), std::nullopt};
        if (!line.text.empty() && line.text.front() == L';') {
            continue;
        }
        if (line.text.starts_with(L'@')) {
            base::Result<DialogAction> action = parse_action(line.text);
            if (!action) {
                return base::Failure{ScriptFault{number, action.reason()}};
            }
            line.action = *std::move(action);
        }
        script.lines.push_back(std::move(line));
    }
    return script;
}

ScriptRun::ScriptRun(Script script) : script_(std::move(script)) {}

Answer ScriptRun::answer(std::wstring_view prompt) {
    if (failed()) {
        return {};
    }
    if (at_end()) {
        fail_at_next(L"the script ended, but an answer is needed: " + quoted(prompt));
        return {};
    }
    const ScriptLine& line = script_.lines[next_];
    if (line.action) {
        fail_at_next(L"no dialog is open for this line; an answer is needed: " + quoted(prompt));
        return {};
    }
    take();
    if (line.text == L"^C") {
        return {};
    }
    return {line.text.empty() ? Answer::return_only : Answer::line, line.text};
}

const DialogAction* ScriptRun::action(std::wstring_view dialog) {
    if (failed()) {
        return nullptr;
    }
    if (at_end()) {
        fail_at_next(L"the script ended with a dialog open: " + quoted(dialog));
        return nullptr;
    }
    const ScriptLine& line = script_.lines[next_];
    if (!line.action) {
        fail_at_next(L"a dialog is open, which this line does not drive: " + quoted(dialog));
        return nullptr;
    }
    return &*line.action;
}

void ScriptRun::take_action() {
    take();
}

void ScriptRun::fail(std::wstring_view reason) {
    fail_at(line_taken_, reason);
}

std::wstring ScriptRun::stall_failure(std::wstring_view reason) const {
    return failed() ? failure_ : at_line(line_taken_, reason);
}

std::wstring ScriptRun::at_line(size_t line, std::wstring_view reason) const {
    return L"script " + script_.file + L":" + std::to_wstring(line) + L": " + std::wstring(reason);
}

void ScriptRun::take() {
    line_taken_ = script_.lines[next_].number;
    ++next_;
    ++progress_;
}

void ScriptRun::fail_at(size_t line, std::wstring_view reason) {
    if (!failed()) {
        failure_ = at_line(line, one_line(reason));
        failed_ = true;
    }
}

void ScriptRun::fail_at_next(std::wstring_view reason) {
    const size_t last = script_.lines.empty() ? 0 : script_.lines.back().number;
    fail_at(at_end() ? last : script_.lines[next_].number, reason);
}

std::wstring plain_caption(std::wstring_view caption) {
    caption = caption.substr(0, caption.find(L'\t'));
    std::wstring plain;
    for (size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == L'&' && ++at == caption.size()) {
            break;
        }
        plain.push_back(caption[at]);
    }
    return plain;
}

}  // namespace host
