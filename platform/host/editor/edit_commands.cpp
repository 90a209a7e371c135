#include <utility>
#include <vector>

#include "acedsel.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "platform/host/database/database_store.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/prompt/person.h"
#include "platform/host/view/style_tables.h"

namespace host {
namespace {

/// Has the user select.
std::vector<AcDbObjectId> ask_selection() {
    std::vector<AcDbObjectId> ids;
    ads_name set;
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) {
        return ids;
    }
    long length = 0;
    acedSSLength(set, &length);
    for (long at = 0; at < length; ++at) {
        ads_name entity;
        acedSSName(set, at, entity);
        ids.push_back(AcDbObjectId().setFromOldId(entity[0]));
    }
    acedSSFree(set);
    return ids;
}

/// What is selected already, or else what the user selects now.
std::vector<AcDbObjectId> selection_of(Editor& editor, const Document& document) {
    const std::vector<dxf::RecordId> records = editor.selection.records();
    if (records.empty()) {
        return ask_selection();
    }
    person().print(L"\n" + std::to_wstring(records.size()) + L" found");
    std::vector<AcDbObjectId> ids;
    for (const dxf::RecordId record : records) {
        ids.push_back(document.database()->store().id_of_record(record));
    }
    return ids;
}

/// What stands on locked layers stays.
void erase(Editor& editor) {
    const Document* const document = editor.documents.document();
    if (document == nullptr) {
        person().report(L"No drawing is open.");
        return;
    }
    const std::vector<AcDbObjectId> ids = selection_of(editor, *document);
    const LayerStates layers(document->drawing());
    size_t locked = 0;
    for (const AcDbObjectId id : ids) {
        if (layers.of(document->drawing().record(address_of(id).number).layer).locked) {
            ++locked;
            continue;
        }
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
        if (object.openStatus() != Acad::eOk || object->erase() != Acad::eOk) {
            person().report(L"An object could not be erased.");
        }
    }
    if (locked != 0) {
        person().print(L"\n" + std::to_wstring(locked) + (locked == 1 ? L" was" : L" were") + L" on a locked layer.");
    }
}

void select_all(Editor& editor) {
    editor.selection.take_all();
    person().print(L"\nSelecting objects...done.");
}

}  // namespace

void add_edit_commands(Editor& editor) {
    editor.add_command(L"AI_SELALL", select_all);
    editor.add_command(L"ERASE", erase);
}

}  // namespace host
