// The outcome of a write.
#pragma once

#include <string>

#include "base/result.h"

namespace base {

/// Done, or the reason in words fit for a message ("No space left on device"), in UTF-8.
using WriteStatus = Outcome<std::string>;

}  // namespace base
