#pragma once

#include "cardwright/text.h"
#include "cleaner/name_set.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace cardwright {

// The names by which the cleaner judges lines, all in upper case. The two long lists overlap, but
// neither follows from the other.

/// Names that the cleaner trusts to begin a property. Numbered names are trusted too, see
/// isAllowlistedName.
inline constexpr NameSet<70, 8> kAllowlistedNames{{u"ADR",
                                                   u"ANNIVERSARY",
                                                   u"BDAY",
                                                   u"CATEGORIES",
                                                   u"CLASS",
                                                   u"EMAIL",
                                                   u"FN",
                                                   u"GEO",
                                                   u"KEY",
                                                   u"LOGO",
                                                   u"N",
                                                   u"NICKNAME",
                                                   u"NOTE",
                                                   u"ORG",
                                                   u"PHOTO",
                                                   u"PRODID",
                                                   u"REV",
                                                   u"ROLE",
                                                   u"SORT-STRING",
                                                   u"SOUND",
                                                   u"TEL",
                                                   u"TITLE",
                                                   u"TZ",
                                                   u"UID",
                                                   u"URL",
                                                   u"VERSION",
                                                   u"SOURCE",
                                                   u"FBURL",
                                                   u"CALURI",
                                                   u"CALADRURI",
                                                   u"X-ABADR",
                                                   u"X-ABDATE",
                                                   u"X-ABLABEL",
                                                   u"X-ABORDER",
                                                   u"X-ABRELATEDNAMES",
                                                   u"X-ABSHOWAS",
                                                   u"X-ACTIVITY-ALERT",
                                                   u"X-ADDRESSBOOKSERVER-KIND",
                                                   u"X-ADDRESSBOOKSERVER-MEMBER",
                                                   u"X-ADDRESSBOOKSERVER-PHONEME-DATA",
                                                   u"X-ADDRESSING-GRAMMAR",
                                                   u"X-ALT-NOTE",
                                                   u"X-APPLE-SUBADMINISTRATIVEAREA",
                                                   u"X-APPLE-SUBLOCALITY",
                                                   u"X-QUILLAN-LOCAL-UID",
                                                   u"X-QUILLAN-MODIFIED-BY",
                                                   u"X-QUILLAN-NOTES",
                                                   u"X-CREATED",
                                                   u"X-EVOLUTION-ASSISTANT",
                                                   u"X-EVOLUTION-BLOG-URL",
                                                   u"X-EVOLUTION-FILE-AS",
                                                   u"X-EVOLUTION-MANAGER",
                                                   u"X-EVOLUTION-SPOUSE",
                                                   u"X-EVOLUTION-VIDEO-URL",
                                                   u"X-GENDER",
                                                   u"X-IMAGEHASH",
                                                   u"X-IMAGETYPE",
                                                   u"X-INTERESTS",
                                                   u"X-KIND",
                                                   u"X-LANG",
                                                   u"X-MAIDENNAME",
                                                   u"X-MEMBER",
                                                   u"X-MOZILLA-HTML",
                                                   u"X-MS-IMADDRESS",
                                                   u"X-MSN",
                                                   u"X-FC-CLUSTER-ID",
                                                   u"X-PHONETIC-LAST-NAME",
                                                   u"X-RELATIONSHIP-STATUS",
                                                   u"X-SHARED-PHOTO-DISPLAY-PREF",
                                                   u"X-SOCIALPROFILE"},
                                                  0xcaacfc9ff8219281};
static_assert(kAllowlistedNames.isPerfect());

/// What else is on the allowlist, as alternatives of a pattern.
inline constexpr std::array<TextView, 1> kNumberedNameAlternations{
    u"VND-[0-9]+-SENSITIVE-CONTENT-CONFIG"};

