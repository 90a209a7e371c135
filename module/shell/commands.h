// The bodies of the two commands.
#pragma once

namespace corvanes {

/// "QXBOMT": the price lists.
void template_command();

/// "QXBOMC": the priced report of the selected block references.
void report_command();

}  // namespace corvanes
