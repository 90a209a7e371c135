// What this host offers to modules of its own, beyond the interface that it shares with the big program.
#pragma once

#include <optional>
#include <string>

/// The open drawing as SVGOUT writes it for a browser, in UTF-8. Nothing where it has more elements than a browser
/// opens soon, or where no drawing is open. Tells the person what it leaves out. The text is written into `memory`,
/// whatever is there.
std::optional<std::string> hostDrawingAsSvg(std::string memory = {});
