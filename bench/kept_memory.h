#pragma once

namespace cardwright {

/// Gets, once in the process, as much memory from the system as the largest measurements need, and
/// keeps it for whoever allocates next. Otherwise each measurement pays for pages that the system
/// clears, and the first ones, in a virtual machine, for those that it gets from its host: many
/// times what is measured.
void keepMemory();

} // namespace cardwright
