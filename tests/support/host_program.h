// Runs the drawing host as a user would, in a folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace test_support {

/// What a run of the program came to.
struct Outcome {
    unsigned long status = 0;
    std::string said;  ///< its standard error
};

std::string contents(const std::filesystem::path& path);

/// A test with a folder of its own, which the program runs in; it goes with the test.
class HostProgram : public testing::Test {
  protected:
    HostProgram();
    ~HostProgram() override;

    void write(const char* name, const std::string& bytes) const;
    std::string read(const char* name) const { return contents(folder_ / name); }
    std::filesystem::path program_folder() const;

    /// Waits for the program, whose watchdog ends a run that stalls. `arguments` are UTF-8.
    Outcome start(const std::string& arguments) const;

    std::filesystem::path folder_;
};

}  // namespace test_support
