#include "reader/content_line.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/fatal.h"
#include "base/whitespace.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vocabulary.h"
#include "model/known_names.h"
#include "model/value_types.h"
#include "reader/token.h"
#include "values/value_maker.h"

#include <algorithm>

namespace cardwright {

namespace {

/// The bare parameter of a PHOTO that is an encoding, while every other one is a type.
TextView nameOfBareParameter(TextView propertyName, TextView text) {
  const bool isEncoding = equalIgnoringCase(propertyName, cVCardProperty_PHOTO) &&
                          equalIgnoringCase(text, cVCardParameter_ENCODING_BASE64);
  return isEncoding ? cVCardParameter_ENCODING : cVCardParameter_TYPE;
}

/// Nothing, where only the form of the line matters.
struct Ignoring {
  void parameter(TextView /*name*/, TextView /*value*/) {}
  void bareParameter(TextView /*value*/) {}
  void furtherValue(TextView /*value*/) {}
  void endParameter() {}
};

bool endsName(char16_t unit) noexcept {
  return unit == u';' || unit == u':';
}
bool endsParameterName(char16_t unit) noexcept {
  return unit == u'=' || unit == u';' || unit == u':';
}
bool endsParameterValue(char16_t unit) noexcept {
  return unit == u',' || unit == u';' || unit == u':';
}

/// Walks along the parameter whose ";" lies just before the location.
template <typename Sink>
DropReason walkParameter(TextView line, std::size_t& location, Sink& sink) {
  const std::optional<TextView> name = scanTokenUpTo(line, location, endsParameterName, false);
  if (!name) {
    return location >= line.size() ? DropReason::missingColon : DropReason::emptyParameterName;
  }
  if (line[location] == u'=') {
    ++location;
    const std::optional<TextView> value = scanTokenUpTo(line, location, endsParameterValue, false);
    if (!value) {
      return location >= line.size() ? DropReason::missingColon : DropReason::emptyParameterValue;
    }
    sink.parameter(*name, *value);
  } else {
    sink.bareParameter(*name);
  }
  while (location < line.size() && line[location] == u',') {
    ++location;
    const std::optional<TextView> further =
        scanTokenUpTo(line, location, endsParameterValue, false);
    if (!further) {
      break;
    }
    sink.furtherValue(*further);
  }
  sink.endParameter();
  return DropReason::none;
}

/// Walks along a line from behind its name to behind the colon before its value.
template <typename Sink>
DropReason walkParameters(TextView line, std::size_t& location, Sink& sink) {
  while (location < line.size()) {
    const char16_t unit = line[location++];
    if (unit == u':') {
      return DropReason::none;
    }
    if (unit == u';') {
      if (const DropReason reason = walkParameter(line, location, sink);
          reason != DropReason::none) {
        return reason;
      }
    }
    // Anything else is stray text behind a closing quote.
  }
  return DropReason::missingColon;
}

/// The name at the front of a line, group and all.
DropReason walkName(TextView line, std::size_t& location, TextView& name) {
  const std::optional<TextView> token = scanTokenUpTo(line, location, endsName, false);
  if (!token) {
    return location >= line.size() ? DropReason::missingColon : DropReason::missingName;
  }
  name = *token;
  return DropReason::none;
}

/// Whether a name, group and all, is that of a VERSION property. No text that is longer or shorter
/// equals it without regard to case.
bool isVersionName(TextView name) {
  constexpr TextView kVersion = cVCardProperty_VERSION;
  if (name.size() < kVersion.size()) {
    return false;
  }
  const TextView bare = name.substr(name.find(u'.') + 1);
  return bare.size() == kVersion.size() && asciiUpper(bare.front()) == kVersion.front() &&
         equalIgnoringCase(bare, kVersion);
}

} // namespace

ContentLineCheck checkContentLine(TextView line) {
  ContentLineCheck check;
  if (line.starts_with(u"VERSION:")) {
    check.isVersion = true; // As each card has one, written so.
    return check;
  }
  std::size_t location = 0;
  TextView name;
  check.reason = walkName(line, location, name);
  if (check.reason == DropReason::none) {
    Ignoring ignoring;
    check.reason = walkParameters(line, location, ignoring);
  }
  check.isVersion = check.reason == DropReason::none && isVersionName(name);
  return check;
}

namespace {

/// What a walk along a content line comes upon: its parts.
class Parting {
 public:
  explicit Parting(ContentLineParts& parts) noexcept : m_parts(parts) {}

  void parameter(TextView name, TextView value) { m_parts.parameters.push_back({name, {value}}); }
  void bareParameter(TextView value) {
    const TextView property = m_parts.name.substr(m_parts.name.find(u'.') + 1);
    parameter(nameOfBareParameter(property, value), value);
  }
  void furtherValue(TextView value) { m_parts.parameters.back().values.push_back(value); }
  void endParameter() {}

