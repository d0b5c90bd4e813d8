#include "cleaner/plain_lines.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/scan_lanes.h"
#include "cleaner/characters.h"
#include "cleaner/line_predicates.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/vocabulary.h"

namespace cardwright {

namespace {

/// What of a line's name matters to the cleaner.
enum class NameKind { remembered, note, extension, cardBegin, cardEnd, other };

/// Whether an ASCII text is an upper-case one but for the case of its letters.
bool isAsciiName(TextView text, TextView upper) noexcept {
  if (text.size() != upper.size()) {
    return false;
  }
  for (std::size_t i = 0; i < upper.size(); ++i) {
    if (asciiUpper(text[i]) != upper[i]) {
      return false;
    }
  }
  return true;
}

NameKind kindOfExtension(TextView name) {
  const UpperCasedName upper(name);
  if (kSingularNames.contains(upper.view()) || upper.view() == kMemberName) {
    return NameKind::remembered;
  }
  return isExtensionName(upper.view()) ? NameKind::extension : NameKind::other;
}

NameKind kindOfName(TextView name) {
  switch (asciiUpper(name.front())) {
  case u'X':
  case u'V':
    return kindOfExtension(name);
  case u'N':
    return isAsciiName(name, u"NOTE") ? NameKind::note : NameKind::other;
  case u'B':
    return isAsciiName(name, u"BEGIN") ? NameKind::cardBegin : NameKind::other;
  case u'E':
    return isAsciiName(name, u"END") ? NameKind::cardEnd : NameKind::other;
  default:
    return NameKind::other;
  }
}

/// The name in a header that is so plain that it stands where it seems to; else empty.
TextView plainNameIn(TextView header) {
  unsigned all = 0;
  bool hasQuote = false;
  std::size_t nameEnd = header.size();
  bool hasGroup = false;
  for (std::size_t i = header.size(); i > 0; --i) {
    const char16_t unit = header[i - 1];
    all |= unit;
    hasQuote = hasQuote || unit == u'"';
    hasGroup = hasGroup || unit == u'.';
    nameEnd = unit == u';' ? i - 1 : nameEnd;
  }
  if (header.empty() || all >= 0x80 || hasQuote || isSpaceOrTab(header.front())) {
    return {};
  }
  const bool isEscaped = nameEnd > 0 && header[nameEnd - 1] == u'\\';
  return hasGroup || isEscaped ? propertyNameIn(header) : header.substr(0, nameEnd);
}

/// Whether an extended name may begin somewhere in the text.
bool holdsExtensionPrefix(TextView text) noexcept {
  std::size_t hyphen = text.find(u'-');
  while (hyphen != TextView::npos && startOfExtensionPrefix(text, hyphen) == TextView::npos) {
    hyphen = text.find(u'-', hyphen + 1);
  }
  return hyphen != TextView::npos;
}

std::size_t behindLineEnd(TextView text, std::size_t end) noexcept {
  if (end >= text.size()) {
    return end;
  }
  const bool isCrLf = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
  return end + (isCrLf ? 2 : 1);
}

bool isContinuation(TextView text, std::size_t begin) {
  return begin < text.size() && isSpaceOrTab(text[begin]) && standsAlone(text.substr(begin), 0);
}

/// Whether "=" may be what a line ends in so far: a further piece of nothing but blanks does not
/// show it.
bool mayEndInEqualsSign(TextView piece) noexcept {
  while (!piece.empty() && isSpaceOrTab(piece.back())) {
    piece.remove_suffix(1);
  }
  return piece.empty() || piece.back() == u'=';
}

/// A logical line while its physical lines are looked at.
class Examination {
 public:
  Examination(TextView text, std::size_t begin) noexcept : m_text(text), m_begin(begin) {}

  PlainLine run(std::size_t& next) {
    const LineMarks marks = marksOfLine(m_text, m_begin);
    m_header = m_text.substr(m_begin, marks.colon - m_begin);
    const TextView line = m_text.substr(m_begin, marks.end - m_begin);
    if (marks.colon == marks.end || !standsAlone(line, m_header.size())) {
      return PlainLine::none;
    }
    const TextView name = plainNameIn(m_header);
    if (name.empty()) {
      return PlainLine::none;
    }
    m_kind = kindOfName(name);
    next = behindLineEnd(m_text, marks.end);
    const bool isFolded = isContinuation(m_text, next);
    // A mark behind the fold would join a colon before it.
    const bool isColonAtFold = isFolded && marks.colon + 1 == marks.end;
    const bool needsNothing = m_kind != NameKind::remembered && holdsNoRepair(marks, line) &&
                              !mayBeContinued(line) &&
                              (!marks.hasFurtherColon ||
                               (m_kind != NameKind::note && !isFolded && !holdsTwoHeaders(line))) &&
                              !isColonAtFold && (!isFolded || passContinuations(next));
    return needsNothing ? answer(line) : PlainLine::none;
  }

 private:
  /// Whether a piece of the value has none of the signs that repairs begin with, colons aside.
  [[nodiscard]] bool holdsNoRepair(const LineMarks& marks, TextView piece) const noexcept {
    if (m_kind == NameKind::note) {
      return !marks.hasAmpersand;
    }
    return m_kind == NameKind::extension || !marks.hasPrefixHyphen || !holdsExtensionPrefix(piece);
  }

  [[nodiscard]] bool mayBeContinued(TextView piece) const {
    return mayEndInEqualsSign(piece) && declaresQuotedPrintable(m_header);
  }

  bool passContinuations(std::size_t& next) const {
    while (isContinuation(m_text, next)) {
      const std::size_t begin = next + 1;
      const LineMarks marks = marksOfLine(m_text, begin);
      const TextView piece = m_text.substr(begin, marks.end - begin);
      // The fold may have torn the "VND-" or "X-" that an extended name begins with.
      const bool mayTearName = m_kind != NameKind::note && m_kind != NameKind::extension &&
                               piece.substr(0, 3).find(u'-') != TextView::npos;
      if (marks.colon != marks.end || mayTearName || !holdsNoRepair(marks, piece) ||
          mayBeContinued(piece)) {
        return false;
      }
      next = behindLineEnd(m_text, marks.end);
    }
    return true;
  }

  [[nodiscard]] PlainLine answer(TextView line) const noexcept {
    constexpr TextView kCard = u"VCARD";
    const TextView value = line.substr(m_header.size() + 1).substr(0, kCard.size());
    if (m_kind != NameKind::cardBegin && m_kind != NameKind::cardEnd) {
      return PlainLine::property;
    }
    // Any other line of these names is left to the passes themselves.
    const bool isBoundary =
        m_header.size() == (m_kind == NameKind::cardBegin ? 5 : 3) && isAsciiName(value, kCard);
    if (!isBoundary) {
      return PlainLine::none;
    }
    return m_kind == NameKind::cardBegin ? PlainLine::cardBegin : PlainLine::cardEnd;
  }

  TextView m_text;
  std::size_t m_begin;
  TextView m_header;
  NameKind m_kind = NameKind::other;
};

} // namespace

PlainLine plainLineAt(TextView text, std::size_t begin, std::size_t& next) {
  return begin < text.size() ? Examination(text, begin).run(next) : PlainLine::none;
}

} // namespace cardwright
