// The host's dialog library.
#pragma once

/// Makes the dialog library usable by this module. To be called when the module's library is attached; more than once
/// does no harm.
void InitAcUiDLL();
