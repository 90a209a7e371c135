// LastBill, the bill that the last report made of the drawing that is open.
#pragma once

#include <acdocman.h>

#include <filesystem>
#include <optional>

#include "base/file_contents.h"
#include "base/temporary_folder.h"

namespace corvanes {

/// From its construction on there is a file that reports write their bill into (CORVANES_JSON): the person's, or else
/// one of its own. A bill that was there when the drawing was opened is another drawing's.
class LastBill final : public AcApDocManagerReactor {
  public:
    LastBill();
    ~LastBill() override;
    LastBill(const LastBill&) = delete;
    LastBill& operator=(const LastBill&) = delete;

    /// The bill's JSON; nothing when no report of the open drawing has written one.
    std::optional<base::FileContents> read() const;

    void documentActivated(AcApDocument*) override { older_ = version_there(); }

  private:
    /// The file and the time of its last change, in the units of its disk.
    struct Version {
        std::filesystem::path file;
        unsigned long long changed = 0;  ///< 0 when there is none
        bool operator==(const Version& other) const = default;
    };
    static Version version_there();

    base::TemporaryFolder folder_;
    bool names_file_ = false;  ///< the value of the environment is its own
    Version older_;
};

}  // namespace corvanes
