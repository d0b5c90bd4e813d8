#include "base/case.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/forms.h"

#include <algorithm>

namespace cardwright {

namespace {

struct Relation {
  TextView name;
  TextView type;
};

constexpr Relation kRelations[] = {
    {cVCardProperty_X_SPOUSE, cVCardParameter_TYPE_RELATED_SPOUSE},
    {cVCardProperty_X_CHILD, cVCardParameter_TYPE_RELATED_CHILD},
    {cVCardProperty_X_MANAGER, cVCardParameter_TYPE_RELATED_MANAGER},
    {cVCardProperty_X_ASSISTANT, cVCardParameter_TYPE_RELATED_ASSISTANT},
};

bool isUri(const Draft& draft) noexcept {
  return dynamic_cast<const VCardURIValue*>(draft.value.get()) != nullptr;
}

/// The one type of a property; empty where it has none or several.
TextView onlyType(const Draft& draft) noexcept {
  const TextList* types = draft.valuesOf(cVCardParameter_TYPE);
  return types != nullptr && types->size() == 1 ? TextView(types->front()) : TextView();
}

/// Whether a property has a type that is none of preference, which any property may have.
bool hasOwnType(const Draft& draft) {
  const TextList* types = draft.valuesOf(cVCardParameter_TYPE);
  return types != nullptr && std::any_of(types->begin(), types->end(), [](const Text& type) {
           return !equalIgnoringCase(type, cVCardParameter_TYPE_PREF);
         });
}

/// Whether a text is one of the sexes of version 4, with a gender identity behind it or not.
bool isGender(TextView text) noexcept {
  const TextView sex = text.substr(0, text.find(u';'));
  return sex.empty() ? text.size() > 1
                     : sex.size() == 1 && TextView(u"MFONU").find(sex) != TextView::npos;
}

/// Who may come in front of the name in an address of a messenger, and what the service is called.
struct Messenger {
  TextView name;
  TextView scheme;
  TextView service;
};

constexpr Messenger kMessengers[] = {
    {cVCardProperty_X_AIM, u"aim:", cVCardParameter_IMPP_SERVICE_AIM},
    {cVCardProperty_X_GADUGADU, u"gg:", cVCardParameter_IMPP_SERVICE_GADUGADU},
    {cVCardProperty_X_GOOGLE_TALK, u"xmpp:", cVCardParameter_IMPP_SERVICE_GOOGLETALK},
    {cVCardProperty_X_GTALK, u"xmpp:", cVCardParameter_IMPP_SERVICE_GOOGLETALK},
    {cVCardProperty_X_ICQ, u"icq:", cVCardParameter_IMPP_SERVICE_ICQ},
    {cVCardProperty_X_JABBER, u"xmpp:", cVCardParameter_IMPP_SERVICE_JABBER},
    {cVCardProperty_X_MSN, u"msnim:", cVCardParameter_IMPP_SERVICE_MSN},
    {cVCardProperty_X_QQ, u"qq:", cVCardParameter_IMPP_SERVICE_QQ},
    {cVCardProperty_X_SKYPE, u"skype:", cVCardParameter_IMPP_SERVICE_SKYPE},
    {cVCardProperty_X_SKYPE_USERNAME, u"skype:", cVCardParameter_IMPP_SERVICE_SKYPE},
    {cVCardProperty_X_YAHOO, u"ymsgr:", cVCardParameter_IMPP_SERVICE_YAHOO},
};

constexpr TextView kFormerName = u"X-FORMERLY";

const Messenger* messengerNamed(TextView name) {
  const auto* const found =
      std::find_if(std::begin(kMessengers), std::end(kMessengers),
                   [name](const Messenger& one) { return equalIgnoringCase(one.name, name); });
  return found != std::end(kMessengers) ? found : nullptr;
}

bool standsForItself(char byte) noexcept {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') ||
         std::string_view("-._~@").find(byte) != std::string_view::npos;
}

/// The text as part of a URI (RFC 3986, section 2.1).
Text percentEncoded(TextView text) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  Text encoded;
  for (const char byte : utf8FromText(text)) {
    if (standsForItself(byte)) {
      encoded.push_back(static_cast<unsigned char>(byte));
    } else {
      encoded.push_back(u'%');
      encoded.push_back(kDigits[static_cast<unsigned char>(byte) >> 4U]);
      encoded.push_back(kDigits[static_cast<unsigned char>(byte) & 15U]);
    }
  }
  return encoded;
}

int hexValue(char16_t unit) noexcept {
  const std::size_t at = TextView(u"0123456789ABCDEF").find(unit);
  return at == TextView::npos ? -1 : static_cast<int>(at);
}

/// What percentEncoded() made; only that comes out as it was.
Text percentDecoded(TextView encoded) {
  std::string bytes;
  for (std::size_t at = 0; at < encoded.size(); ++at) {
    const bool isEscape = encoded[at] == u'%' && at + 2 < encoded.size() &&
                          hexValue(encoded[at + 1]) >= 0 && hexValue(encoded[at + 2]) >= 0;
    if (isEscape) {
      bytes.push_back(
          static_cast<char>(hexValue(encoded[at + 1]) * 16 + hexValue(encoded[at + 2])));
      at += 2;
    } else {
      appendUtf8(bytes, encoded.substr(at, 1));
    }
  }
  return textFromUtf8(bytes);
}

bool toMessengerUri(Draft& draft, const ConversionStep& step) {
  const Messenger& messenger = *messengerNamed(draft.name);
  const Text handle(draft.text().value_or(TextView()));
  if (handle.empty() || isUri(draft) || draft.valuesOf(cVCardParameter_SERVICE_TYPE) != nullptr ||
      percentDecoded(percentEncoded(handle)) != handle) {
    return false;
  }
  draft.set(kFormerName, {draft.name});
  draft.set(cVCardParameter_SERVICE_TYPE, {Text(messenger.service)});
  draft.setUri(Text(messenger.scheme).append(percentEncoded(handle)));
  rename(draft, cVCardProperty_IMPP, ConversionKind::reencoded, step);
  return true;
}

bool fromMessengerUri(Draft& draft, const ConversionStep& step) {
  const Messenger* messenger = messengerNamed(draft.firstOf(kFormerName).value_or(TextView()));
  const Text uri(draft.text().value_or(TextView()));
  if (messenger == nullptr || !uri.starts_with(messenger->scheme)) {
    return true;
  }
  const Text handle = percentDecoded(TextView(uri).substr(messenger->scheme.size()));
  if (Text(messenger->scheme).append(percentEncoded(handle)) != uri) {
    return true;
  }
  draft.remove(kFormerName);
  draft.remove(cVCardParameter_SERVICE_TYPE);
  draft.setText(handle);
  rename(draft, messenger->name, ConversionKind::reencoded, step);
  return true;
}

} // namespace

