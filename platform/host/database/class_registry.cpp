#include "platform/host/database/class_registry.h"

#include "dbents.h"
#include "dbsymtb.h"

namespace host {
namespace {

struct RecordClass {
    std::wstring_view type;
    AcRxClass* (*descriptor)();
};

constexpr RecordClass record_classes[] = {
    {L"INSERT", AcDbBlockReference::desc},
    {L"LINE", AcDbLine::desc},
    {L"TEXT", AcDbText::desc},
    {L"ATTDEF", AcDbAttributeDefinition::desc},
    {L"ATTRIB", AcDbAttribute::desc},
    {L"LAYER", AcDbLayerTableRecord::desc},
    {L"STYLE", AcDbTextStyleTableRecord::desc},
};

}  // namespace

AcRxClass* class_of_dxf_name(std::wstring_view type) {
    for (const RecordClass& known : record_classes) {
        if (known.type == type) {
            return known.descriptor();
        }
    }
    return AcDbEntity::desc();
}

}  // namespace host

AcRxClass::AcRxClass(const ACHAR* className, AcRxClass* parent, const ACHAR* dxfName, Constructor constructor)
    : name_(className),
      parent_(parent),
      dxf_name_(dxfName == nullptr && parent != nullptr ? parent->dxf_name_ : dxfName),
      constructor_(constructor) {}

AcRxClass* AcRxObject::desc() {
    static AcRxClass descriptor(ACRX_T("AcRxObject"), nullptr, nullptr, nullptr);
    return &descriptor;
}

AcRxClass* AcRxObject::isA() const {
    return AcRxObject::desc();
}

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxClass, AcRxObject)
