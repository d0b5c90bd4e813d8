#pragma once

#include "cli/process.h"

#include <functional>
#include <string>
#include <vector>

namespace cardwright::tool {

/// Where a page is served.
struct Served {
  std::string address; ///< as it was printed
  int port = 0;
  std::string path; ///< "/TOKEN/"
};

/// Runs "cardwright serve", does something with it, and ends it by SIGINT.
[[nodiscard]] Outcome whileServing(const std::function<void(const Served&)>& use,
                                   Invocation invocation = {{"serve"}, ""});

} // namespace cardwright::tool
