#include "platform/host/editor/system_variables.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "base/case_folding.h"

namespace host {

struct VariableDescription {
    enum Access { writable, read_only };
    enum Home { session, drawing };

    std::wstring_view name;
    Home home;
    Access access;
    VariableValue initial;
    double least = std::numeric_limits<double>::lowest();
    double greatest = std::numeric_limits<double>::max();
};

namespace {

constexpr double short_least = -32768;
constexpr double short_greatest = 32767;

using D = VariableDescription;

constexpr double tiny = std::numeric_limits<double>::min();

const VariableDescription descriptions[] = {
    {L"ACADVER", D::session, D::read_only, std::wstring(L"18.0")},
    {L"ADDEDCOLOR", D::session, D::writable, std::wstring()},
    {L"ANGBASE", D::drawing, D::writable, 0.0},
    {L"ANGDIR", D::drawing, D::writable, 0, 0, 1},
    {L"ATTDIA", D::session, D::writable, 0, 0, 1},
    {L"ATTMODE", D::drawing, D::writable, 1, 0, 2},
    {L"ATTREQ", D::session, D::writable, 1, 0, 1},
    {L"AUNITS", D::drawing, D::writable, 0, 0, 4},
    {L"AUPREC", D::drawing, D::writable, 0, 0, 8},
    {L"CECOLOR", D::drawing, D::writable, std::wstring(L"BYLAYER")},
    {L"CELTSCALE", D::drawing, D::writable, 1.0, tiny},
    {L"CELTYPE", D::drawing, D::writable, std::wstring(L"ByLayer")},
    {L"CLAYER", D::drawing, D::writable, std::wstring(L"0")},
    {L"CMDACTIVE", D::session, D::read_only, 0},
    {L"CMDDIA", D::session, D::writable, 1, 0, 1},
    {L"CMDECHO", D::session, D::writable, 1, 0, 1},
    {L"CMDNAMES", D::session, D::read_only, std::wstring()},
    {L"CTAB", D::drawing, D::read_only, std::wstring(L"Model")},
    {L"CVPORT", D::drawing, D::read_only, 2},
    {L"DATE", D::session, D::read_only, 0.0},
    {L"DBMOD", D::session, D::read_only, 0},
    {L"DWGNAME", D::session, D::read_only, std::wstring(L"Drawing1.dxf")},
    {L"DWGPREFIX", D::session, D::read_only, std::wstring()},
    {L"DWGTITLED", D::session, D::read_only, 0},
    {L"ELEVATION", D::drawing, D::writable, 0.0},
    {L"EXPERT", D::session, D::writable, 0, 0, 5},
    {L"EXTMAX", D::session, D::read_only, Point{-1e20, -1e20, -1e20}},
    {L"EXTMIN", D::session, D::read_only, Point{1e20, 1e20, 1e20}},
    {L"FILEDIA", D::session, D::writable, 1, 0, 1},
    {L"HIGHLIGHT", D::session, D::writable, 1, 0, 1},
    {L"INSBASE", D::drawing, D::writable, Point{}},
    {L"INSUNITS", D::drawing, D::writable, 0, 0, 20},
    {L"LIMMAX", D::drawing, D::writable, Point{12, 9, 0}},
    {L"LIMMIN", D::drawing, D::writable, Point{}},
    {L"LTSCALE", D::drawing, D::writable, 1.0, tiny},
    {L"LUNITS", D::drawing, D::writable, 2, 1, 5},
    {L"LUPREC", D::drawing, D::writable, 4, 0, 8},
    {L"MIRRTEXT", D::drawing, D::writable, 1, 0, 1},
    {L"ORTHOMODE", D::drawing, D::writable, 0, 0, 1},
    {L"OSMODE", D::session, D::writable, 0, 0, 32767},
    {L"PDMODE", D::drawing, D::writable, 0, short_least, short_greatest},
    {L"PDSIZE", D::drawing, D::writable, 0.0},
    {L"PICKFIRST", D::session, D::writable, 1, 0, 1},
    {L"PLATFORM", D::session, D::read_only, std::wstring(program_name)},
    {L"SNAPMODE", D::drawing, D::writable, 0, 0, 1},
    {L"TDCREATE", D::drawing, D::read_only, 0.0},
    {L"TDUPDATE", D::drawing, D::read_only, 0.0},
    {L"TEXTSIZE", D::drawing, D::writable, 2.5, tiny},
    {L"TEXTSTYLE", D::drawing, D::writable, std::wstring(L"Standard")},
    {L"THICKNESS", D::drawing, D::writable, 0.0},
    {L"TILEMODE", D::drawing, D::read_only, 1},
    {L"USERI1", D::drawing, D::writable, 0, short_least, short_greatest},
    {L"USERR1", D::drawing, D::writable, 0.0},
    {L"USERS1", D::session, D::writable, std::wstring()},
    {L"WORLDUCS", D::session, D::read_only, 1},
};

std::optional<double> as_number(const VariableValue& value) {
    if (const int* whole = std::get_if<int>(&value)) {
        return *whole;
    }
    const double* real = std::get_if<double>(&value);
    return real != nullptr ? std::optional<double>(*real) : std::nullopt;
}

std::optional<VariableValue> read_as(const VariableValue& kind, std::wstring_view text) {
    const auto wrap = [](const auto& parsed) { return parsed ? std::optional<VariableValue>(*parsed) : std::nullopt; };
    switch (kind.index()) {
        case 0:
            return wrap(parse_integer(text));
        case 1:
            return wrap(parse_real(text));
        case 2:
            return VariableValue(std::wstring(text));
        default:
            return wrap(parse_point(text));
    }
}

}  // namespace

SystemVariables::SystemVariables() {
    for (const VariableDescription& description : descriptions) {
        variables_[std::wstring(description.name)] = {description.initial, nullptr, nullptr, &description};
    }
}

SystemVariables::Variable* SystemVariables::find(std::wstring_view name) {
    return const_cast<Variable*>(std::as_const(*this).find(name));
}

const SystemVariables::Variable* SystemVariables::find(std::wstring_view name) const {
    std::wstring upper(name);
    for (wchar_t& character : upper) {
        character = character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A') : character;
    }
    const auto found = variables_.find(upper);
    return found == variables_.end() ? nullptr : &found->second;
}

std::optional<VariableValue> SystemVariables::get(std::wstring_view name) const {
    const Variable* variable = find(name);
    if (variable == nullptr) {
        return std::nullopt;
    }
    return variable->source ? variable->source() : variable->value;
}

base::Outcome<> SystemVariables::set(std::wstring_view name, const VariableValue& value) {
    return change(name, value, format_variable(value));
}

base::Outcome<> SystemVariables::set_from_text(std::wstring_view name, std::wstring_view text) {
    const Variable* variable = find(name);
    return change(name, variable != nullptr ? read_as(variable->value, text) : std::nullopt, text);
}

/// None as `value`: what was typed, `shown`, cannot be read.
base::Outcome<> SystemVariables::change(std::wstring_view name, const std::optional<VariableValue>& value,
                                        std::wstring_view shown) {
    Variable* variable = find(name);
    if (variable == nullptr) {
        return base::Failure{L"Unknown variable \"" + std::wstring(name) + L"\"."};
    }
    if (variable->description->access == VariableDescription::read_only) {
        return base::Failure{std::wstring(name) + L" is read-only."};
    }
    std::optional<VariableValue> kept = value ? kept_value(*variable, *value) : std::nullopt;
    if (!kept) {
        return base::Failure{L"\"" + std::wstring(shown) + L"\" is no value for " + std::wstring(name) + L"."};
    }
    variable->value = *std::move(kept);
    return {};
}

/// What a variable keeps of a value; none where its type, limits or form forbid the value.
std::optional<VariableValue> SystemVariables::kept_value(const Variable& variable, const VariableValue& value) {
    const std::optional<double> number = as_number(value);
    const bool widened = std::holds_alternative<double>(variable.value) && std::holds_alternative<int>(value);
    const bool fits = value.index() == variable.value.index() || widened;
    const VariableDescription& limits = *variable.description;
    if (!fits || (number && !(*number >= limits.least && *number <= limits.greatest))) {
        return std::nullopt;
    }
    if (variable.form) {
        return variable.form(std::get<std::wstring>(value));
    }
    return widened ? VariableValue(*number) : value;
}

void SystemVariables::put(std::wstring_view name, VariableValue value) {
    Variable* variable = find(name);
    if (variable == nullptr || variable->value.index() != value.index()) {
        throw std::logic_error("no such system variable of this type");
    }
    variable->value = std::move(value);
}

void SystemVariables::compute(std::wstring_view name, std::function<VariableValue()> source) {
    Variable* variable = find(name);
    if (variable == nullptr || variable->description->access != VariableDescription::read_only) {
        throw std::logic_error("no such computed system variable");
    }
    variable->source = std::move(source);
}

void SystemVariables::restrict(std::wstring_view name, TextForm form) {
    Variable* variable = find(name);
    if (variable == nullptr || !std::holds_alternative<std::wstring>(variable->value)) {
        throw std::logic_error("no such system variable that is a text");
    }
    variable->form = std::move(form);
}

const VariableValue& SystemVariables::initial(std::wstring_view name) const {
    const Variable* variable = find(name);
    if (variable == nullptr) {
        throw std::logic_error("no such system variable");
    }
    return variable->description->initial;
}

void SystemVariables::reset_drawing_values() {
    for (auto& [name, variable] : variables_) {
        if (variable.description->home == VariableDescription::drawing) {
            variable.value = variable.description->initial;
        }
    }
}

std::vector<std::wstring_view> SystemVariables::drawing_names() const {
    std::vector<std::wstring_view> names;
    for (const auto& [name, variable] : variables_) {
        if (variable.description->home == VariableDescription::drawing) {
            names.push_back(name);
        }
    }
    return names;
}

std::wstring format_variable(const VariableValue& value) {
    if (const int* whole = std::get_if<int>(&value)) {
        return std::to_wstring(*whole);
    }
    if (const double* real = std::get_if<double>(&value)) {
        return format_real(*real);
    }
    if (const Point* point = std::get_if<Point>(&value)) {
        return format_point(*point);
    }
    return std::get<std::wstring>(value);
}

}  // namespace host
