#include "face/writing/safe_parameters.h"

#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vcard_utils.h"
#include "cardwright/vocabulary.h"
#include "face/writing/safe_names.h"
#include "face/writing/safe_texts.h"
#include "writer/order.h"

#include <algorithm>
#include <utility>

namespace cardwright {

namespace {

bool isBefore(const SafeParameter& a, const SafeParameter& b) {
  const std::pair left(parameterRank(a.key), TextView(a.key));
  return left < std::pair(parameterRank(b.key), TextView(b.key));
}

TextList safeValues(const VCardParameter& parameter, const VCardProperty& property,
                    WriteRecorder& recorder) {
  TextList values = parameter.values();
  std::erase_if(values, [&](const Text& value) {
    const bool isNothing = trimWhitespace(value).empty();
    if (isNothing) {
      recorder.changed(WriteChangeKind::parameterLeftOut, property, parameter.name());
    }
    return isNothing;
  });
  for (Text& value : values) {
    if (value.find(u'\r') == Text::npos && !losesCharacters(value)) {
      continue;
    }
    Text safe = valueText(value);
    recorder.changed(WriteChangeKind::parameterCleaned, property, value);
    value = std::move(safe);
  }
  // What was nothing but such characters.
  std::erase_if(values, [](const Text& value) { return trimWhitespace(value).empty(); });
  return values;
}

/// The upper-case form, where that is the same name.
Text upperCasedName(const Text& value) {
  if (value == cVCardParameter_TYPE_PREF) {
    return value;
  }
  Text upper = upperCased(value);
  return equalIgnoringCase(upper, value) ? upper : value;
}

/// A value in which no numeric reference is decoded, neither its own nor one that the delimiter
/// behind it would complete.
Text encodedValue(const Text& value) {
  Text encoded = VCardUtils::encodeParameterTextValue(value);
  std::size_t found = encoded.find(u"&#");
  if (found == Text::npos) {
    return encoded;
  }
  Text safe;
  std::size_t copied = 0;
  for (; found != Text::npos; found = encoded.find(u"&#", copied)) {
    safe.append(encoded, copied, found - copied);
    safe.append(u"&#38;");
    copied = found + 1;
  }
  return safe.append(encoded, copied);
}

void appendValue(Text& output, const Text& encoded) {
  const bool needsQuotes =
      encoded.find_first_of(u":;,") != Text::npos || isWhitespace(encoded.front());
  if (needsQuotes) {
    output.push_back(u'"');
  }
  output.append(encoded);
  if (needsQuotes) {
    output.push_back(u'"');
  }
}

/// Whether a type without its name in front would be taken for something else in version 2.1.
bool needsName(const Text& type, TextView propertyKey) {
  return type.find(u'=') != Text::npos ||
         (propertyKey == cVCardProperty_PHOTO &&
          equalIgnoringCase(type, cVCardParameter_ENCODING_BASE64));
}

} // namespace

std::vector<SafeParameter> safeParameters(const VCardProperty& property, WriteRecorder& recorder) {
  std::vector<SafeParameter> parameters;
  const std::optional<VCardParameterDict> dict = property.parameterDict();
  if (!dict) {
    return parameters;
  }
  for (const auto& [dictKey, parameter] : *dict) {
    if (parameter == nullptr) {
      continue;
    }
    Text name = cleanedParameterName(parameter->name());
    if (name.empty()) {
      recorder.changed(WriteChangeKind::parameterLeftOut, property, parameter->name());
      continue;
    }
    if (name != parameter->name()) {
      recorder.changed(WriteChangeKind::parameterNameCleaned, property, parameter->name());
    }
    TextList values = safeValues(*parameter, property, recorder);
    if (!values.empty()) {
      Text key = upperCased(name);
      parameters.push_back({std::move(key), std::move(name), std::move(values)});
    }
  }
  std::stable_sort(parameters.begin(), parameters.end(), isBefore);
  return parameters;
}

std::optional<TextView> firstValueOf(const std::vector<SafeParameter>& parameters, TextView key) {
  const auto found = std::find_if(parameters.begin(), parameters.end(),
                                  [key](const SafeParameter& one) { return one.key == key; });
  return found != parameters.end() ? std::optional<TextView>(found->values.front()) : std::nullopt;
}

void removeParameter(std::vector<SafeParameter>& parameters, TextView key) {
  std::erase_if(parameters, [key](const SafeParameter& one) { return one.key == key; });
}

void replaceParameter(std::vector<SafeParameter>& parameters, TextView name, TextView value) {
  removeParameter(parameters, name);
  SafeParameter parameter{Text(name), Text(name), {Text(value)}};
  const auto place = std::upper_bound(parameters.begin(), parameters.end(), parameter, isBefore);
  parameters.insert(place, std::move(parameter));
}

void appendParameters(Text& output, const std::vector<SafeParameter>& parameters,
                      TextView propertyKey, VersionCode version) {
  for (const SafeParameter& parameter : parameters) {
    const bool isType = parameter.key == cVCardParameter_TYPE;
    const bool isUpperCased = isType || parameter.key == cVCardParameter_ENCODING ||
                              parameter.key == cVCardParameter_VALUE;
    for (const Text& value : parameter.values) {
      const Text encoded = encodedValue(isUpperCased ? upperCasedName(value) : value);
      output.push_back(u';');
      if (!isType || version != 2 || needsName(encoded, propertyKey)) {
        output.append(parameter.name);
        output.push_back(u'=');
      }
      appendValue(output, encoded);
    }
  }
}

} // namespace cardwright
