#include "base/ascii.h"
#include "base/case.h"
#include "base/name_table.h"
#include "base/whitespace.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "cardwright/vocabulary.h"
#include "reader/address_book_server.h"

#include <array>

namespace cardwright {

namespace {

constexpr std::array<TextView, 50> kStandaloneNames = {
    u"ADR",         u"AGENT",
    u"ANNIVERSARY", u"BDAY",
    u"BIRTHPLACE",  u"CALADRURI",
    u"CALURI",      u"CATEGORIES",
    u"CLASS",       u"CLIENTPIDMAP",
    u"DEATHDATE",   u"DEATHPLACE",
    u"EMAIL",       u"EXPERTISE",
    u"FBURL",       u"FN",
    u"GENDER",      u"GEO",
    u"HOBBY",       u"IMPP",
    u"INTEREST",    u"KEY",
    u"KIND",        u"LABEL",
    u"LANG",        u"LOGO",
    u"MAILER",      u"MEMBER",
    u"N",           u"NAME",
    u"NICKNAME",    u"NOTE",
    u"ORG",         u"ORG-DIRECTORY",
    u"PHOTO",       u"PRODID",
    u"PROFILE",     u"RELATED",
    u"REV",         u"ROLE",
    u"SORT-STRING", u"SOUND",
    u"SOURCE",      u"TEL",
    u"TITLE",       u"TZ",
    u"UID",         u"URL",
    u"VERSION",     u"XML",
};

/// The line at a location that is not behind its end, without blanks before it.
TextView lineAt(TextView text, std::size_t location, const CharacterSet& terminators) {
  std::size_t end = location;
  while (end < text.size() && !terminators.contains(text[end])) {
    ++end;
  }
  return text.substr(location, end - location);
}

std::size_t skipSpacesAndTabs(TextView text, std::size_t location) {
  while (location < text.size() && isSpaceOrTab(text[location])) {
    ++location;
  }
  return location;
}

} // namespace

const CharacterSet& VCardUtils::lineTerminatorCharacterSet() {
  static const CharacterSet set = CharacterSet::fromCharacters(u"\r\n");
  return set;
}

const CharacterSet& VCardUtils::headerWhitespaceCharacterSet() {
  return whitespaceCharacterSet();
}

const CharacterSet& VCardUtils::spaceAndTabCharacterSet() {
  static const CharacterSet set = CharacterSet::fromCharacters(u" \t");
  return set;
}

std::span<const TextView> VCardUtils::recoverableStandalonePropertyNames() {
  return kStandaloneNames;
}

bool VCardUtils::lineIsAddressBookServerProperty(std::optional<TextView> line) {
  return line && isAddressBookServerLine(*line);
}

bool VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(const TextScanner& scanner,
                                                                   std::size_t location,
                                                                   std::size_t* propertyStart) {
  const std::optional<std::size_t> start =
      addressBookServerPropertyAhead(scanner.string(), location);
  if (start && propertyStart != nullptr) {
    *propertyStart = *start;
  }
  return start.has_value();
}

bool VCardUtils::nextLineIsVCardBoundaryAtLocation(const TextScanner& scanner, std::size_t location,
                                                   const CharacterSet& lineTerminatorSet) {
  const TextView text = scanner.string();
  const std::size_t begin = skipSpacesAndTabs(text, location);
  if (begin >= text.size()) {
    return true;
  }
  const TextView line = trimmed(lineAt(text, begin, lineTerminatorSet), isSpaceOrTab);
  return line.empty() || equalIgnoringCase(line, cVCardComponent_BEGINVCARD) ||
         equalIgnoringCase(line, cVCardComponent_ENDVCARD);
}

bool VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
    const TextScanner& scanner, std::size_t location, const CharacterSet& lineTerminatorSet,
    const CharacterSet& headerWhitespaceSet) {
  const TextView text = scanner.string();
  const std::size_t begin = skipSpacesAndTabs(text, location);
  if (begin >= text.size()) {
    return false;
  }
  const TextView line = lineAt(text, begin, lineTerminatorSet);
  const std::size_t colon = line.find(u':');
  if (colon == TextView::npos || colon == 0) {
    return false;
  }
  TextView name = line.substr(0, colon);
  name = name.substr(0, name.find(u';'));
  if (const std::size_t dot = name.rfind(u'.'); dot != TextView::npos) {
    name.remove_prefix(dot + 1);
  }
  name = trimmed(name, [&](char16_t unit) { return headerWhitespaceSet.contains(unit); });
  const UpperCasedName upper(name);
  return std::binary_search(kStandaloneNames.begin(), kStandaloneNames.end(), upper.view());
}

} // namespace cardwright
