// acedCommand: a command of the host, answered from an argument list.
#include <cstdarg>
#include <deque>

#include "acedads.h"
#include "platform/host/editor/editor.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

/// An argument list in a person's place: it answers, and the person outside sees what happens; with CMDECHO 0, only
/// problems.
class ArgumentPerson final : public Person {
  public:
    /// An empty argument stands for Return. `outer` is borrowed.
    ArgumentPerson(std::deque<std::wstring> arguments, Person& outer)
        : arguments_(std::move(arguments)),
          outer_(outer),
          echoes_(editor().variables.get(L"CMDECHO") != VariableValue(0)) {}

    /// Answers with the next argument; when there is none, with cancel, and ran_out() is true from then on.
    Answer prompt(std::wstring_view, const PointerGuide&) override {
        if (arguments_.empty()) {
            ran_out_ = true;
            return {};
        }
        Answer answer{arguments_.front().empty() ? Answer::return_only : Answer::line, std::move(arguments_.front())};
        arguments_.pop_front();
        return answer;
    }
    void print(std::wstring_view text) override {
        if (echoes_) {
            outer_.print(text);
        }
    }
    void report(std::wstring_view problem) override {
        refused_ = true;
        outer_.report(problem);
    }
    void draw_vector(const Point& from, const Point& to, int colour, bool highlight) override {
        outer_.draw_vector(from, to, colour, highlight);
    }
    void show_selected(const std::vector<dxf::RecordId>& entities) override { outer_.show_selected(entities); }
    bool is_script() const override { return outer_.is_script(); }
    bool has_typed_ahead() const override { return !arguments_.empty(); }

    bool ran_out() const { return ran_out_; }
    /// Whether a problem was reported, which means that an argument was refused.
    bool refused() const { return refused_; }
    /// Whether there are arguments that no prompt asked for.
    bool has_more() const { return !arguments_.empty(); }

  private:
    std::deque<std::wstring> arguments_;
    Person& outer_;
    const bool echoes_;
    bool ran_out_ = false;
    bool refused_ = false;
};

using Arguments = std::deque<std::wstring>;

/// The arguments as a person would type them.
base::Result<Arguments> read_arguments(int type, va_list list) {
    Arguments typed;
    for (; type != RTNONE && type != 0; type = va_arg(list, int)) {
        switch (type) {
            case RTSTR: {
                const ACHAR* const text = va_arg(list, const ACHAR*);
                typed.emplace_back(text != nullptr ? text : L"");
                break;
            }
            case RTREAL:
            case RTANG:
            case RTORINT:
                typed.push_back(format_real(va_arg(list, double)));
                break;
            case RTSHORT:
                typed.push_back(std::to_wstring(static_cast<short>(va_arg(list, int))));
                break;
            case RTLONG:
                typed.push_back(std::to_wstring(va_arg(list, Adesk::Int32)));
                break;
            case RTPOINT:
            case RT3DPOINT: {
                const ads_real* const point = va_arg(list, const ads_real*);
                typed.push_back(format_point({point[X], point[Y], type == RTPOINT ? 0 : point[Z]}));
                break;
            }
            default:
                return base::Failure{L"acedCommand was given an argument of a type that cannot be typed."};
        }
    }
    return typed;
}

int run(base::Result<Arguments> arguments) {
    Person& outer = person();
    if (!arguments) {
        outer.report(arguments.reason());
        return RTERROR;
    }
    if (arguments->empty()) {
        return RTNORM;
    }
    const std::wstring name = arguments->front();
    arguments->pop_front();
    ArgumentPerson answers(*std::move(arguments), outer);
    const PersonScope scope(answers);
    if (!editor().processor.run_built_in(name)) {
        outer.report(L"Unknown command \"" + name + L"\".");
        return RTREJ;
    }
    if (answers.ran_out() || answers.has_more()) {
        outer.report(name + (answers.ran_out() ? L" needs more arguments." : L" was given too many arguments."));
        return RTERROR;
    }
    return answers.refused() ? RTERROR : RTNORM;
}

}  // namespace
}  // namespace host

int acedCommand(int rtype, ...) {
    va_list list;
    va_start(list, rtype);
    base::Result<host::Arguments> arguments = host::read_arguments(rtype, list);
    va_end(list);
    return host::run(std::move(arguments));
}
