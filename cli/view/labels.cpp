#include "view/labels.h"

#include "text/words.h"

#include <cardwright/vocabulary.h>

#include <algorithm>
#include <iterator>

namespace cardwright::tool {

namespace {

constexpr bool isUpper(char16_t unit) {
  return unit >= u'A' && unit <= u'Z';
}
constexpr bool isLower(char16_t unit) {
  return unit >= u'a' && unit <= u'z';
}
constexpr bool isDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

/// "HomeFAX" is "Home FAX", "BusinessPhone2" is "Business Phone 2".
Text separated(TextView camelCase) {
  Text text;
  for (std::size_t at = 0; at < camelCase.size(); ++at) {
    if (at > 0 && isLower(camelCase[at - 1]) &&
        (isUpper(camelCase[at]) || isDigit(camelCase[at]))) {
      text += u' ';
    }
    text += camelCase[at];
  }
  return text;
}

struct TypeWord {
  TextView type; ///< lower case
  TextView word; ///< empty when it says nothing that a reader would miss
};

/// Those that are not good words as they are.
constexpr TypeWord kTypeWords[] = {
    {u"assistant-phone", u"assistant"},
    {u"bbs", u"BBS"},
    {u"dom", u"domestic"},
    {u"granddaugther", u"granddaughter"},
    {u"internet", u""},
    {u"intl", u"international"},
    {u"iphone", u"iPhone"},
    {u"isdn", u"ISDN"},
    {u"line2", u"line 2"},
    {u"msg", u"voice mail"},
    {u"pcs", u"PCS"},
    {u"pgp", u"PGP"},
    {u"text", u"text messages"},
    {u"textphone", u"text telephone"},
    {u"voice", u""},
    {u"x400", u"X.400"},
    {u"x509", u"X.509"},
};

/// Types that make another thing of a telephone number.
constexpr TypeWord kTelephoneNouns[] = {
    {u"cell", u"Mobile"},
    {u"fax", u"Fax"},
    {u"mobile", u"Mobile"},
    {u"pager", u"Pager"},
};

template <std::size_t size>
std::optional<TextView> find(const TypeWord (&words)[size], TextView type) {
  const auto* const found = std::find_if(std::begin(words), std::end(words),
                                         [&](const TypeWord& word) { return word.type == type; });
  return found != std::end(words) ? std::optional(found->word) : std::nullopt;
}

/// Extensions without their mark, and in lower case what a program wrote in capitals.
Text wordOf(TextView type) {
  if (startsWithIgnoringCase(type, u"X-") && type.size() > 2) {
    type.remove_prefix(2);
  }
  const bool hasLower = std::any_of(type.begin(), type.end(), isLower);
  return hasLower ? Text(type) : lowerCased(type);
}

/// The media type of a picture stands with its size.
bool tellsMediaType(const VCardProperty& property) {
  constexpr TextView kMedia[] = {cVCardProperty_PHOTO, cVCardProperty_LOGO, cVCardProperty_SOUND};
  return std::find(std::begin(kMedia), std::end(kMedia), property.name()) != std::end(kMedia);
}

void addType(TypeWords& result, const VCardProperty& property, TextView type) {
  const Text lower = lowerCased(trimmed(type));
  if (lower == cVCardParameter_TYPE_PREF) {
    result.isPreferred = true;
    return;
  }
  if (property.name() == cVCardProperty_TEL && !result.noun) {
    result.noun = find(kTelephoneNouns, lower);
    if (result.noun) {
      return;
    }
  }
  const auto word = find(kTypeWords, lower);
  result.words.add(word ? Text(*word) : wordOf(trimmed(type)));
}

} // namespace

Text labelText(TextView label) {
  constexpr TextView kOpening = u"_$!<";
  constexpr TextView kClosing = u">!$_";
  if (!label.starts_with(kOpening) || !label.ends_with(kClosing) ||
      label.size() < kOpening.size() + kClosing.size()) {
    return Text(label);
  }
  label.remove_prefix(kOpening.size());
  label.remove_suffix(kClosing.size());
  if (label.starts_with(u"EX-")) {
    label.remove_prefix(3);
  }
  return separated(label);
}

TypeWords typeWords(const VCardProperty& property) {
  TypeWords result;
  if (const auto types = property.parameterWithName(cVCardParameter_TYPE);
      types && !tellsMediaType(property)) {
    for (const Text& type : types->values()) {
      // Some programs put the whole list into one value.
      TextView rest = type;
      while (true) {
        const std::size_t comma = rest.find(u',');
        addType(result, property, rest.substr(0, comma));
        if (comma == TextView::npos) {
          break;
        }
        rest.remove_prefix(comma + 1);
      }
    }
  }
  if (const auto service = property.valueOfParameterWithName(cVCardParameter_SERVICE_TYPE)) {
    result.words.add(*service);
  }
  if (property.valueOfParameterWithName(cVCardParameter_PREF) == TextView(u"1")) {
    result.isPreferred = true;
  }
  return result;
}

} // namespace cardwright::tool
