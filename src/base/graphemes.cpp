#include "base/graphemes.h"

#include "base/ascii.h"
#include "base/fatal.h"

#include <unicode/ubrk.h>

#include <algorithm>
#include <memory>

namespace cardwright {

namespace {

/// Characters of which no two ever join, CR LF aside: letters and signs without marks, joiners,
/// jamo, or prepended signs among them.
bool neverJoins(char16_t unit) noexcept {
  return unit < 0x300 || (unit >= 0x370 && unit <= 0x482) || (unit >= 0x4E00 && unit <= 0x9FFF);
}

bool isCertainBoundary(char16_t before, char16_t after) noexcept {
  return neverJoins(before) && neverJoins(after) && !(before == u'\r' && after == u'\n');
}

/// End of the run of units that begins at `position` and ends before the first certain boundary.
std::size_t endOfUncertainRun(TextView text, std::size_t position) noexcept {
  std::size_t end = position + 1;
  while (end < text.size() && !isCertainBoundary(text[end - 1], text[end])) {
    ++end;
  }
  return end;
}

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

  void start(TextView text, std::size_t begin, std::size_t end) {
    // ICU counts in 32 bits: longer runs are walked piece by piece.
    constexpr std::size_t kLongest = std::size_t{1} << 30U;
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(iterator.get(), reinterpret_cast<const UChar*>(text.data() + begin),
                 static_cast<int32_t>(std::min(end - begin, kLongest)), &status);
    runBegin = begin;
    ++ticket;
  }
};

SharedIterator& sharedIterator() {
  thread_local SharedIterator shared;
  return shared;
}

} // namespace

std::size_t GraphemeWalker::next() {
  const std::size_t behind = m_position + 1;
  if (behind >= m_text.size() || isCertainBoundary(m_text[m_position], m_text[behind])) {
    m_position = behind;
  } else {
    m_position = nextInRun();
  }
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

std::size_t endOfCharacter(TextView text, std::size_t position) {
  if (position + 1 >= text.size() || isCertainBoundary(text[position], text[position + 1])) {
    return position + 1;
  }
  return position + GraphemeWalker(text.substr(position)).next();
}

std::size_t startOfLastCharacter(TextView text) {
  std::size_t start = text.size() - 1;
  while (start > 0 && !isCertainBoundary(text[start - 1], text[start])) {
    --start;
  }
  GraphemeWalker walker(text.substr(start));
  std::size_t last = start;
  while (!walker.atEnd()) {
    last = start + walker.position();
    walker.next();
  }
  return last;
}

bool isCharacterByItself(TextView text, std::size_t position) {
  const bool beginsHere = position == 0 || isCertainBoundary(text[position - 1], text[position]);
  const bool endsHere =
      position + 1 >= text.size() || isCertainBoundary(text[position], text[position + 1]);
  if (beginsHere && endsHere) {
    return true;
  }
  std::size_t start = position;
  while (start > 0 && !isCertainBoundary(text[start - 1], text[start])) {
    --start;
  }
  GraphemeWalker walker(text.substr(start, endOfUncertainRun(text, position) - start));
  std::size_t begin = start;
  while (begin < position) {
    begin = start + walker.next();
  }
  return begin == position && start + walker.next() == position + 1;
}

} // namespace cardwright
