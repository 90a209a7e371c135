// Reads facts about objects of the drawing: their groups, their names, and the dynamic blocks behind anonymous ones.
#pragma once

#include <acdbads.h>
#include <acutads.h>
#include <dbmain.h>
#include <dbsymtb.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvanes {

/// Owns the groups of an object, as the host lists them; empty when the object cannot be listed.
class ObjectGroups {
  public:
    /// With `application`, the groups include the extended data of that application; null asks for none.
    explicit ObjectGroups(AcDbObjectId id, const wchar_t* application = nullptr);

    const resbuf* first() const { return list_.get(); }
    /// The first group with a code, from `from` on; null without one.
    static const resbuf* find(const resbuf* from, int code);
    int integer(int code, int fallback) const;

  private:
    struct Release {
        void operator()(resbuf* list) const { acutRelRb(list); }
    };
    std::unique_ptr<resbuf, Release> list_;
};

/// The object id that a group with a pointer code holds.
AcDbObjectId id_in(const resbuf& pointer);

/// The drawing that commands work in; null when there is none.
AcDbDatabase* working_database();

/// The name of a block, a layer and the like, as the drawing spells it.
std::wstring name_of(const AcDbSymbolTableRecord& record);

/// A pattern, as selections take it, that stands for this name alone.
std::wstring literal_pattern(const std::wstring& name);

/// The name of a block; empty when it cannot be opened.
std::wstring block_name(AcDbObjectId record);

/// The names of the working drawing's blocks, in its order. Blocks that cannot be opened are left out.
std::vector<std::wstring> block_names();

/// The name of the dynamic block that an anonymous block is a form of. The anonymous block itself tells it, or else one
/// of its references. Nothing for other blocks.
std::optional<std::wstring> dynamic_block_name(AcDbObjectId record, AcDbObjectId reference);

}  // namespace corvanes
