// Edits to a file's bytes: pieces put in before a place, and ranges replaced.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/record.h"

namespace dxf {

/// The pieces that edits added and where they go. The original bytes are never copied or changed.
class EditList {
  public:
    bool empty() const { return edits_.empty(); }
    /// How many edits were made in all; it never goes back.
    uint64_t made() const { return made_; }
    /// The size of all pieces.
    uint64_t bytes() const;

    /// Adds `bytes` directly before a place of the original or before another piece, after all that was put there
    /// before it. Returns the new piece's place.
    Place insert_before(Place place, std::string bytes);

    /// Whether something was put before a place of the original.
    bool has_pieces_before(Place place) const;

    /// Puts `bytes` instead of the original range [place, place + length), or instead of the whole piece at `place`.
    /// Returns the new bytes' place: a piece keeps its own.
    Place replace(Place place, uint64_t length, std::string bytes);

    /// Leaves out the original range or the piece. The place itself stays good for insert_before().
    void erase(Place place, uint64_t length);

    std::string_view piece(Place place) const;

    /// Calls `emit(bytes, place)` for each stretch of the edited file in order, original stretches and pieces.
    /// Stops and returns false when `emit` does.
    using Emit = std::function<bool(std::string_view bytes, Place place)>;
    bool apply(std::string_view original, const Emit& emit) const;

  private:
    struct Edit {
        std::vector<uint64_t> before;  ///< pieces, in order
        std::optional<uint64_t> replacement;
        uint64_t skip = 0;  ///< original bytes that the edit leaves out
    };
    uint64_t add_piece(std::string bytes, uint64_t anchor);

    std::map<uint64_t, Edit> edits_;  ///< by original offset
    std::deque<std::string> pieces_;
    std::vector<uint64_t> anchors_;  ///< by piece: the original offset under which it stands
    uint64_t made_ = 0;
};

}  // namespace dxf
