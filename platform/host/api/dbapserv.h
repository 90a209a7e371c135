// The services that the host gives to the database: above all the working drawing.
#pragma once

#include "dbmain.h"

class AcDbHostApplicationServices {
  public:
    /// The drawing that commands work on; null while none is open.
    AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

  private:
    AcDbDatabase* working_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
