#include "cleaner/plain_lines.h"

#include "base/ascii.h"
#include "base/scan_lanes.h"
#include "cleaner/characters.h"
#include "cleaner/line_predicates.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/segmentation.h"
#include "cleaner/vocabulary.h"

#include <algorithm>
#include <vector>

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

/// The kind of an ASCII name that begins as extended names do.
NameKind kindOfExtension(TextView name) noexcept {
  const auto isName = [name](TextView upper) { return isAsciiName(name, upper); };
  const auto& singular = kSingularNames.names();
  if (isName(kMemberName) || std::any_of(singular.begin(), singular.end(), isName)) {
    return NameKind::remembered;
  }
  const bool isExtension =
      isAsciiName(name.substr(0, 2), u"X-") || isAsciiName(name.substr(0, 4), u"VND-");
  return isExtension ? NameKind::extension : NameKind::other;
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

/// Whether quotes stand around values of parameters only, and nothing between them means anything
/// elsewhere, commas aside.
bool hasPlainQuotes(TextView header) noexcept {
  for (std::size_t open = header.find(u'"'); open != TextView::npos;) {
    const std::size_t close = header.find_first_of(u"\":;=", open + 1);
    if (close == TextView::npos || header[close] != u'"' || close == open + 1) {
      return false;
    }
    const char16_t before = open == 0 ? u'\0' : header[open - 1];
    const char16_t behind = close + 1 == header.size() ? u';' : header[close + 1];
    if ((before != u'=' && before != u',') || (behind != u';' && behind != u',')) {
      return false;
    }
    open = header.find(u'"', close + 1);
  }
  return true;
}

/// The name in a header that is so plain that it stands where it seems to; else empty.
TextView plainNameIn(TextView header, const HeaderMarks& marks, std::size_t begin) {
  if (marks.isOdd || (marks.hasQuotes && !hasPlainQuotes(header)) || !marks.hasColon ||
      header.empty() || isSpaceOrTab(header.front())) {
    return {};
  }
  return marks.hasDot ? propertyNameIn(header) : header.substr(0, marks.nameEnd - begin);
}

/// Whether an extended name may begin somewhere in the text.
bool holdsExtensionPrefix(TextView text) noexcept {
  std::size_t hyphen = text.find(u'-');
  while (hyphen != TextView::npos && startOfExtensionPrefix(text, hyphen) == TextView::npos) {
    hyphen = text.find(u'-', hyphen + 1);
  }
  return hyphen != TextView::npos;
}

/// Whether the reader may have more to do for the name: it cuts and indents such properties anew.
bool isAddressBookServerName(TextView name) noexcept {
  constexpr TextView kPrefix = u"X-ADDRESSBOOKSERVER-";
  return asciiUpper(name.front()) == u'X' && isAsciiName(name.substr(0, kPrefix.size()), kPrefix);
}

/// Moves from the end of a line behind its line end. False at a CR without a LF, which may be one
/// of many.
bool passLineEnd(TextView text, std::size_t& at) noexcept {
  if (at < text.size()) {
    if (text[at] == u'\r' && (++at == text.size() || text[at] != u'\n')) {
      return false;
    }
    ++at;
  }
  return true;
}

bool isContinuation(TextView text, std::size_t begin) {
  return begin < text.size() && isSpaceOrTab(text[begin]) && standsAlone(text.substr(begin), 0);
}

TextView withoutTrailingBlanks(TextView piece) noexcept {
  while (!piece.empty() && isSpaceOrTab(piece.back())) {
    piece.remove_suffix(1);
  }
  return piece;
}

/// A logical line while its physical lines are looked at.
class Examination {
 public:
  Examination(TextView text, std::size_t begin) noexcept : m_text(text), m_begin(begin) {}

  bool run(PlainLook& look) {
    const HeaderMarks header = marksOfHeader(m_text, m_begin);
    m_header = m_text.substr(m_begin, header.end - m_begin);
    m_name = plainNameIn(m_header, header, m_begin);
    if (m_name.empty()) {
      return false;
    }
    m_kind = kindOfName(m_name);
    const ValueMarks marks = marksOfValue(m_text, header.end + 1);
    const TextView line = m_text.substr(m_begin, marks.end - m_begin);
    if (!standsAlone(line, m_header.size())) {
      return false;
    }
    look.end = marks.end;
    look.next = marks.end;
    if (!passLineEnd(m_text, look.next)) {
      return false;
    }
    const bool isFolded = isContinuation(m_text, look.next);
    // A mark behind the fold would join a colon before it.
    const bool isColonAtFold = isFolded && header.end + 1 == marks.end;
    const bool needsNothing =
        m_kind != NameKind::remembered && holdsNoRepair(marks, line.substr(m_header.size() + 1)) &&
        (isFolded || !endsInSoftBreak(line)) &&
        (!marks.hasColon || (m_kind != NameKind::note && !isFolded && !isMerged(line, marks))) &&
        !isColonAtFold && (!isFolded || passContinuations(look.next));
    if (!needsNothing || !isPlainKind(line, look.kind)) {
      return false;
    }
    look.isSimple = !isFolded && !marks.hasAmpersand && !isAddressBookServerName(m_name);
    look.isSoundProperty =
        look.kind == PlainLine::property && !header.hasGaps && !mayBeVersion(header);
    return true;
  }

 private:
  /// More is asked of a VERSION than of other properties.
  [[nodiscard]] bool mayBeVersion(const HeaderMarks& header) const noexcept {
    constexpr TextView kVersion = u"VERSION";
    return header.nameEnd - m_begin >= kVersion.size() &&
           asciiUpper(m_text[header.nameEnd - 1]) == kVersion.back();
  }

  /// Whether a piece of the value has none of the signs that repairs begin with, colons aside.
  [[nodiscard]] bool holdsNoRepair(const ValueMarks& marks, TextView piece) const noexcept {
    if (m_kind == NameKind::note) {
      return !marks.hasAmpersand;
    }
    return m_kind == NameKind::extension || !marks.hasPrefixHyphen || !holdsExtensionPrefix(piece);
  }

  /// Whether a line with several colons is to be cut.
  [[nodiscard]] bool isMerged(TextView line, const ValueMarks& marks) const {
    const TextView value = line.substr(m_header.size() + 1);
    if (isUncutUri(m_name, value)) {
      return false;
    }
    if ((!marks.hasPrefixHyphen && !mayHoldStandardHeader(value)) || !holdsTwoHeaders(line)) {
      return false;
    }
    std::vector<TextView> pieces;
    return cutMergedProperties(line, pieces);
  }

  [[nodiscard]] bool endsInSoftBreak(TextView piece) const {
    const TextView content = withoutTrailingBlanks(piece);
    return !content.empty() && content.back() == u'=' && declaresQuotedPrintable(m_header);
  }

  bool passContinuations(std::size_t& next) const {
    bool endsSoftly = false;
    while (isContinuation(m_text, next)) {
      const std::size_t begin = next + 1;
      const ValueMarks marks = marksOfValue(m_text, begin);
      const TextView piece = m_text.substr(begin, marks.end - begin);
      // The fold may have torn the "VND-" or "X-" that an extended name begins with.
      const bool mayTearName = m_kind != NameKind::note && m_kind != NameKind::extension &&
                               piece.substr(0, 3).find(u'-') != TextView::npos;
      // A piece of nothing but blanks does not show what the line ends in.
      if (marks.hasColon || mayTearName || !holdsNoRepair(marks, piece) ||
          withoutTrailingBlanks(piece).empty()) {
        return false;
      }
      next = marks.end;
      if (!passLineEnd(m_text, next)) {
        return false;
      }
      endsSoftly = endsInSoftBreak(piece);
    }
    return !endsSoftly;
  }

  /// Tells what the line is; any but the plainest boundary is left to the passes themselves.
  [[nodiscard]] bool isPlainKind(TextView line, PlainLine& kind) const noexcept {
    if (m_kind != NameKind::cardBegin && m_kind != NameKind::cardEnd) {
      kind = PlainLine::property;
      return true;
    }
    kind = m_kind == NameKind::cardBegin ? PlainLine::cardBegin : PlainLine::cardEnd;
    return m_header.size() == (m_kind == NameKind::cardBegin ? 5 : 3) &&
           isAsciiName(line.substr(m_header.size() + 1), u"VCARD");
  }

  TextView m_text;
  std::size_t m_begin;
  TextView m_header;
  TextView m_name;
  NameKind m_kind = NameKind::other;
};

} // namespace

bool plainLineAt(TextView text, std::size_t begin, PlainLook& look) {
  return begin < text.size() && Examination(text, begin).run(look);
}

} // namespace cardwright
