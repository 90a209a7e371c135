// The lines that were typed, for going back to them.
#pragma once

#include <string>
#include <vector>

namespace host {

class CommandHistory {
  public:
    /// Adds a line that was entered, and goes to the end. The same one again, or an empty one, is not added.
    void add(const std::wstring& line);
    /// The line before; the first stays. `typed`: what stands in the line now, kept as the end of the walk.
    std::wstring earlier(const std::wstring& typed);
    /// The line behind; at the end what stood there when the walk began.
    std::wstring later(const std::wstring& typed);

  private:
    static constexpr size_t most = 200;
    std::vector<std::wstring> lines_;
    size_t at_ = 0;  ///< lines_.size() at the end
    std::wstring unfinished_;
};

}  // namespace host
