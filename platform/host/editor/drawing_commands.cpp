#include <optional>
#include <utility>
#include <vector>

#include "aced.h"
#include "acedsel.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/insert_block.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/prompt/person.h"
#include "platform/host/view/style_tables.h"

namespace host {
namespace {

/// Why there can be no reference to a block of that name; empty when there can.
std::wstring reason_against(const AcDbDatabase& database, const std::wstring& name) {
    const DatabaseStore& store = database.store();
    const AcDbObjectId block = store.table_entry_named(TableKind::blocks, name);
    if (block.isNull()) {
        return L"The drawing has no block \"" + name + L"\".";
    }
    return store.blocks().is_layout(address_of(block).number)
               ? L"\"" + name + L"\" is a layout, which cannot be inserted."
               : std::wstring();
}

/// A number other than 0, `by_default` for Return; nothing when the user cancelled.
std::optional<double> ask_scale(const wchar_t* prompt, double by_default) {
    double scale = by_default;
    acedInitGet(RSG_NOZERO, nullptr);
    const int answer = acedGetReal(prompt, &scale);
    return answer == RTNORM || answer == RTNONE ? std::optional(scale) : std::nullopt;
}

/// Asks where and how to insert; nothing when the user cancelled.
std::optional<Insertion> ask_insertion() {
    ads_point position = {0, 0, 0};
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"\nSpecify insertion point: ", position) != RTNORM) {
        return std::nullopt;
    }
    const auto x_scale = ask_scale(L"\nEnter X scale factor <1>: ", 1);
    const auto y_scale = x_scale ? ask_scale(L"\nEnter Y scale factor <use X scale factor>: ", *x_scale) : std::nullopt;
    if (!y_scale) {
        return std::nullopt;
    }
    double degrees = 0;
    if (acedGetReal(L"\nSpecify rotation angle <0>: ", &degrees) == RTCAN) {
        return std::nullopt;
    }
    constexpr double radians_per_degree = 3.14159265358979323846 / 180;
    Insertion insertion;
    insertion.position.set(position[X], position[Y], position[Z]);
    insertion.scale = AcGeScale3d(*x_scale, *y_scale, *x_scale);
    insertion.rotation = degrees * radians_per_degree;
    return insertion;
}

/// Asks for the texts that are not preset; false when the user cancelled.
bool ask_attributes(std::vector<AttributeValue>& values) {
    bool announced = false;
    for (AttributeValue& value : values) {
        if (value.preset) {
            continue;
        }
        if (!std::exchange(announced, true)) {
            person().print(L"\nEnter attribute values");
        }
        const std::wstring proposal = value.text.empty() ? L": " : L" <" + value.text + L">: ";
        const Answer answer = person().prompt(L"\n" + value.prompt + proposal);
        if (answer.kind == Answer::cancel) {
            return false;
        }
        value.text = answer.kind == Answer::line ? answer.text : value.text;
    }
    return true;
}

/// Asks for the block, the insertion point, the scales and the rotation in degrees, and inserts the block. An empty or
/// unknown name is refused in words.
void insert(Editor& editor) {
    const Document* const document = open_document(editor);
    if (document == nullptr) {
        return;
    }
    const Answer name = person().prompt(L"\nEnter block name: ");
    if (name.kind == Answer::cancel) {
        return;
    }
    if (name.text.empty()) {
        person().report(L"INSERT needs a block name.");
        return;
    }
    AcDbDatabase& database = *document->database();
    if (const std::wstring reason = reason_against(database, name.text); !reason.empty()) {
        person().report(reason);
        return;
    }
    const auto insertion = ask_insertion();
    std::vector<AttributeValue> values;  // without them the attributes say what their definitions do
    if (editor.variables.get(L"ATTREQ") != VariableValue(0)) {
        values = attributes_of_block(database, name.text.c_str());
    }
    if (!insertion || !ask_attributes(values)) {
        return;
    }
    AcDbObjectId reference;
    if (insert_block(database, name.text.c_str(), *insertion, reference, values) != Acad::eOk) {
        person().report(L"Block \"" + name.text + L"\" cannot be inserted so.");
    }
}

/// Has the user select; empty when nothing was selected.
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

/// The objects that are selected already, or else those that the user selects now.
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

/// Erases the selection, but for what stands on locked layers.
void erase(Editor& editor) {
    const Document* const document = open_document(editor);
    if (document == nullptr) {
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

void undo(Editor& editor) {
    const Document* const document = editor.documents.document();
    std::optional<std::wstring> undone;
    if (document != nullptr) {
        undone = document->drawing().undo();
        editor.drawing_variables.follow(document->drawing());
    }
    person().print(L"\n" + undone.value_or(L"Nothing to undo."));
}

}  // namespace

void add_drawing_commands(Editor& editor) {
    editor.add_command(L"AI_SELALL", select_all);
    editor.add_command(L"ERASE", erase);
    editor.add_command(L"INSERT", insert);
    editor.add_command(L"U", undo);
    editor.add_command(L"UNDO", undo);
}

}  // namespace host
