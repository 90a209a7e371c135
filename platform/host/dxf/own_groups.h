// Which of the groups between a record's type and the next record are the record's own.
#pragma once

#include "platform/host/dxf/group.h"
#include "platform/host/dxf/group_cursor.h"

namespace dxf {

/// Tells which groups are a record's own; reading, writing and drawing all use it. Not a record's own are the lists of
/// applications and reactors (102 "{…" to 102 "}"), embedded objects (from 101 on, with the codes of another type:
/// those of an MTEXT in an attribute of several lines) and extended data (from 1000 on). The last two go on to the
/// record's end.
class OwnGroups {
  public:
    /// To be asked about each group behind the record's type, in order.
    bool owns(const Group& group) { return group.code <= last_usual_code ? !ended_ && !in_list_ : owns_unusual(group); }
    /// Whether none of the groups that follow will be the record's own.
    bool ended() const { return ended_; }

    static constexpr int embedded_object = 101;
    static constexpr int first_extended_code = 1000;

  private:
    static constexpr int last_usual_code = 100;
    static constexpr int control_string = 102;

    bool owns_unusual(const Group& group) {
        if (group.code == embedded_object || group.code >= first_extended_code) {
            ended_ = true;
        } else if (group.code == control_string) {
            in_list_ = group.word().starts_with('{');
            return false;
        }
        return !ended_ && !in_list_;
    }

    bool in_list_ = false;
    bool ended_ = false;
};

/// Walks a record's own groups, its type (code 0, or 9 of a header variable) first.
class OwnGroupCursor {
  public:
    explicit OwnGroupCursor(const GroupCursor& at_record) : cursor_(at_record) {}

    bool next(Group& group) {
        if (!begun_) {
            begun_ = true;
            return cursor_.next(group);
        }
        while (!own_.ended() && cursor_.next(group) && group.code != 0) {
            if (own_.owns(group)) {
                return true;
            }
        }
        return false;
    }

  private:
    GroupCursor cursor_;
    OwnGroups own_;
    bool begun_ = false;
};

}  // namespace dxf
