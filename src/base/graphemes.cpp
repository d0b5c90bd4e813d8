#include "base/graphemes.h"

#include "base/ascii.h"
#include "base/fatal.h"
#include "base/never_joining.h"
#include "base/of_thread.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>

namespace cardwright {

namespace {

/// What two neighbouring code points say about the place between them.
enum class Link {
  broken, ///< a boundary
  joined, ///< one character
  unclear ///< what stands further ahead decides
};

int clusterClass(char32_t codePoint) noexcept {
  return u_getIntPropertyValue(static_cast<UChar32>(codePoint), UCHAR_GRAPHEME_CLUSTER_BREAK);
}

bool isControl(int clusterClass) noexcept {
  return clusterClass == U_GCB_CONTROL || clusterClass == U_GCB_CR || clusterClass == U_GCB_LF;
}

bool hangulJoins(int before, int after) noexcept {
  switch (before) {
  case U_GCB_L:
    return after == U_GCB_L || after == U_GCB_V || after == U_GCB_LV || after == U_GCB_LVT;
  case U_GCB_LV:
  case U_GCB_V:
    return after == U_GCB_V || after == U_GCB_T;
  case U_GCB_LVT:
  case U_GCB_T:
    return after == U_GCB_T;
  default:
    return false;
  }
}

Link linkBetween(char32_t left, char32_t right) noexcept {
  const int before = clusterClass(left);
  const int after = clusterClass(right);
  if (isControl(before) || isControl(after)) {
    return before == U_GCB_CR && after == U_GCB_LF ? Link::joined : Link::broken;
  }
  if (after == U_GCB_EXTEND || after == U_GCB_ZWJ || after == U_GCB_SPACING_MARK ||
      before == U_GCB_PREPEND || hangulJoins(before, after)) {
    return Link::joined;
  }
  // Flags come in pairs; pictures and the consonants of some Indic scripts join over what stands
  // between them.
  const auto rightPoint = static_cast<UChar32>(right);
  const bool isUnclear =
      before == U_GCB_REGIONAL_INDICATOR
          ? after == U_GCB_REGIONAL_INDICATOR
          : (before == U_GCB_ZWJ || before == U_GCB_EXTEND) &&
                (u_hasBinaryProperty(rightPoint, UCHAR_EXTENDED_PICTOGRAPHIC) ||
                 u_getIntPropertyValue(rightPoint, UCHAR_INDIC_SYLLABIC_CATEGORY) ==
                     U_INSC_CONSONANT);
  return isUnclear ? Link::unclear : Link::broken;
}

/// The link between the units before and at `position`, which is inside the text.
Link linkAt(TextView text, std::size_t position) noexcept {
  const char16_t before = text[position - 1];
  const char16_t after = text[position];
  if (neverJoins(before) && neverJoins(after)) {
    return before == u'\r' && after == u'\n' ? Link::joined : Link::broken;
  }
  char32_t left = before;
  if (isHighSurrogate(before) && isLowSurrogate(after)) {
    return Link::joined;
  }
  if (isLowSurrogate(before) && position > 1 && isHighSurrogate(text[position - 2])) {
    left = codePointAt(text, position - 2);
  }
  return linkBetween(left, codePointAt(text, position));
}

/// Where the joined units that begin at `position` end, or seem to.
std::size_t endOfJoined(TextView text, std::size_t position, Link& link) noexcept {
  link = Link::broken;
  std::size_t end = position + 1;
  while (end < text.size() && (link = linkAt(text, end)) == Link::joined) {
    ++end;
  }
  return end;
}

/// End of the run of units that begins at `position` and ends before the first certain boundary.
std::size_t endOfUncertainRun(TextView text, std::size_t position) noexcept {
  std::size_t end = position + 1;
  while (end < text.size() && linkAt(text, end) != Link::broken) {
    ++end;
  }
  return end;
}

/// Start of the run of units that holds `position` and begins at a certain boundary.
std::size_t startOfUncertainRun(TextView text, std::size_t position) noexcept {
  while (position > 0 && linkAt(text, position) != Link::broken) {
    --position;
  }
  return position;
}

/// ICU counts in 32 bits: longer runs are walked piece by piece.
constexpr std::size_t kLongestPiece = std::size_t{1} << 30U;

/// One break iterator for each thread: they are expensive to make.
struct SharedIterator {
  std::unique_ptr<UBreakIterator, void (*)(UBreakIterator*)> iterator{nullptr, ubrk_close};
  std::uint64_t ticket = 0; ///< of the run that it walks now
  std::size_t runBegin = 0;

