#include "text/file_names.h"

#include "text/words.h"

#include <cardwright/utf8.h>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>

namespace cardwright::tool {

namespace {

constexpr std::size_t kMostBytes = 120; ///< of the 143 that some file systems allow

/// What stands in a file name for a character: itself, a blank, an underscore, or nothing.
UChar32 safeCharacter(UChar32 character) {
  constexpr TextView kSeparators = u"/\\:*?\"<>|";
  switch (u_charType(character)) {
  case U_CONTROL_CHAR:
  case U_SPACE_SEPARATOR:
  case U_LINE_SEPARATOR:
  case U_PARAGRAPH_SEPARATOR:
    return u' ';
  case U_FORMAT_CHAR:
  case U_SURROGATE:
  case U_PRIVATE_USE_CHAR:
  case U_UNASSIGNED:
    return 0;
  default:
    break;
  }
  const bool separates =
      character < 0x80 && kSeparators.find(static_cast<char16_t>(character)) != TextView::npos;
  return separates ? u'_' : character;
}

/// Fillers and the like are letters that nobody sees.
bool isVisible(UChar32 character) {
  return character != u' ' && character != u'_' && u_isgraph(character) != 0 &&
         u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) == 0;
}

/// Names that are no files on some systems, whatever extension follows.
bool isDevice(TextView name) {
  constexpr std::array<TextView, 6> kDevices{u"con", u"prn", u"aux", u"nul", u"conin$", u"conout$"};
  const Text stem = lowerCased(trimmed(name.substr(0, name.find(u'.'))));
  const bool isPort = stem.size() == 4 && (stem.starts_with(u"com") || stem.starts_with(u"lpt")) &&
                      TextView(u"0123456789\u00B9\u00B2\u00B3").find(stem[3]) != TextView::npos;
  return isPort || std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end();
}

void trimEnd(Text& name) {
  name.resize(name.find_last_not_of(u" .") + 1);
}

/// Names are equal for a file system when these are.
Text keyOf(const std::string& name) {
  const Text text = textFromUtf8(name);
  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2* const folding = unorm2_getNFKCCasefoldInstance(&status);
  if (U_FAILURE(status)) {
    return lowerCased(text);
  }
  Text key(text.size() * 4 + 16, u'\0');
  const auto fold = [&] {
    status = U_ZERO_ERROR;
    return unorm2_normalize(folding, text.data(), static_cast<int32_t>(text.size()), key.data(),
                            static_cast<int32_t>(key.size()), &status);
  };
  int32_t length = fold();
  if (status == U_BUFFER_OVERFLOW_ERROR) {
    key.resize(static_cast<std::size_t>(length));
    length = fold();
  }
  key.resize(static_cast<std::size_t>(std::max(length, 0)));
  return key;
}

} // namespace

std::string safeFileName(TextView name) {
  Text safe;
  std::size_t bytes = 0;
  bool canBeSeen = false;
  for (std::size_t at = 0; at < name.size();) {
    UChar32 character = 0;
    U16_NEXT(name, at, name.size(), character);
    character = safeCharacter(character);
    const bool leads = safe.empty() && (character == u' ' || character == u'.' ||
                                        character == u'-' || character == u'~');
    if (character == 0 || leads || (character == u' ' && safe.back() == u' ')) {
      continue;
    }
    bytes += character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    if (bytes > kMostBytes) {
      break;
    }
    canBeSeen = canBeSeen || isVisible(character);
    if (character > 0xFFFF) {
      safe += static_cast<char16_t>(U16_LEAD(character));
      safe += static_cast<char16_t>(U16_TRAIL(character));
    } else {
      safe += static_cast<char16_t>(character);
    }
  }
  trimEnd(safe);
  if (!canBeSeen) {
    return {};
  }
  if (isDevice(safe)) {
    safe = concat({u"_", safe});
  }
  return utf8FromText(safe);
}

std::string FileNames::give(const std::string& name, const std::string& extension) {
  Text key = keyOf(name);
  if (m_given.insert(key).second) {
    return name + extension;
  }
  std::size_t& next = m_next.try_emplace(std::move(key), 2).first->second;
  for (;;) {
    std::string numbered = name;
    numbered.append(" ").append(std::to_string(next++));
    if (m_given.insert(keyOf(numbered)).second) {
      return numbered + extension;
    }
  }
}

} // namespace cardwright::tool
