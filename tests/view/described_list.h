// Builds small drawings for tests, and describes display lists as text.
#pragma once

#include <memory>
#include <string>

#include "platform/host/view/display_list.h"
#include "platform/host/view/outline.h"

namespace host {

/// A drawing from sections written as "code value" groups with "|" between them; the "0 EOF" is added.
std::unique_ptr<dxf::Drawing> drawing_of(const std::string& groups);

/// Wraps entities, blocks or tables in their section.
std::string entities(const std::string& groups);
std::string blocks(const std::string& groups);
std::string tables(const std::string& groups);
/// A block with its base point at the origin, and a LAYER entry.
std::string block(const std::string& name, const std::string& groups);
std::string layer(const std::string& name, int colour, int flags = 0);

/// One line for each primitive that is seen, block references resolved: kind, colour and world coordinates.
std::string described(const DisplayList& list);
std::string described(const std::string& groups);

/// A typesetter whose letters are boxes, twice as high as wide; with the space behind it, a letter is 1 wide.
class BoxLetters final : public Typesetter {
  public:
    const TextShape& shape(const TextItem& item, const FontFace&) override {
        ++asked;
        line_ = TextShape();
        const Outline letter{{{0, 0}, {0.5, 0}, {0.5, 1}, {0, 1}}, {4}};
        for (size_t i = 0; i < item.text.size(); ++i) {
            line_.outline.append(letter, static_cast<double>(i));
        }
        line_.width = static_cast<double>(item.text.size());
        return line_;
    }
    size_t asked = 0;

  private:
    TextShape line_;
};

}  // namespace host