bool convertGender(Draft& draft, const ConversionStep& step) {
  if (step.isUp()) {
    const Text text(draft.text().value_or(TextView()));
    const bool isMale = text == cVCardValue_X_GENDER_MALE;
    const bool isFemale = text == cVCardValue_X_GENDER_FEMALE;
    if (!isMale && !isFemale && !isGender(text)) {
      return false;
    }
    draft.value = valueOfType(cVCardValue_Gender, isMale ? u"M" : isFemale ? u"F" : text);
    rename(draft, cVCardProperty_GENDER, ConversionKind::reencoded, step);
    return true;
  }
  if (draft.value != nullptr && !draft.text()) {
    const Text text = wholeText(*draft.value);
    draft.setText(text == u"M"   ? cVCardValue_X_GENDER_MALE
                  : text == u"F" ? cVCardValue_X_GENDER_FEMALE
                                 : TextView(text));
  }
  rename(draft, cVCardProperty_X_GENDER, ConversionKind::reencoded, step);
  return true;
}

bool convertRelation(Draft& draft, const ConversionStep& step) {
  if (step.isUp()) {
    const auto* const relation =
        std::find_if(std::begin(kRelations), std::end(kRelations),
                     [&](const Relation& one) { return one.name == draft.name; });
    if (hasOwnType(draft) || !draft.text() || isUri(draft)) {
      return false;
    }
    draft.append(cVCardParameter_TYPE, Text(relation->type));
    rename(draft, cVCardProperty_RELATED, ConversionKind::reencoded, step);
    return true;
  }
  const TextView type = onlyType(draft);
  if (isUri(draft) && equalIgnoringCase(type, cVCardParameter_TYPE_RELATED_AGENT)) {
    draft.remove(cVCardParameter_TYPE);
    rename(draft, cVCardProperty_AGENT, ConversionKind::reencoded, step);
    return true;
  }
  const auto* const relation =
      std::find_if(std::begin(kRelations), std::end(kRelations),
                   [&](const Relation& one) { return equalIgnoringCase(one.type, type); });
  if (relation == std::end(kRelations) || !draft.text() || isUri(draft)) {
    return false;
  }
  draft.remove(cVCardParameter_TYPE);
  rename(draft, relation->name, ConversionKind::reencoded, step);
  return true;
}

bool convertAgent(Draft& draft, const ConversionStep& step) {
  if (!isUri(draft) || hasOwnType(draft)) {
    return false;
  }
  draft.append(cVCardParameter_TYPE, Text(cVCardParameter_TYPE_RELATED_AGENT));
  rename(draft, cVCardProperty_RELATED, ConversionKind::reencoded, step);
  return true;
}

bool convertMember(Draft& draft, const Rule& rule, const ConversionStep& step) {
  constexpr VersionCode kNoVersion = 31; // Only what is in no table is supported there.
  const Text text(draft.text().value_or(TextView()));
  const Text scheme = text.substr(0, text.find(u':'));
  if (!propertyIsSupportedForVersion(scheme, kNoVersion)) {
    return false;
  }
  rename(draft, rule.target, ConversionKind::renamed, step);
  return true;
}

bool convertMessenger(Draft& draft, const ConversionStep& step) {
  return step.isUp() ? toMessengerUri(draft, step) : fromMessengerUri(draft, step);
}

} // namespace cardwright
