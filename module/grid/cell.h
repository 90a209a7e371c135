// The grid's cell record: a text, a label, a data type and a cell type, and a mask of which of them are set.
#pragma once

#include <cstdint>
#include <memory>

namespace corvanes {

// The bits of a cell's property mask.
enum CellProperty : std::uint32_t {
    cell_text = 1,
    cell_label = 4,
    cell_data_type = 8,
    cell_type_index = 32,
    cell_type_options = 64
};

// What a cell's text stands for. Number, boolean and currency cells compare by their numeric value.
enum CellDataType : std::int16_t { data_text = 1, data_number = 2, data_boolean = 3, data_currency = 5 };

// A text that is either a copy of its own or a view of a text that its owner keeps.
class HeldText {
  public:
    HeldText() = default;
    HeldText(const HeldText& other) { copy(other.text_); }
    HeldText(HeldText&& other) noexcept;
    HeldText& operator=(const HeldText& other);
    HeldText& operator=(HeldText&& other) noexcept;
    ~HeldText() = default;

    void copy(const wchar_t* text);
    // The caller keeps `text` alive and unchanged for as long as this object shows it.
    void borrow(const wchar_t* text);
    const wchar_t* get() const { return text_; }

  private:
    const wchar_t* text_ = nullptr;
    std::unique_ptr<wchar_t[]> own_;
};

}  // namespace corvanes

// A value type. Copying a record copies its texts, also those that the original only borrowed.
class CUGCell {
  public:
    // A null text is taken as an empty one. The data type becomes text.
    void SetText(const wchar_t* text);
    // Sets the text without copying it: `text` must outlive the record's use of it.
    void BorrowText(const wchar_t* text);
    // Null when the cell has no text.
    const wchar_t* GetText() const { return text_.get(); }
    // The text's value as wcstod reads it, 0 without a text. Read once, then remembered: cheap inside a sort.
    double GetNumber() const;

    void SetLabelText(const wchar_t* text);
    void BorrowLabelText(const wchar_t* text);
    // Null when the cell has no label.
    const wchar_t* GetLabelText() const { return label_.get(); }

    void SetDataType(int type);
    // The data type; data_text when none is set.
    int GetDataType() const;

    void SetCellType(int index);
    // The index in the grid's table of cell types; 0, the normal type, when none is set.
    int GetCellType() const { return type_index_; }

    void SetCellTypeOptions(std::uint32_t bits);
    std::uint32_t GetCellTypeOptions() const { return options_; }

    // True when every one of `bits` is set (see corvanes::CellProperty).
    bool IsPropertySet(std::uint32_t bits) const { return (properties_ & bits) == bits; }
    std::uint32_t GetPropertyFlags() const { return properties_; }
    void ClearAll() { *this = CUGCell(); }

  private:
    corvanes::HeldText text_;
    corvanes::HeldText label_;
    mutable double number_ = 0;
    std::uint32_t properties_ = 0;
    std::uint32_t options_ = 0;
    std::int16_t data_type_ = 0;
    std::uint16_t type_index_ = 0;
    mutable bool number_known_ = false;
};
