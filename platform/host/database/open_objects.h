// OpenObjects, the objects of a drawing that are open, with the one instance that stands for each.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/database/object_id.h"

class AcDbObject;

namespace host {

/// Instances by address: direct arrays that grow in pages as addresses are used.
class OpenObjects {
  public:
    OpenObjects();
    ~OpenObjects();
    OpenObjects(const OpenObjects&) = delete;
    OpenObjects& operator=(const OpenObjects&) = delete;

    /// Null while the object is closed.
    AcDbObject* at(ObjectAddress at) const {
        const std::vector<std::unique_ptr<Page>>& pages = pages_[static_cast<size_t>(at.space)];
        const size_t page = at.number / page_size;
        return page < pages.size() && pages[page] ? (*pages[page])[at.number % page_size] : nullptr;
    }
    void put(ObjectAddress at, AcDbObject& object);
    void remove(ObjectAddress at);

    size_t count() const { return count_; }
    std::vector<AcDbObject*> all() const;

  private:
    static constexpr size_t page_size = 4096;
    using Page = std::array<AcDbObject*, page_size>;

    std::array<std::vector<std::unique_ptr<Page>>, object_space_count> pages_;
    size_t count_ = 0;
};

/// How many objects of all open drawings are open now.
size_t open_object_count();

/// A line for each open object of all drawings: class, handle and how it is open. Empty when none is open.
std::wstring open_object_report();
/// The same for those of one drawing.
std::wstring open_object_report(const OpenObjects& objects);

}  // namespace host
