#pragma once

#include "cardwright/text.h"
#include "exhaustive/reference_codec.h"

#include <cstddef>
#include <map>
#include <optional>

namespace cardwright {

/// A content line in its plainest form, for ASCII lines of properties that hold texts.
class ReferenceContentLine {
 public:
  std::optional<Text> group;
  Text name;
  std::map<Text, TextList> parameters;
  std::optional<Text> value;
  std::optional<Text> charset;
  bool isQuotedPrintable = false;

  /// @returns whether the line is one
  bool read(const Text& line) {
    m_rest = line;
    const std::optional<Text> first = token(u";:", false);
    if (!first) {
      return false;
    }
    const std::size_t dot = first->find(u'.');
    name = upper(first->substr(dot == Text::npos ? 0 : dot + 1));
    if (dot != Text::npos) {
      group = first->substr(0, dot);
    }
    while (!m_rest.empty()) {
      const char16_t sign = taken();
      if (sign == u';' && !readParameter()) {
        return false;
      }
      if (sign == u':') {
        readValue();
      }
    }
    return value.has_value();
  }

  /// Takes a token off the front of the rest; absent when there is none.
  std::optional<Text> token(TextView delimiters, bool endIsEnough) {
    while (begins(u" ") || begins(u"\t")) {
      taken();
    }
    Text result;
    if (begins(u"\"")) {
      taken();
      while (!m_rest.empty() && !begins(u"\"")) {
        result += taken();
      }
      if (begins(u"\"")) {
        taken();
      }
    } else {
      while (!m_rest.empty() && delimiters.find(m_rest[0]) == TextView::npos) {
        result += taken();
      }
    }
    const bool isFollowed = endIsEnough || !m_rest.empty();
    return !result.empty() && isFollowed ? std::optional(result) : std::nullopt;
  }

  void setRest(const Text& rest) { m_rest = rest; }
  [[nodiscard]] const Text& rest() const { return m_rest; }

 private:
  static Text upper(Text text) {
    for (char16_t& unit : text) {
      unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    return text;
  }

  [[nodiscard]] bool begins(TextView with) const { return m_rest.starts_with(with); }

  char16_t taken() {
    const char16_t unit = m_rest[0];
    m_rest.erase(0, 1);
    return unit;
  }

  bool readParameter() {
    const std::optional<Text> first = token(u"=;:", false);
    if (!first) {
      return false;
    }
    TextList values;
    Text key;
    if (begins(u"=")) {
      taken();
      key = upper(*first);
      const std::optional<Text> second = token(u",;:", false);
      if (!second) {
        return false;
      }
      values.push_back(*second);
    } else {
      key = name == u"PHOTO" && upper(*first) == u"BASE64" ? u"ENCODING" : u"TYPE";
      values.push_back(*first);
    }
    while (begins(u",")) {
      taken();
      const std::optional<Text> further = token(u",;:", false);
      if (!further) {
        break;
      }
      values.push_back(*further);
    }
    parameters[key].insert(parameters[key].end(), values.begin(), values.end());
    return true;
  }

  void readValue() {
    while (begins(u" ") || begins(u"\t")) {
      taken();
    }
    if (parameters.contains(u"CHARSET")) {
      charset = parameters[u"CHARSET"].front();
    }
    isQuotedPrintable = parameters.contains(u"ENCODING") &&
                        upper(parameters[u"ENCODING"].front()) == u"QUOTED-PRINTABLE";
    value = ReferenceCodec::value(m_rest, isQuotedPrintable, charset);
    m_rest.clear();
  }

  Text m_rest;
};

} // namespace cardwright
