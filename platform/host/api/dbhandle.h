// AcDbHandle: the number that names an object within its drawing for ever.
#pragma once

#include "adesk.h"

class AcDbHandle {
  public:
    enum { kStrSiz = 17 };

    AcDbHandle() = default;
    AcDbHandle(Adesk::UInt32 low, Adesk::UInt32 high) : value_(Adesk::UInt64{high} << 32 | low) {}
    explicit AcDbHandle(Adesk::UInt64 value) : value_(value) {}
    explicit AcDbHandle(const ACHAR* hexadecimal);

    bool isNull() const { return value_ == 0; }
    void setNull() { value_ = 0; }
    Adesk::UInt32 low() const { return static_cast<Adesk::UInt32>(value_); }
    Adesk::UInt32 high() const { return static_cast<Adesk::UInt32>(value_ >> 32); }
    operator Adesk::UInt64() const { return value_; }

    /// Hexadecimal in capitals without leading zeros; `buffer` holds kStrSiz characters. False for a null buffer.
    bool getIntoAsciiBuffer(ACHAR* buffer) const;

  private:
    Adesk::UInt64 value_ = 0;
};
