#include "cleaner/vocabulary.h"

#include "cardwright/vcard_cleaner.h"
#include "cleaner/matching/extended_names.h"

namespace cardwright {

bool isAllowlistedName(TextView name) {
  return kAllowlistedNames.contains(name) || numberedConfigNameLength(name) != 0;
}

TextView VCardCleaner::CRLF() noexcept {
  return u"\r\n";
}

TextView VCardCleaner::const_memberUpper() noexcept {
  return kMemberName;
}

std::string_view VCardCleaner::identifierLocale() noexcept {
  return "en_US_POSIX";
}

const CharacterSet& VCardCleaner::envelopeTrimCharacterSet() {
  // White space and line breaks, the zero-width space and the byte-order mark.
  static const CharacterSet set = {{0x09, 0x0D},     {0x20, 0x20},     {0x85, 0x85},
                                   {0xA0, 0xA0},     {0x1680, 0x1680}, {0x2000, 0x200B},
                                   {0x2028, 0x2029}, {0x202F, 0x202F}, {0x205F, 0x205F},
                                   {0x3000, 0x3000}, {0xFEFF, 0xFEFF}};
  return set;
}

std::int64_t VCardCleaner::minExtendedFragmentLength() noexcept {
  return kMinExtendedFragmentLength;
}

std::span<const TextView> VCardCleaner::allowlistFixedUpper() noexcept {
  return kAllowlistedNames.names();
}

std::span<const TextView> VCardCleaner::canonicalPropertyTokensUpper() noexcept {
  return kCanonicalNames.names();
}

std::span<const TextView> VCardCleaner::singularPropertiesUpper() noexcept {
  return kSingularNames.names();
}

std::span<const TextView> VCardCleaner::allowlistPatternAlternations() noexcept {
  return kNumberedNameAlternations;
}

bool VCardCleaner::isAllowlistedProperty(TextView name) {
  return isAllowlistedName(name);
}

} // namespace cardwright
