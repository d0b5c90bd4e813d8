#pragma once

#include "cardwright/vocabulary.h"
#include "model/default_types.h"
#include "model/known_names.h"

#include <cstddef>
#include <iterator>

namespace cardwright {

namespace detail {

/// Names of properties and parameters as they stand in cards, upper case.
inline constexpr TextView kNames[] = {
    cVCardProperty_ADR,
    cVCardProperty_AGENT,
    cVCardProperty_ANNIVERSARY,
    cVCardProperty_BDAY,
    cVCardProperty_CALADRURI,
    cVCardProperty_CALURI,
    cVCardProperty_CATEGORIES,
    cVCardProperty_CLASS,
    cVCardProperty_EMAIL,
    cVCardProperty_FBURL,
    cVCardProperty_FN,
    cVCardProperty_GENDER,
    cVCardProperty_GEO,
    cVCardProperty_IMPP,
    cVCardProperty_KEY,
    cVCardProperty_KIND,
    cVCardProperty_LABEL,
    cVCardProperty_LANG,
    cVCardProperty_LOGO,
    cVCardProperty_MAILER,
    cVCardProperty_MEMBER,
    cVCardProperty_N,
    cVCardProperty_NAME,
    cVCardProperty_NICKNAME,
    cVCardProperty_NOTE,
    cVCardProperty_ORG,
    cVCardProperty_PHOTO,
    cVCardProperty_PRODID,
    cVCardProperty_PROFILE,
    cVCardProperty_RELATED,
    cVCardProperty_REV,
    cVCardProperty_ROLE,
    cVCardProperty_SORT_STRING,
    cVCardProperty_SOUND,
    cVCardProperty_SOURCE,
    cVCardProperty_TEL,
    cVCardProperty_TITLE,
    cVCardProperty_TZ,
    cVCardProperty_UID,
    cVCardProperty_URL,
    cVCardProperty_VERSION,
    cVCardProperty_XML,
    u"X-ABADR",
    u"X-ABUID",
    u"X-ABLABEL",
    u"X-ABRELATEDNAMES",
    u"X-ABSHOWAS",
    u"X-ABDATE",
    cVCardProperty_X_AIM,
    cVCardProperty_X_ICQ,
    cVCardProperty_X_JABBER,
    cVCardProperty_X_MSN,
    cVCardProperty_X_SKYPE,
    cVCardProperty_X_YAHOO,
    cVCardProperty_X_SOCIALPROFILE,
    cVCardProperty_X_PHONETIC_FIRST_NAME,
    cVCardProperty_X_PHONETIC_LAST_NAME,
    cVCardProperty_X_ADDRESSBOOKSERVER_KIND,
    cVCardProperty_X_ADDRESSBOOKSERVER_MEMBER,
    cVCardParameter_TYPE,
    cVCardParameter_VALUE,
    cVCardParameter_ENCODING,
    cVCardParameter_CHARSET,
    cVCardParameter_LANGUAGE,
    cVCardParameter_PREF,
    cVCardParameter_PID,
    cVCardParameter_ALTID,
    cVCardParameter_MEDIATYPE,
    cVCardParameter_SORT_AS,
    cVCardParameter_SERVICE_TYPE,
};

} // namespace detail

/// The well-known names with what is known of them.
inline constexpr auto kKnownNames = [] {
  NameRow<DefaultTypes> rows[std::size(detail::kNames)];
  for (std::size_t i = 0; i < std::size(detail::kNames); ++i) {
    const auto* type = kDefaultTypes.find(detail::kNames[i]);
    const auto* below4 = kDefaultTypesBelow4.find(detail::kNames[i]);
    const TextView current = type != nullptr ? type->value : cVCardValue_TEXT;
    rows[i] = {detail::kNames[i], {below4 != nullptr ? below4->value : current, current}};
  }
  return NameTable(rows);
}();

} // namespace cardwright
