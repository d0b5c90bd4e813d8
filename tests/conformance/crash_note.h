#pragma once

#include <string_view>

namespace cardwright::conformance {

/// From now on a signal that ends the process is preceded by a line on standard error that names
/// the case being run.
void installCrashNote();

/// Says which case is being run.
void setRunningCase(std::string_view id, std::string_view operation);

} // namespace cardwright::conformance
