// AcDbObjectPointer: an open object that is closed when the pointer ends.
#pragma once

#include "dbmain.h"

template <class T>
class AcDbObjectPointer {
  public:
    AcDbObjectPointer() = default;
    AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) { open(id, mode, openErased); }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;

    /// The result of the last opening.
    Acad::ErrorStatus openStatus() const { return status_; }
    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) {
        close();
        return status_ = acdbOpenObject(object_, id, mode, openErased);
    }
    Acad::ErrorStatus close() {
        if (object_ == nullptr) {
            return Acad::eNullObjectPointer;
        }
        T* const closing = object_;
        object_ = nullptr;
        status_ = Acad::eNullObjectPointer;
        return closing->close();
    }
    T* object() const { return object_; }
    T* operator->() const { return object_; }
    operator T*() const { return object_; }

  private:
    T* object_ = nullptr;
    Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};