  SharedIterator() {
    UErrorCode status = U_ZERO_ERROR;
    iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
    if (U_FAILURE(status)) {
      fatalError("no character boundaries: ICU's data is missing");
    }
  }

  /// Costs the same for a run of any length.
  void start(TextView text, std::size_t begin, std::size_t end) {
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(iterator.get(), reinterpret_cast<const UChar*>(text.data() + begin),
                 static_cast<int32_t>(std::min(end - begin, kLongestPiece)), &status);
    runBegin = begin;
    ++ticket;
  }
};

SharedIterator& sharedIterator() {
  return ofThread<SharedIterator>();
}

} // namespace

std::size_t GraphemeWalker::next() {
  Link link = Link::broken;
  const std::size_t end = endOfJoined(m_text, m_position, link);
  m_position = end < m_text.size() && link == Link::unclear ? nextInRun() : end;
  return m_position;
}

std::size_t GraphemeWalker::nextInRun() {
  SharedIterator& shared = sharedIterator();
  if (m_position >= m_runEnd || m_iteration != shared.ticket) {
    // A new run, or another walker took the iterator meanwhile. Starting at a boundary gives the
    // same boundaries behind it.
    if (m_position >= m_runEnd) {
      m_runEnd = endOfUncertainRun(m_text, m_position);
    }
    shared.start(m_text, m_position, m_runEnd);
    m_iteration = shared.ticket;
  }
  int32_t offset = ubrk_next(shared.iterator.get());
  if (offset == UBRK_DONE) {
    // The piece has ended before the run.
    shared.start(m_text, m_position, m_runEnd);
    m_iteration = shared.ticket;
    offset = ubrk_next(shared.iterator.get());
  }
  return shared.runBegin + static_cast<std::size_t>(offset);
}

std::size_t certainBoundaryBefore(TextView text, std::size_t begin, std::size_t position) {
  while (position > begin) {
    const Link link = linkAt(text, position);
    if (link != Link::joined) {
      return link == Link::broken ? position : begin;
    }
    --position;
  }
  return begin;
}

std::size_t endOfCharacter(TextView text, std::size_t position) {
  Link link = Link::broken;
  const std::size_t end = endOfJoined(text, position, link);
  if (end == text.size() || link == Link::broken) {
    return end;
  }
  SharedIterator& shared = sharedIterator();
  shared.start(text, position, text.size());
  return position + static_cast<std::size_t>(ubrk_next(shared.iterator.get()));
}

std::size_t startOfLastCharacter(TextView text) {
  Link link = Link::broken;
  std::size_t start = text.size() - 1;
  while (start > 0 && (link = linkAt(text, start)) == Link::joined) {
    --start;
  }
  if (start == 0 || link == Link::broken) {
    return start;
  }
  SharedIterator& shared = sharedIterator();
  shared.start(text, text.size() - std::min(text.size(), kLongestPiece), text.size());
  ubrk_last(shared.iterator.get());
  return shared.runBegin + static_cast<std::size_t>(ubrk_previous(shared.iterator.get()));
}

bool isCharacterByItself(TextView text, std::size_t position) {
  const Link before = position == 0 ? Link::broken : linkAt(text, position);
  const Link after = position + 1 >= text.size() ? Link::broken : linkAt(text, position + 1);
  if (before == Link::joined || after == Link::joined) {
    return false;
  }
  if (before == Link::broken && after == Link::broken) {
    return true;
  }
  const std::size_t start = startOfUncertainRun(text, position);
  GraphemeWalker walker(text.substr(start, endOfUncertainRun(text, position) - start));
  std::size_t begin = start;
  while (begin < position) {
    begin = start + walker.next();
  }
  return begin == position && start + walker.next() == position + 1;
}

} // namespace cardwright
