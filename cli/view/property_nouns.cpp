#include "view/property_nouns.h"

#include <algorithm>
#include <iterator>

namespace cardwright::tool {

namespace {

struct Entry {
  TextView name;
  TextView noun;
};

/// In the order in which they are shown.
constexpr Entry kForPeople[] = {
    {u"FN", u"Name"},
    {u"N", u"Full name"},
    {u"X-PHONETIC-FIRST-NAME", u"Phonetic first name"},
    {u"X-PHONETIC-MIDDLE-NAME", u"Phonetic middle name"},
    {u"X-PHONETIC-LAST-NAME", u"Phonetic last name"},
    {u"X-MAIDENNAME", u"Maiden name"},
    {u"NICKNAME", u"Nickname"},
    {u"KIND", u"Kind"},
    {u"X-ADDRESSBOOKSERVER-KIND", u"Kind"},
    {u"ORG", u"Organisation"},
    {u"TITLE", u"Job title"},
    {u"ROLE", u"Role"},
    {u"TEL", u"Phone"},
    {u"EMAIL", u"Email"},
    {u"IMPP", u"Messaging"},
    {u"X-AIM", u"AIM"},
    {u"X-GADUGADU", u"Gadu-Gadu"},
    {u"X-GTALK", u"Google Talk"},
    {u"X-GOOGLE-TALK", u"Google Talk"},
    {u"X-ICQ", u"ICQ"},
    {u"X-JABBER", u"Jabber"},
    {u"X-MSN", u"MSN"},
    {u"X-QQ", u"QQ"},
    {u"X-SKYPE", u"Skype"},
    {u"X-SKYPE-USERNAME", u"Skype"},
    {u"X-TWITTER", u"Twitter"},
    {u"X-YAHOO", u"Yahoo"},
    {u"X-SOCIALPROFILE", u"Profile"},
    {u"ADR", u"Address"},
    {u"LABEL", u"Address label"},
    {u"X-ABADR", u"Address format"},
    {u"URL", u"Website"},
    {u"BDAY", u"Birthday"},
    {u"BIRTHPLACE", u"Place of birth"},
    {u"X-BIRTHPLACE", u"Place of birth"},
    {u"ANNIVERSARY", u"Anniversary"},
    {u"X-ANNIVERSARY", u"Anniversary"},
    {u"DEATHDATE", u"Date of death"},
    {u"DEATHPLACE", u"Place of death"},
    {u"X-DEATHPLACE", u"Place of death"},
    {u"X-ABDATE", u"Date"},
    {u"X-CUSTOMDATE", u"Date"},
    {u"GENDER", u"Gender"},
    {u"X-GENDER", u"Gender"},
    {u"X-SKYPE-SEX", u"Gender"},
    {u"LANG", u"Language"},
    {u"X-LANG", u"Language"},
    {u"TZ", u"Time zone"},
    {u"GEO", u"Position"},
    {u"RELATED", u"Related"},
    {u"X-ABRELATEDNAMES", u"Related"},
    {u"X-SPOUSE", u"Spouse"},
    {u"X-CHILD", u"Child"},
    {u"X-MANAGER", u"Manager"},
    {u"X-ASSISTANT", u"Assistant"},
    {u"X-RELATIONSHIP-STATUS", u"Relationship"},
    {u"AGENT", u"Agent"},
    {u"MEMBER", u"Member"},
    {u"X-ADDRESSBOOKSERVER-MEMBER", u"Member"},
    {u"EXPERTISE", u"Expertise"},
    {u"X-EXPERTISE", u"Expertise"},
    {u"HOBBY", u"Hobby"},
    {u"X-HOBBY", u"Hobby"},
    {u"INTEREST", u"Interest"},
    {u"X-INTERESTS", u"Interests"},
    {u"CATEGORIES", u"Categories"},
    {u"NOTE", u"Note"},
    {u"CALURI", u"Calendar"},
    {u"CALADRURI", u"Invitations"},
    {u"FBURL", u"Free and busy"},
    {u"ORG-DIRECTORY", u"Directory"},
    {u"PHOTO", u"Photo"},
    {u"X-MS-CARDPICTURE", u"Card picture"},
    {u"LOGO", u"Logo"},
    {u"SOUND", u"Sound"},
    {u"KEY", u"Key"},
    {u"X-ABLABEL", u"Label"},
    {u"X-CUSTOM", u"Custom"},
};

constexpr Entry kForPrograms[] = {
    {u"CLASS", u"Access"},
    {u"SORT-STRING", u"Sorted as"},
    {u"X-ABSHOWAS", u"Shown as"},
    {u"X-ABORDER", u"Name order"},
    {u"SOURCE", u"Source"},
    {u"NAME", u"Source name"},
    {u"MAILER", u"Mail program"},
    {u"PROFILE", u"Profile type"},
    {u"XML", u"XML"},
    {u"CLIENTPIDMAP", u"Property source"},
    {u"UID", u"Identifier"},
    {u"X-ABUID", u"Identifier"},
    {u"X-CREATED", u"Created"},
    {u"REV", u"Last changed"},
    {u"PRODID", u"Written by"},
    {u"VERSION", u"vCard version"},
};

constexpr int kUnknownRank = static_cast<int>(std::size(kForPeople));

template <std::size_t size>
const Entry* find(const Entry (&entries)[size], TextView name) {
  const auto* const found = std::find_if(std::begin(entries), std::end(entries),
                                         [&](const Entry& entry) { return entry.name == name; });
  return found != std::end(entries) ? found : nullptr;
}

} // namespace

PropertyNoun propertyNoun(TextView upperCasedName) noexcept {
  if (const Entry* const entry = find(kForPeople, upperCasedName)) {
    return {entry->noun, static_cast<int>(entry - kForPeople), false};
  }
  if (const Entry* const entry = find(kForPrograms, upperCasedName)) {
    return {entry->noun, kUnknownRank + 1 + static_cast<int>(entry - kForPrograms), true};
  }
  return {upperCasedName, kUnknownRank, false};
}

} // namespace cardwright::tool
