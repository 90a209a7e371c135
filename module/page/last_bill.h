// LastBill, which finds the bill that the last report of the open drawing has written.
#pragma once

#include <acdocman.h>

#include <filesystem>
#include <optional>

#include "base/file_contents.h"
#include "base/temporary_folder.h"

namespace corvanes {

/// From its construction on CORVANES_JSON names a file that reports write their bill into: the one that the person has
/// named, or else one of its own. A bill that was there before the drawing was opened belongs to another drawing.
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
    /// A file and the time of its last change, in the units of the file system.
    struct Version {
        std::filesystem::path file;
        unsigned long long changed = 0;  ///< 0 when there is none
        bool operator==(const Version& other) const = default;
    };
    static Version version_there();

    base::TemporaryFolder folder_;
    bool names_file_ = false;  ///< whether this object has set CORVANES_JSON
    Version older_;
};

}  // namespace corvanes
