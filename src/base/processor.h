#pragma once

namespace cardwright {

/// Whether the processor has what functions of wide lanes need. Tests turn it off, to look at what
/// is done on others.
extern bool usesWideLanes; // NOLINT: written by tests only

} // namespace cardwright
