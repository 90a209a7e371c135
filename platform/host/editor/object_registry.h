// The system registry: the host's well-known objects, and services of modules, by name.
#pragma once

#include <map>
#include <string>

#include "rxdict.h"

namespace host {

class ObjectRegistry final : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override;
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override;
    AcRxObject* remove(const ACHAR* key) override;
    bool has(const ACHAR* key) const override { return at(key) != nullptr; }
    Adesk::UInt32 numEntries() const override { return static_cast<Adesk::UInt32>(objects_.size()); }

  private:
    std::map<std::wstring, AcRxObject*> objects_;  ///< by lower-case name
};

}  // namespace host