/// Names that the cleaner recognises as property names at all.
inline constexpr NameSet<106, 9> kCanonicalNames{{u"ADR",
                                                  u"AGENT",
                                                  u"ANNIVERSARY",
                                                  u"BIRTHPLACE",
                                                  u"BDAY",
                                                  u"CALADRURI",
                                                  u"CALURI",
                                                  u"CATEGORIES",
                                                  u"CLASS",
                                                  u"CLIENTPIDMAP",
                                                  u"DEATHDATE",
                                                  u"DEATHPLACE",
                                                  u"EMAIL",
                                                  u"EXPERTISE",
                                                  u"FBURL",
                                                  u"FN",
                                                  u"GENDER",
                                                  u"GEO",
                                                  u"HOBBY",
                                                  u"INTEREST",
                                                  u"IMPP",
                                                  u"KEY",
                                                  u"KIND",
                                                  u"LABEL",
                                                  u"LANG",
                                                  u"LOGO",
                                                  u"MAILER",
                                                  u"MEMBER",
                                                  u"N",
                                                  u"NAME",
                                                  u"NICKNAME",
                                                  u"NOTE",
                                                  u"ORG",
                                                  u"ORG-DIRECTORY",
                                                  u"PHOTO",
                                                  u"PRODID",
                                                  u"PROFILE",
                                                  u"RELATED",
                                                  u"REV",
                                                  u"ROLE",
                                                  u"SORT-STRING",
                                                  u"SOUND",
                                                  u"SOURCE",
                                                  u"TEL",
                                                  u"TITLE",
                                                  u"TZ",
                                                  u"UID",
                                                  u"URL",
                                                  u"VERSION",
                                                  u"XML",
                                                  u"X-ABADR",
                                                  u"X-ABUID",
                                                  u"X-ABLABEL",
                                                  u"X-ABRELATEDNAMES",
                                                  u"X-ABSHOWAS",
                                                  u"X-ABDATE",
                                                  u"X-ABORDER",
                                                  u"X-ABPHOTO",
                                                  u"X-MS-CARDPICTURE",
                                                  u"X-ANNIVERSARY",
                                                  u"X-ASSISTANT",
                                                  u"X-MANAGER",
                                                  u"X-SPOUSE",
                                                  u"X-CHILD",
                                                  u"X-GENDER",
                                                  u"X-MAIDENNAME",
                                                  u"X-SOCIALPROFILE",
                                                  u"X-CUSTOM",
                                                  u"X-CUSTOMDATE",
                                                  u"X-INTERESTS",
                                                  u"X-CREATED",
                                                  u"X-PHONETIC-FIRST-NAME",
                                                  u"X-PHONETIC-LAST-NAME",
                                                  u"X-PHONETIC-MIDDLE-NAME",
                                                  u"X-AIM",
                                                  u"X-MSN",
                                                  u"X-ICQ",
                                                  u"X-YAHOO",
                                                  u"X-GTALK",
                                                  u"X-GOOGLE-TALK",
                                                  u"X-SKYPE",
                                                  u"X-SKYPE-USERNAME",
                                                  u"X-SKYPE-SEX",
                                                  u"X-QQ",
                                                  u"X-JABBER",
                                                  u"X-TWITTER",
                                                  u"X-GADUGADU",
                                                  u"X-WAB-GENDER",
                                                  u"X-RELATIONSHIP-STATUS",
                                                  u"X-QUILLAN-LOCAL-UID",
                                                  u"X-QUILLAN-MODIFIED-BY",
                                                  u"X-QUILLAN-NOTES",
                                                  u"X-QUILLAN-ATTACH",
                                                  u"X-QUILLAN-LOCAL-LINK-ID",
                                                  u"X-QUILLAN-LOCAL-NOTES",
                                                  u"X-QUILLAN-PRIVATE-NOTES",
                                                  u"X-QUILLAN-LOCAL-CATEGORIES",
                                                  u"X-QUILLAN-LOCAL-SHOW-DATES",
                                                  u"X-ADDRESSBOOKSERVER-KIND",
                                                  u"X-ADDRESSBOOKSERVER-MEMBER",
                                                  u"X-FC-CLUSTER-ID",
                                                  u"X-BIRTHPLACE",
                                                  u"X-DEATHPLACE",
                                                  u"X-EXPERTISE",
                                                  u"X-HOBBY",
                                                  u"X-LANG"},
                                                 0xcaccec1ab5688193};
static_assert(kCanonicalNames.isPerfect());

/// Names of which a card keeps only the last property.
inline constexpr NameSet<6, 4> kSingularNames{
    {u"X-QUILLAN-MODIFIED-BY", u"X-CREATED", u"X-QUILLAN-LOCAL-UID", u"X-ABSHOWAS",
     u"X-SHARED-PHOTO-DISPLAY-PREF", u"VND-63-SENSITIVE-CONTENT-CONFIG"},
    0xd464138a6233255};
static_assert(kSingularNames.isPerfect());

/// Group members.
inline constexpr TextView kMemberName = u"X-ADDRESSBOOKSERVER-MEMBER";

/// Shortest name that counts as a torn-off header, in characters.
inline constexpr std::int64_t kMinExtendedFragmentLength = 6;

[[nodiscard]] constexpr bool isExtensionName(TextView upperName) noexcept {
  return upperName.starts_with(u"X-") || upperName.starts_with(u"VND-");
}

/// A canonical name or any extension.
[[nodiscard]] constexpr bool isPropertyName(TextView upperName) noexcept {
  return kCanonicalNames.contains(upperName) || isExtensionName(upperName);
}

namespace detail {

constexpr std::size_t standardNameCount() noexcept {
  std::size_t count = 0;
  for (const TextView name : kAllowlistedNames.names()) {
    count += isExtensionName(name) ? 0U : 1U;
  }
  return count;
}

constexpr auto sortedStandardNames() noexcept {
  std::array<TextView, standardNameCount()> names{};
  std::size_t count = 0;
  for (const TextView name : kAllowlistedNames.names()) {
    if (!isExtensionName(name)) {
      names[count++] = name;
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

} // namespace detail

/// The allowlisted names that are no extensions, sorted.
inline constexpr auto kStandardNames = detail::sortedStandardNames();

/// Whether a name is on the allowlist or, in any case, of the numbered family.
[[nodiscard]] bool isAllowlistedName(TextView name);

} // namespace cardwright
