#include "support/conversion_trip.h"

#include "base/case.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vocabulary.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace cardwright {

namespace {

/// A property as it should come back: group and name, what the tables say comes back in another
/// form brought into one, and the value as it is written.
struct Essence {
  Text name;
  Text value;
  TextList types;

  friend auto operator<=>(const Essence&, const Essence&) = default;
};

bool isEqual(TextView a, TextView b) {
  return equalIgnoringCase(a, b);
}

/// The name under which a version may come back from the other one.
Text nameOf(const VCardProperty& property) {
  Text name = upperCased(property.name());
  if (name.starts_with(u"X-ADDRESSBOOKSERVER-")) {
    name.erase(0, Text(u"X-ADDRESSBOOKSERVER-").size());
  }
  // Parked and restored, whichever it was.
  if (name.starts_with(u"X-")) {
    name.erase(0, 2);
  }
  return name;
}

VCardList alone(const std::shared_ptr<VCardProperty>& property) {
  auto card = std::make_shared<VCard>();
  card->addProperty(property);
  return {card};
}

/// The value behind the colon of the unfolded line, without escapes.
Text writtenValue(const std::shared_ptr<VCardProperty>& property) {
  auto bare = VCardProperty::propertyWithName(u"X-A", property->value());
  Text text = textFromUtf8(writeCards(alone(bare), nullptr, {4}));
  for (std::size_t fold = 0; (fold = text.find(u"\r\n ", fold)) != Text::npos;) {
    text.erase(fold, 3);
  }
  const std::size_t begin = text.find(u"\nX-A") + 4;
  const std::size_t colon = text.find(u':', begin);
  text = text.substr(colon + 1, text.find(u'\r', colon) - colon - 1);
  std::erase(text, u'\\');
  return text;
}

template <typename Predicate>
void keepOnly(Text& text, Predicate predicate) {
  std::erase_if(text, [&](char16_t unit) { return !predicate(unit); });
}

/// Pictures by their digits, positions by their numbers, telephones without their scheme.
Text valueOf(const std::shared_ptr<VCardProperty>& property, const Text& name) {
  Text value = property->value() != nullptr ? writtenValue(property) : Text();
  const bool isMedia = name == u"PHOTO" || name == u"LOGO" || name == u"SOUND" || name == u"KEY";
  if (const std::size_t comma = value.find(u";base64,"); isMedia && comma != Text::npos) {
    value.erase(0, comma + 8);
  }
  if (isMedia) {
    std::erase_if(value, [](char16_t unit) { return unit == u' ' || unit == u'n'; });
  }
  if (name == u"TEL" && value.starts_with(u"tel:")) {
    value.erase(0, 4);
  }
  if (name == u"TZ") {
    std::erase(value, u':');
  }
  if (name == u"GENDER") {
    // One letter for either form.
    value.resize(value == u"Male" || value == u"Female" ? 1 : value.size());
  }
  return value;
}

TextList typesOf(const VCardProperty& property) {
  TextList types;
  for (const TextView key : {TextView(u"TYPE"), TextView(u"X-TYPE")}) {
    if (const auto parameter = property.parameterWithName(key)) {
      for (const Text& type : parameter->values()) {
        const Text upper = upperCased(type);
        const bool isMedium = upper == u"JPEG" || upper == u"JPG" || upper == u"PNG" ||
                              upper == u"GIF" || upper == u"TIFF" || upper == u"BMP" ||
                              upper == u"WEBP" || upper == u"WAVE" || upper == u"WAV" ||
                              upper == u"OGG" || upper == u"MP3" || upper == u"BASIC" ||
                              upper == u"PGP" || upper == u"X509";
        // Listed as dropped, stated as PREF, or told by the bytes.
        if (!isEqual(type, u"internet") && !isEqual(type, u"pref") && !isMedium) {
          types.push_back(upper);
        }
      }
    }
  }
  std::sort(types.begin(), types.end());
  types.erase(std::unique(types.begin(), types.end()), types.end());
  return types;
}

/// Whoever stands in another's card is the same under either name.
void uniteNames(Essence& essence, const VCardProperty& property) {
  constexpr std::array<TextView, 5> kRelations = {u"SPOUSE", u"CHILD", u"MANAGER", u"ASSISTANT",
                                                  u"AGENT"};
  if (std::find(kRelations.begin(), kRelations.end(), essence.name) != kRelations.end()) {
    essence.types.push_back(essence.name);
    std::sort(essence.types.begin(), essence.types.end());
    essence.name = u"RELATED";
  }
  if (const auto former = property.valueOfParameterWithName(u"X-FORMERLY")) {
    essence.name = Text(former->substr(2));
    essence.value.erase(0, essence.value.find(u':') + 1);
  }
}

std::vector<Essence> essencesOf(const VCard& card) {
  std::vector<Essence> all;
  for (const auto& [key, list] : card.propertyDict()) {
    for (const auto& property : *list) {
      const Text name = nameOf(*property);
      if (name == u"VERSION") {
        continue;
      }
      Essence essence{name, valueOf(property, name), typesOf(*property)};
      uniteNames(essence, *property);
      essence.name.push_back(u' ');
      essence.name.append(property->group().value_or(u"-"));
      all.push_back(std::move(essence));
    }
  }
  std::sort(all.begin(), all.end());
  return all;
}

std::string told(const Essence& essence) {
  std::string text = utf8FromText(essence.name) + ":" + utf8FromText(essence.value);
  for (const Text& type : essence.types) {
    text.append(" ").append(utf8FromText(type));
  }
  return text + "\n";
}

/// Converts, and looks at the sums and at a second conversion.
VCardList converted(const VCardList& cards, VersionCode version, std::string& surprises) {
  ConversionReport report;
  VCardList result = convertCards(cards, version, &report);
  if (report.properties + report.added != report.converted + report.merged + report.dropped) {
    surprises += "the sums do not add up\n";
  }
  const std::string once = writeCards(result);
  const std::string twice = writeCards(convertCards(result, version));
  if (once != twice) {
    surprises += "converted again it is\n" + twice + "and was\n" + once;
  }
  ReadOptions options;
  options.clean = false;
  VCardList read = readCards(once, nullptr, options);
  if (read.size() != cards.size()) {
    surprises += "not one card: " + once;
    return {};
  }
  return read;
}

/// A list for one call.
VCardList borrowed(const VCard& card) {
  return {std::shared_ptr<VCard>(const_cast<VCard*>(&card), [](VCard* /*kept*/) {})};
}

} // namespace

std::string conversionSurprises(const VCard& card, VersionCode version) {
  std::string surprises;
  static_cast<void>(converted(borrowed(card), version, surprises));
  return surprises;
}

std::string conversionTripSurprises(const VCard& card, VersionCode home, VersionCode there) {
  std::string surprises;
  const VCardList before = converted(borrowed(card), home, surprises);
  const VCardList away = before.empty() ? before : converted(before, there, surprises);
  const VCardList after = away.empty() ? away : converted(away, home, surprises);
  if (after.empty()) {
    return surprises;
  }
  const std::vector<Essence> wanted = essencesOf(*before[0]);
  const std::vector<Essence> found = essencesOf(*after[0]);
  std::vector<Essence> missing;
  std::set_difference(wanted.begin(), wanted.end(), found.begin(), found.end(),
                      std::back_inserter(missing));
  if (!missing.empty()) {
    for (const Essence& essence : missing) {
      surprises.append("- ").append(told(essence));
    }
    surprises += "before: " + writeCards(before) + "there: " + writeCards(away) +
                 "after: " + writeCards(after);
  }
  return surprises;
}

} // namespace cardwright
