#pragma once

#include "base/name_table.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

/// The default value type of each property in version 4.
inline constexpr NameTable kDefaultTypes({
    NameRow<TextView>{u"ADR", cVCardValue_Address},
    {u"N", cVCardValue_N},
    {u"ORG", cVCardValue_Org},
    {u"GENDER", cVCardValue_Gender},
    {u"X-CUSTOM", cVCardValue_Custom},
    {u"ANNIVERSARY", cVCardValue_DATE_AND_OR_TIME},
    {u"BDAY", cVCardValue_DATE_AND_OR_TIME},
    {u"DEATHDATE", cVCardValue_DATE_AND_OR_TIME},
    {u"X-ABDATE", cVCardValue_DATE},
    {u"X-ANNIVERSARY", cVCardValue_DATE},
    {u"X-CUSTOMDATE", cVCardValue_DATE},
    {u"REV", cVCardValue_TIMESTAMP},
    {u"X-CREATED", cVCardValue_TIMESTAMP},
    {u"X-MS-CARDPICTURE", cVCardValue_BINARY},
    {u"CALADRURI", cVCardValue_URI},
    {u"CALURI", cVCardValue_URI},
    {u"FBURL", cVCardValue_URI},
    {u"GEO", cVCardValue_URI},
    {u"IMPP", cVCardValue_URI},
    {u"KEY", cVCardValue_URI},
    {u"LOGO", cVCardValue_URI},
    {u"MEMBER", cVCardValue_URI},
    {u"ORG-DIRECTORY", cVCardValue_URI},
    {u"PHOTO", cVCardValue_URI},
    {u"RELATED", cVCardValue_URI},
    {u"SOUND", cVCardValue_URI},
    {u"SOURCE", cVCardValue_URI},
    {u"URL", cVCardValue_URI},
    {u"X-SOCIALPROFILE", cVCardValue_URI},
    {u"X-ADDRESSBOOKSERVER-MEMBER", cVCardValue_URI},
    {u"X-QUILLAN-ATTACH", cVCardValue_URI},
    {u"AGENT", cVCardValue_TEXT},
    {u"BIRTHPLACE", cVCardValue_TEXT},
    {u"CATEGORIES", cVCardValue_TEXT},
    {u"CLASS", cVCardValue_TEXT},
    {u"CLIENTPIDMAP", cVCardValue_TEXT},
    {u"DEATHPLACE", cVCardValue_TEXT},
    {u"EMAIL", cVCardValue_TEXT},
    {u"EXPERTISE", cVCardValue_TEXT},
    {u"FN", cVCardValue_TEXT},
    {u"HOBBY", cVCardValue_TEXT},
    {u"INTEREST", cVCardValue_TEXT},
    {u"KIND", cVCardValue_TEXT},
    {u"LABEL", cVCardValue_TEXT},
    {u"LANG", cVCardValue_TEXT},
    {u"MAILER", cVCardValue_TEXT},
    {u"NAME", cVCardValue_TEXT},
    {u"NICKNAME", cVCardValue_TEXT},
    {u"NOTE", cVCardValue_TEXT},
    {u"PRODID", cVCardValue_TEXT},
    {u"PROFILE", cVCardValue_TEXT},
    {u"ROLE", cVCardValue_TEXT},
    {u"SORT-STRING", cVCardValue_TEXT},
    {u"TEL", cVCardValue_TEXT},
    {u"TITLE", cVCardValue_TEXT},
    {u"TZ", cVCardValue_TEXT},
    {u"UID", cVCardValue_TEXT},
    {u"VERSION", cVCardValue_TEXT},
    {u"XML", cVCardValue_TEXT},
});

/// What differs in the versions below 4.
inline constexpr NameTable kDefaultTypesBelow4({
    NameRow<TextView>{u"KEY", cVCardValue_BINARY},
    {u"LOGO", cVCardValue_BINARY},
    {u"PHOTO", cVCardValue_BINARY},
    {u"SOUND", cVCardValue_BINARY},
    {u"GEO", cVCardValue_Geo3_0},
    {u"TZ", cVCardValue_UTC_OFFSET},
});

} // namespace cardwright
