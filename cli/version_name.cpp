#include "version_name.h"

namespace cardwright::tool {

std::optional<VersionCode> versionNamed(std::string_view name) {
  struct Version {
    std::string_view name;
    VersionCode code;
  };
  constexpr Version kVersions[] = {{"2.1", 2}, {"3.0", 3}, {"4.0", 4}};
  for (const Version& version : kVersions) {
    if (version.name == name) {
      return version.code;
    }
  }
  return std::nullopt;
}

} // namespace cardwright::tool
