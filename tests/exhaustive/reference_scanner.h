#pragma once

#include "cardwright/text.h"
#include "exhaustive/reference_codec.h"
#include "exhaustive/reference_look_ahead.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace cardwright {

/// Reads logical lines step by step, for ASCII texts.
class ReferenceScanner {
 public:
  ReferenceScanner(Text text, std::size_t location)
      : m_text(std::move(text)), m_location(location) {}

  [[nodiscard]] std::size_t location() const { return m_location; }

  /// The next logical line; empty when there is none.
  Text next() {
    Text line;
    bool headerIsExamined = false;
    bool isQuotedPrintable = false;
    for (;;) {
      Text segment;
      while (m_location < m_text.size() && !isLineEnd()) {
        segment += m_text[m_location++];
      }
      if (segment.empty()) {
        return line;
      }
      line += segment;
      if (!headerIsExamined) {
        if (const std::optional<Text> header = headerOf(line)) {
          headerIsExamined = true;
          isQuotedPrintable = upper(*header).find(u"ENCODING=QUOTED-PRINTABLE") != Text::npos;
        }
      }
      const bool hasSoftBreak = isQuotedPrintable && endsInSoftBreak(segment);
      skipLineEnds();
      const bool isContinued =
          m_location < m_text.size() && (m_text[m_location] == u' ' || m_text[m_location] == u'\t');
      if (isContinued) {
        ++m_location;
        const auto start = ReferenceLookAhead::addressBookServerProperty(m_text, m_location);
        if (ReferenceLookAhead::isAddressBookServerLine(segment) && start) {
          m_location = *start;
          return line;
        }
      } else if (!hasSoftBreak) {
        return line;
      }
      if (hasSoftBreak) {
        line = ReferenceCodec::withoutSoftBreak(line);
      }
      if (isContinued) {
        skipLineEnds();
      } else if (ReferenceLookAhead::isBoundary(m_text, m_location) ||
                 ReferenceLookAhead::isRecoverableProperty(m_text, m_location)) {
        return line;
      }
    }
  }

 private:
  [[nodiscard]] bool isLineEnd() const {
    return m_text[m_location] == u'\r' || m_text[m_location] == u'\n';
  }

  void skipLineEnds() {
    while (m_location < m_text.size() && isLineEnd()) {
      ++m_location;
    }
  }

  static std::optional<Text> headerOf(const Text& line) {
    Text header;
    bool isQuoted = false;
    for (const char16_t unit : line) {
      if (unit == u':' && !isQuoted) {
        return header;
      }
      if (unit == u'"') {
        isQuoted = !isQuoted;
      }
      header += unit;
    }
    return std::nullopt;
  }

  static Text upper(Text text) {
    for (char16_t& unit : text) {
      unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    return text;
  }

  static bool endsInSoftBreak(Text segment) {
    while (!segment.empty() && (segment.back() == u' ' || segment.back() == u'\t')) {
      segment.pop_back();
    }
    return !segment.empty() && segment.back() == u'=';
  }

  Text m_text;
  std::size_t m_location;
};

} // namespace cardwright
