// Runs the drawing host as a user would, in a folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temporary_folder.h"

namespace test_support {

/// The result of a run of the program.
struct Outcome {
    unsigned long status = 0;
    std::string said;  ///< its standard error
};

/// A fixture with a folder in which the program runs; the folder is removed with the test.
class HostProgram : public testing::Test {
  protected:
    HostProgram();

    void write(const char* name, const std::string& bytes) const { folder_.write(name, bytes); }
    std::string read(const char* name) const { return folder_.read(name); }
    std::filesystem::path program_folder() const;

    /// Runs the program to its end; its watchdog ends a run that stalls. `arguments` are UTF-8.
    Outcome start(const std::string& arguments) const;

    TemporaryFolder folder_;
};

}  // namespace test_support
