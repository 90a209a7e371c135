// Small questions to the drawing's objects.
#pragma once

#include <acdbads.h>
#include <acutads.h>
#include <dbmain.h>

#include <memory>
#include <optional>
#include <string>

namespace corvanes {

/// The groups of an object, as the host lists them. Empty for one that cannot be listed.
class ObjectGroups {
  public:
    /// With the extended data of one application, unless that is null.
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

/// The id that a group of a pointer holds.
AcDbObjectId id_in(const resbuf& pointer);

/// The name of a block; empty when it cannot be opened.
std::wstring block_name(AcDbObjectId record);

/// The block that an anonymous block of a dynamic block is a form of: told by the block itself, else by one of its
/// references. Nothing for other blocks.
std::optional<std::wstring> dynamic_block_name(AcDbObjectId record, AcDbObjectId reference);

}  // namespace corvanes
