#include "table/table_builder.h"

#include <afxwin.h>
#include <aced.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbsymtb.h>

#include <memory>

#include "bom/report_dialog.h"
#include "bom/report_options.h"
#include "bom/report_rows.h"
#include "table/table_name.h"

namespace corvanes {
namespace {

constexpr const wchar_t* table_style = L"KVOTABLE";
constexpr const wchar_t* table_style_font = L"simpheb.shx";
constexpr double table_text_height = 1.0;
constexpr double text_width_factor = 1.0;

AcDbDatabase* working_database() {
    return acdbHostApplicationServices()->workingDatabase();
}

AcGePoint3d point_of(TablePoint point) {
    return {point.x, point.y, 0};
}

std::vector<std::wstring> block_names() {
    std::vector<std::wstring> names;
    AcDbBlockTable* table = nullptr;
    if (working_database()->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) {
        return names;
    }
    AcDbBlockTableIterator* walk = nullptr;
    if (table->newIterator(walk, true, true) == Acad::eOk) {
        const std::unique_ptr<AcDbBlockTableIterator> iterator(walk);
        for (; !iterator->done(); iterator->step(true, true)) {
            AcDbBlockTableRecord* record = nullptr;
            if (iterator->getRecord(record, AcDb::kForRead) != Acad::eOk) {
                continue;
            }
            wchar_t* text = nullptr;
            if (record->getName(text) == Acad::eOk) {
                const std::unique_ptr<wchar_t, decltype(&acad_free)> name(text, acad_free);
                names.emplace_back(name.get());
            }
            record->close();
        }
    }
    table->close();
    return names;
}

/// The block's record, open for writing and made when it is missing; null after an alert.
AcDbBlockTableRecord* open_table_block(const std::wstring& block_name) {
    AcDbBlockTable* table = nullptr;
    AcDbBlockTableRecord* record = nullptr;
    Acad::ErrorStatus status = working_database()->getSymbolTable(table, AcDb::kForWrite);
    if (status == Acad::eOk) {
        status = table->getAt(block_name.c_str(), record, AcDb::kForWrite);
        if (status == Acad::eKeyNotFound) {
            auto made = std::make_unique<AcDbBlockTableRecord>();
            made->setName(block_name.c_str());
            status = table->add(made.get());
            record = status == Acad::eOk ? made.release() : nullptr;
        }
        table->close();
    }
    if (status != Acad::eOk) {
        acedAlert(L"Cannot get an object \"AcDbBlockTableRecord\" for the price table");
        return nullptr;
    }
    return record;
}

/// The style's id, that of "Standard" when it is missing; null after an alert.
AcDbObjectId text_style_id(const wchar_t* style_name) {
    AcDbTextStyleTable* table = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus status = working_database()->getSymbolTable(table, AcDb::kForRead);
    if (status == Acad::eOk) {
        status = table->getAt(style_name, id);
        if (status == Acad::eKeyNotFound) {
            status = table->getAt(L"Standard", id);
        }
        table->close();
    }
    if (status != Acad::eOk) {
        acedAlert(L"Cannot get an object \"AcDbTextStyleTableRecord\" for the price table");
        return AcDbObjectId::kNull;
    }
    return id;
}

/// The entity is the block's from then on; one that the block refuses goes.
void append(AcDbBlockTableRecord& block, std::unique_ptr<AcDbEntity> entity) {
    AcDbObjectId id;
    if (block.appendAcDbEntity(id, entity.get()) == Acad::eOk) {
        entity.release()->close();
    }
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
    AcDbTextStyleTable* table = nullptr;
    if (working_database()->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) {
        return false;
    }
    const bool there = table->has(table_style);
    if (!there) {
        auto style = std::make_unique<AcDbTextStyleTableRecord>();
        style->setName(table_style);
        style->setFileName(table_style_font);
        if (table->add(style.get()) == Acad::eOk) {
            style.release()->close();
        }
    }
    table->close();
    return there;
}

bool build_table_block(const TableLayout& layout, const std::wstring& block_name, const wchar_t* style_name) {
    AcDbBlockTableRecord* const block = open_table_block(block_name);
    if (block == nullptr) {
        return false;
    }
    const AcDbObjectId style = text_style_id(style_name);
    if (style.isNull()) {
        block->close();
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
    block->close();
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
