#pragma once

#include <cardwright/text.h>

#include <optional>
#include <string>
#include <string_view>

namespace cardwright::tool {

// What the page is told about the bytes of a file. Nothing is kept between the questions.

/// The cards as people read them, what was repaired, and what is wrong, as JSON; docs/page.md tells
/// its form.
[[nodiscard]] std::string lookAnswer(std::string_view bytes);

/// What converting to a version changes and leaves out, as JSON.
[[nodiscard]] std::string changesAnswer(std::string_view bytes, VersionCode version);

/// The file, repaired and then converted where a version is given: the bytes that "clean" and
/// "convert" write.
[[nodiscard]] std::string resultAnswer(std::string_view bytes, std::optional<VersionCode> version);

} // namespace cardwright::tool
