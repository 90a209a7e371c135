#include "dbtxttbl.h"

#include "acutmem.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, 0)

namespace {

constexpr int shape_file_bit = 1;

}  // namespace

AcDbTextStyleTable::AcDbTextStyleTable() : AcDbTypedSymbolTable(host::TableKind::text_styles) {}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& file) const {
    need_fields();
    file = acad__strdup(file_.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* file) {
    if (file == nullptr) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        file_ = file;
    }
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& file) const {
    need_fields();
    file = acad__strdup(big_font_.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* file) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        big_font_ = file == nullptr ? ACRX_T("") : file;
    }
    return status;
}

double AcDbTextStyleTableRecord::textSize() const {
    need_fields();
    return size_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    if (!(size >= 0)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        size_ = size;
    }
    return status;
}

double AcDbTextStyleTableRecord::xScale() const {
    need_fields();
    return x_scale_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double factor) {
    if (!(factor > 0)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        x_scale_ = factor;
    }
    return status;
}

bool AcDbTextStyleTableRecord::isShapeFile() const {
    need_fields();
    return (flags_ & shape_file_bit) != 0;
}

void AcDbTextStyleTableRecord::read_fields(const host::FieldReader& from) {
    AcDbSymbolTableRecord::read_fields(from);
    size_ = from.real(40);
    x_scale_ = from.real(41, 1.0);
    oblique_ = from.angle(50);
    generation_ = from.integer(71);
    prior_size_ = from.real(42, 0.2);
    file_ = from.text(3);
    big_font_ = from.text(4);
}

void AcDbTextStyleTableRecord::write_fields(host::FieldWriter& to) const {
    to.begin(L"STYLE", L"AcDbSymbolTableRecord").subclass(L"AcDbTextStyleTableRecord");
    // A style's fields are always there.
    to.text(2, name_).integer(70, flags_).real(40, size_).real(41, x_scale_).angle(50, oblique_);
    to.integer(71, generation_).real(42, prior_size_).text(3, file_).text(4, big_font_);
}
