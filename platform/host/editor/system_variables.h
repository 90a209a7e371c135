// The host's system variables: names, types, limits and values.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/result.h"
#include "base/version.h"
#include "platform/host/prompt/input_text.h"

namespace host {

/// The program's name, in the titles of the host's windows and boxes.
inline constexpr wchar_t program_name[] = L"Drawing Host";
inline constexpr wchar_t program_version[] = L"" CORVANES_VERSION;

/// The alternatives are the types that acedGetVar reports: RTSHORT, RTREAL, RTSTR and RT3DPOINT.
using VariableValue = std::variant<int, double, std::wstring, Point>;

struct VariableDescription;

/// All variables with their initial values. Names are found without regard to case.
class SystemVariables {
  public:
    SystemVariables();

    std::optional<VariableValue> get(std::wstring_view name) const;
    /// Sets a variable for a user or a module. Fails, with a reason fit for a message, when there is no such variable
    /// or it does not take the value. A whole number is taken where a real is kept.
    base::Outcome<> set(std::wstring_view name, const VariableValue& value);
    /// As set(), from a typed text, which is read as the variable's type.
    base::Outcome<> set_from_text(std::wstring_view name, std::wstring_view text);

    /// Sets a variable for the host itself, be it read-only or the value beyond its limits. The variable must exist
    /// with this type.
    void put(std::wstring_view name, VariableValue value);
    /// From now on the value is asked from `source`. The variable must exist and be read-only.
    void compute(std::wstring_view name, std::function<VariableValue()> source);
    /// From now on a text that is set is kept in the form that `form` gives it, or is out of range where it gives none.
    /// The variable must exist and be a text.
    using TextForm = std::function<std::optional<std::wstring>(const std::wstring&)>;
    void restrict(std::wstring_view name, TextForm form);

    /// The value that a drawing has whose header lacks the variable. The variable must exist.
    const VariableValue& initial(std::wstring_view name) const;
    /// Gives all variables that belong to one drawing their initial values, which its header may then override.
    void reset_drawing_values();
    /// The names of the writable variables that belong to one drawing, upper case without "$".
    std::vector<std::wstring_view> drawing_names() const;

  private:
    struct Variable {
        VariableValue value;
        std::function<VariableValue()> source;
        TextForm form;
        const VariableDescription* description = nullptr;
    };
    Variable* find(std::wstring_view name);
    const Variable* find(std::wstring_view name) const;
    static std::optional<VariableValue> kept_value(const Variable& variable, const VariableValue& value);
    base::Outcome<> change(std::wstring_view name, const std::optional<VariableValue>& value, std::wstring_view shown);

    std::map<std::wstring, Variable, std::less<>> variables_;
};

/// The value as it is typed and shown: numbers without superfluous digits, points with commas.
std::wstring format_variable(const VariableValue& value);

}  // namespace host
