#include "reader/content_line.h"

#include "base/case.h"
#include "base/fatal.h"
#include "base/whitespace.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vocabulary.h"
#include "model/known_names.h"
#include "model/value_types.h"
#include "reader/token.h"

namespace cardwright {

namespace {

/// The bare parameter of a PHOTO that is an encoding, while every other one is a type.
TextView nameOfBareParameter(TextView propertyName, TextView text) {
  const bool isEncoding = equalIgnoringCase(propertyName, cVCardProperty_PHOTO) &&
                          equalIgnoringCase(text, cVCardParameter_ENCODING_BASE64);
  return isEncoding ? cVCardParameter_ENCODING : cVCardParameter_TYPE;
}

/// Reads the parameter whose ";" lies just before the location.
DropReason parseParameter(TextView line, std::size_t& location, VCardProperty& property) {
  const std::optional<TextView> first = scanToken(line, location, u"=;:", false);
  if (!first) {
    return location >= line.size() ? DropReason::missingColon : DropReason::emptyParameterName;
  }
  TextView name = *first;
  TextView value;
  if (line[location] == u'=') {
    ++location;
    const std::optional<TextView> second = scanToken(line, location, u",;:", false);
    if (!second) {
      return location >= line.size() ? DropReason::missingColon : DropReason::emptyParameterValue;
    }
    value = *second;
  } else {
    value = name;
    name = nameOfBareParameter(property.name(), value);
  }
  const std::shared_ptr<VCardParameter> parameter = VCardParameter::parameterWithName(name, value);
  while (location < line.size() && line[location] == u',') {
    ++location;
    const std::optional<TextView> further = scanToken(line, location, u",;:", false);
    if (!further) {
      break;
    }
    parameter->addValue(*further);
  }
  property.addParameter(parameter);
  return DropReason::none;
}

} // namespace

ContentLineParser::ContentLineParser(VersionCode version, DateFormatter* formatter)
    : m_version(version), m_formatter(formatter) {
  if (formatter == nullptr) {
    fatalError("Formatter is nil");
  }
}

DropReason ContentLineParser::parse(TextView line, VCardProperty& property) const {
  std::size_t location = 0;
  const std::optional<TextView> token = scanToken(line, location, u";:", false);
  if (!token) {
    return location >= line.size() ? DropReason::missingColon : DropReason::missingName;
  }
  const std::size_t dot = token->find(u'.');
  property.m_group.assign(dot == TextView::npos ? std::nullopt
                                                : std::optional<TextView>(token->substr(0, dot)));
  const TextView name = dot == TextView::npos ? *token : token->substr(dot + 1);
  property.m_name = nameStorage(UpperCasedName(name).view());
  property.m_parameters.reset();
  property.m_value.reset();

  while (location < line.size()) {
    const char16_t unit = line[location++];
    if (unit == u';') {
      if (const DropReason reason = parseParameter(line, location, property);
          reason != DropReason::none) {
        return reason;
      }
    } else if (unit == u':') {
      parseValue(line.substr(location), property);
      break;
    }
    // Anything else is stray text behind a closing quote.
  }
  if (property.m_value == nullptr) {
    return DropReason::missingColon;
  }
  if (equalIgnoringCase(property.name(), cVCardProperty_VERSION) && !property.textValue()) {
    return DropReason::versionWithoutText;
  }
  return DropReason::none;
}

void ContentLineParser::parseValue(TextView text, VCardProperty& property) const {
  while (!text.empty() && isWhitespace(text.front())) {
    text.remove_prefix(1);
  }
  TextView type = property.defaultTypeForVersion(m_version);
  std::optional<TextView> charset;
  bool isQuotedPrintable = false;
  if (property.m_parameters != nullptr) {
    const std::optional<TextView> stated = property.valueOfParameterWithName(cVCardParameter_VALUE);
    if (stated) {
      const std::optional<TextView> implied = equivalentType(type);
      if (!implied || !equalIgnoringCase(*implied, *stated)) {
        type = *stated;
      }
    }
    charset = property.valueOfParameterWithName(cVCardParameter_CHARSET);
    const std::optional<TextView> encoding =
        property.valueOfParameterWithName(cVCardParameter_ENCODING);
    isQuotedPrintable =
        encoding && equalIgnoringCase(*encoding, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
  }
  std::shared_ptr<VCardValue> value = property.isMultiValueProperty()
                                          ? VCardMultiValue::valueWithType(type)
                                          : VCardValue::valueWithType(type);
  if (charset) {
    value->setCharset(charset);
  }
  value->setQuotedPrintable(isQuotedPrintable);
  value->parse(text, m_version, m_formatter);
  property.m_value = std::move(value);
}

bool VCardProperty::parse(TextView contentLine, VersionCode version, DateFormatter* formatter) {
  return ContentLineParser(version, formatter).parse(contentLine, *this) == DropReason::none;
}

} // namespace cardwright
