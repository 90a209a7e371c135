#include "table/table_builder.h"

#include <aced.h>
#include <dbmain.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <memory>

#include "bom/report_dialog.h"
#include "bom/report_options.h"
#include "bom/report_rows.h"
#include "common/drawing_objects.h"
#include "table/table_name.h"

namespace corvanes {
namespace {

constexpr const wchar_t* table_style = L"KVOTABLE";
constexpr const wchar_t* table_style_font = L"simpheb.shx";
constexpr double table_text_height = 1.0;
constexpr double text_width_factor = 1.0;

AcGePoint3d point_of(TablePoint point) {
    return {point.x, point.y, 0};
}

/// Closes an object that its owner took, and deletes one that the owner refused. Returns `status`.
Acad::ErrorStatus added(Acad::ErrorStatus status, std::unique_ptr<AcDbObject> object) {
    if (status == Acad::eOk) {
        object.release()->close();
    }
    return status;
}

/// Opens the block's record for writing, and makes it first when it is missing. False, after an alert, when that fails.
bool open_table_block(const std::wstring& block_name, AcDbObjectPointer<AcDbBlockTableRecord>& block) {
    const AcDbObjectPointer<AcDbBlockTable> table(working_database()->blockTableId(), AcDb::kForWrite);
    Acad::ErrorStatus status = table.openStatus();
    AcDbObjectId id;
    if (status == Acad::eOk) {
        status = table->getAt(block_name.c_str(), id);
    }
    if (status == Acad::eKeyNotFound) {
        auto made = std::make_unique<AcDbBlockTableRecord>();
        made->setName(block_name.c_str());
        status = table->add(id, made.get());
        added(status, std::move(made));
    }
    if (status != Acad::eOk || block.open(id, AcDb::kForWrite) != Acad::eOk) {
        acedAlert(L"Cannot get an object \"AcDbBlockTableRecord\" for the price table");
        return false;
    }
    return true;
}

/// The style's id, that of "Standard" when it is missing; null after an alert.
AcDbObjectId text_style_id(const wchar_t* style_name) {
    const AcDbObjectPointer<AcDbTextStyleTable> table(working_database()->textStyleTableId(), AcDb::kForRead);
    AcDbObjectId id;
    Acad::ErrorStatus status = table.openStatus();
    if (status == Acad::eOk) {
        status = table->getAt(style_name, id);
    }
    if (status == Acad::eKeyNotFound) {
        status = table->getAt(L"Standard", id);
    }
    if (status != Acad::eOk) {
        acedAlert(L"Cannot get an object \"AcDbTextStyleTableRecord\" for the price table");
        return AcDbObjectId::kNull;
    }
    return id;
}

void append(AcDbBlockTableRecord& block, std::unique_ptr<AcDbEntity> entity) {
    AcDbObjectId id;
    const Acad::ErrorStatus status = block.appendAcDbEntity(id, entity.get());
    added(status, std::move(entity));
}

void append_line(AcDbBlockTableRecord& block, const TableRule& rule) {
    append(block, std::make_unique<AcDbLine>(point_of(rule.start), point_of(rule.end)));
}

void append_attribute_definition(AcDbBlockTableRecord& block, const TableText& text, double height,
                                 AcDbObjectId style) {
    auto definition = std::make_unique<AcDbAttributeDefinition>(point_of(text.position), text.text.c_str(),
                                                                text.tag.c_str(), text.tag.c_str(), style);
    definition->setHeight(height);
    definition->setWidthFactor(text_width_factor);
    definition->setInvisible(false);
    definition->setVerifiable(false);
    definition->setPreset(false);
    switch (text.alignment) {
        case CellAlignment::left:
            definition->setHorizontalMode(AcDb::kTextLeft);
            definition->setPosition(point_of(text.position));
            break;
        case CellAlignment::centre:
            definition->setHorizontalMode(AcDb::kTextCenter);
            definition->setPosition(point_of(text.position));
            definition->setAlignmentPoint(point_of(text.alignment_point));
            break;
        case CellAlignment::right:
            definition->setHorizontalMode(AcDb::kTextRight);
            definition->setAlignmentPoint(point_of(text.alignment_point));
            break;
    }
    append(block, std::move(definition));
}

}  // namespace

bool ensure_table_text_style() {
    const AcDbObjectPointer<AcDbTextStyleTable> table(working_database()->textStyleTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) {
        return false;
    }
    const bool there = table->has(table_style);
    if (!there) {
        auto style = std::make_unique<AcDbTextStyleTableRecord>();
        style->setName(table_style);
        style->setFileName(table_style_font);
        const Acad::ErrorStatus status = table->add(style.get());
        added(status, std::move(style));
    }
    return there;
}

bool build_table_block(const TableLayout& layout, const std::wstring& block_name, const wchar_t* style_name) {
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    if (!open_table_block(block_name, block)) {
        return false;
    }
    const AcDbObjectId style = text_style_id(style_name);
    if (style.isNull()) {
        return false;
    }
    for (const TableLayout::Item& item : layout.order) {
        if (item.is_rule) {
            append_line(*block, layout.rules[item.index]);
        } else {
            append_attribute_definition(*block, layout.texts[item.index], layout.text_height, style);
        }
    }
    block->setOrigin(point_of(layout.origin));
    return true;
}

void insert_table_requested(CalcPriceDialog& dialog) {
    dialog.SaveReportSettingsAndClose();
    ensure_table_text_style();
    const auto name = next_table_name(block_names());
    if (!name) {
        acedAlert(L"Too large number for name of table price");
        dialog.EndDialog(IDCANCEL);
        return;
    }
    const TableLayout layout =
        lay_out_table(shown_rows(dialog.grid()), report_options().show_prices, table_text_height);
    const bool built = build_table_block(layout, *name, table_style);
    dialog.table() = {*name, layout.width, layout.height};
    dialog.EndDialog(built ? IDOK : IDCANCEL);
}

double current_text_size() {
    resbuf value{};
    return acedGetVar(L"TEXTSIZE", &value) == RTNORM ? value.resval.rreal : 0;
}

}  // namespace corvanes
