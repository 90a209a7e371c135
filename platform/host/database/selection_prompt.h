// The question "Select objects:".
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/host/database/entity_selector.h"
#include "platform/host/database/selection_set.h"
#include "platform/host/prompt/person.h"

namespace host {

/// Asks until the user is done. Answers: a point picks the entity there, or begins a rectangle (to the right a window,
/// to the left a crossing); Window, Crossing, BOX, ALL, Last, Previous, Remove, Add, Undo, each by its name or its
/// capitals; Return ends. What is picked with Shift is taken out. An option is one at the questions for corners too.
class SelectionPrompt {
  public:
    /// `single`: one answer that finds something is enough.
    SelectionPrompt(EntitySelector& selector, const SelectionFilter& filter, const dxf::Drawing& drawing,
                    Person& person, bool single = false);
    ~SelectionPrompt();
    SelectionPrompt(const SelectionPrompt&) = delete;
    SelectionPrompt& operator=(const SelectionPrompt&) = delete;

    /// False when the user cancelled.
    bool ask();
    const SelectionSet& selected() const { return selected_; }

  private:
    struct Step {
        bool removed;
        std::vector<dxf::RecordId> records;
    };
    enum class Corner { given, none, cancelled };

    Answer next_answer();
    /// False when the user cancelled.
    bool take_answer(const Answer& answer);
    bool take_point(const AcGePoint3d& point, double reach);
    /// Asks for what is missing of a rectangle.
    bool take_rectangle(std::wstring_view kind);
    Corner ask_corner(std::wstring_view prompt, const PointerGuide& guide, AcGePoint3d& corner);
    bool take_opposite(const AcGePoint3d& first, std::wstring_view kind);
    void take(const std::vector<dxf::RecordId>& found);
    void take_previous();
    void undo();
    void show();
    void print_result(size_t found, size_t changed);
    void refuse();

    EntitySelector& selector_;
    const SelectionFilter& filter_;
    const dxf::Drawing& drawing_;
    Person& person_;
    bool single_;
    bool removing_ = false;
    bool taking_out_ = false;       ///< whether the current answer takes entities out: removing_, or Shift was held
    std::optional<Answer> option_;  ///< given in place of a corner
    SelectionSet selected_;
    std::vector<Step> steps_;
    bool shown_ = false;  ///< as selected, for as long as this object lives
};

}  // namespace host
