#include "face/writing/safe_names.h"

#include "base/whitespace.h"
#include "face/writing/safe_texts.h"

namespace cardwright {

namespace {

bool isControl(char32_t codePoint) noexcept {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

/// @param delimiters characters that end such a name
Text cleaned(TextView name, TextView delimiters) {
  Text kept;
  kept.reserve(name.size());
  for (std::size_t at = 0; at < name.size();) {
    const char32_t codePoint = codePointAt(name, at);
    const std::size_t length = unitLength(codePoint);
    const TextView character = name.substr(at, length);
    at += length;
    if (isControl(codePoint) || isSurrogate(codePoint) ||
        (length == 1 && delimiters.find(character.front()) != TextView::npos)) {
      continue;
    }
    if (codePoint == U'#') {
      while (kept.ends_with(u'&')) {
        kept.pop_back();
      }
    }
    kept.append(character);
  }
  return Text(trimWhitespaceAndNewlines(kept));
}

} // namespace

std::optional<Text> cleanedGroup(std::optional<TextView> group) {
  if (!group || group->empty()) {
    return group ? std::optional<Text>(Text()) : std::nullopt;
  }
  Text clean = cleaned(*group, u":;\".");
  return clean.empty() ? std::nullopt : std::optional<Text>(std::move(clean));
}

Text cleanedPropertyName(TextView name, bool hasGroup) {
  return cleaned(name, hasGroup ? u":;\"" : u":;\".");
}

Text cleanedParameterName(TextView name) {
  return cleaned(name, u":;\"=");
}

} // namespace cardwright