 private:
  ContentLineParts& m_parts;
};

} // namespace

ContentLineParts partsOfContentLine(TextView line) {
  ContentLineParts parts;
  parts.reason = walkName(line, parts.end, parts.name);
  if (parts.reason == DropReason::none) {
    Parting parting(parts);
    parts.reason = walkParameters(line, parts.end, parting);
  }
  parts.value = line.substr(std::min(parts.end, line.size()));
  return parts;
}

/// What a walk along a content line comes upon: a property that is filled.
class ContentLineParser::Filling {
 public:
  Filling(const ContentLineParser& parser, VCardProperty& property) noexcept
      : m_parser(parser), m_property(property) {}

  void parameter(TextView name, TextView value) {
    m_parameter = makeIn<VCardParameter>(m_parser.m_arena);
    m_parameter->m_name = nameStorage(UpperCasedName(name).view());
    furtherValue(value);
  }
  void bareParameter(TextView value) {
    parameter(nameOfBareParameter(m_property.name(), value), value);
  }
  void furtherValue(TextView value) {
    if (value.find(u'^') == TextView::npos) {
      m_parameter->m_values.push_back(m_parser.kept(value));
    } else {
      m_parameter->addValue(value);
    }
  }
  void endParameter() { m_property.takeParameter(std::move(m_parameter)); }

 private:
  const ContentLineParser& m_parser;
  VCardProperty& m_property;
  std::shared_ptr<VCardParameter> m_parameter;
};

ContentLineParser::ContentLineParser(VersionCode version, DateFormatter* formatter, Arena* arena)
    : m_version(version), m_formatter(formatter), m_arena(arena) {
  if (formatter == nullptr) {
    fatalError("Formatter is nil");
  }
}

detail::TextStorage ContentLineParser::kept(TextView part) const {
  return m_arena != nullptr ? detail::TextStorage::lend(part) : detail::TextStorage(part);
}

const detail::SharedText& ContentLineParser::sharedCharset(TextView name) {
  if (m_charset.optionalView() != name) {
    m_charset.assign(name);
  }
  return m_charset;
}

DropReason ContentLineParser::parse(TextView line, VCardProperty& property) {
  std::size_t location = 0;
  TextView token;
  if (const DropReason reason = walkName(line, location, token); reason != DropReason::none) {
    return reason;
  }
  const std::size_t dot = token.find(u'.');
  property.m_group = dot == TextView::npos ? detail::TextStorage() : kept(token.substr(0, dot));
  const TextView name = dot == TextView::npos ? token : token.substr(dot + 1);
  const UpperCasedName upper(name);
  const KnownName* known = knownName(upper.view());
  property.m_name = known != nullptr ? detail::TextStorage::borrow(known->name)
                                     : detail::TextStorage(upper.view());
  property.setParameterDict(std::nullopt);
  property.m_value.reset();

  Filling filling(*this, property);
  if (const DropReason reason = walkParameters(line, location, filling);
      reason != DropReason::none) {
    return reason;
  }
  const TextView type = known == nullptr ? property.defaultTypeForVersion(m_version)
                        : m_version < 4  ? known->value.below4
                                         : known->value.type;
  parseValue(line.substr(location), type, property);
  if (equalIgnoringCase(property.name(), cVCardProperty_VERSION) && !property.textValue()) {
    return DropReason::versionWithoutText;
  }
  return DropReason::none;
}

void ContentLineParser::parseValue(TextView text, TextView type, VCardProperty& property) {
  while (!text.empty() && isWhitespace(text.front())) {
    text.remove_prefix(1);
  }
  std::optional<TextView> charset;
  bool isQuotedPrintable = false;
  if (!property.m_parameters.empty()) {
    const std::optional<TextView> stated = property.valueOfParameterWithKey(cVCardParameter_VALUE);
    if (stated) {
      const std::optional<TextView> implied = equivalentType(type);
      if (!implied || !equalIgnoringCase(*implied, *stated)) {
        type = *stated;
      }
    }
    charset = property.valueOfParameterWithKey(cVCardParameter_CHARSET);
    const std::optional<TextView> encoding =
        property.valueOfParameterWithKey(cVCardParameter_ENCODING);
    isQuotedPrintable =
        encoding && equalIgnoringCase(*encoding, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
  }
  std::shared_ptr<VCardValue> value = property.isMultiValueProperty()
                                          ? multiValueWithTypeIn(type, m_arena)
                                          : valueWithTypeIn(type, m_arena);
  if (charset) {
    ValueReading::setCharset(*value, sharedCharset(*charset));
  }
  value->setQuotedPrintable(isQuotedPrintable);
  if (m_arena != nullptr) {
    ValueReading::parseLent(*value, text, m_version, m_formatter);
  } else {
    value->parse(text, m_version, m_formatter);
  }
  property.m_value = std::move(value);
}

bool VCardProperty::parse(TextView contentLine, VersionCode version, DateFormatter* formatter) {
  changed();
  return ContentLineParser(version, formatter).parse(contentLine, *this) == DropReason::none;
}

} // namespace cardwright
