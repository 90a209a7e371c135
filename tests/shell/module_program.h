// A fixture: runs the host with the module loaded, over a drawing of the test.
#pragma once

#include <gmock/gmock.h>

#include "tests/shell/small_drawing.h"
#include "tests/support/host_program.h"

namespace test_support {

class ModuleProgram : public HostProgram {
  protected:
    ModuleProgram() {
        // The module's settings files stand beside it.
        std::filesystem::copy_file(program_folder() / "Corvanes.arx", folder_ / "Corvanes.arx");
    }

    Outcome run(const std::string& script) const {
        write("a.scr", script);
        return start("House.dxf --load Corvanes.arx --script a.scr --verbose");
    }
    /// Runs a script that must succeed; returns what the host said.
    std::string succeed(const std::string& script) const {
        const Outcome outcome = run(script);
        EXPECT_EQ(outcome.status, 0U) << outcome.said;
        return outcome.said;
    }
};

}  // namespace test_support
