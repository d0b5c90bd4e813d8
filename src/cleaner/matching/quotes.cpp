#include "cleaner/matching/quotes.h"

#include "base/ascii.h"
#include "cleaner/matching/letters.h"

namespace cardwright {

namespace {

/// The quote that closes the one at `open`, or where the search for it stopped.
std::size_t closingQuote(TextView text, std::size_t open) noexcept {
  std::size_t at = open + 1;
  while (at < text.size() && text[at] != u'"' && !isLineTerminator(text[at])) {
    ++at;
  }
  return at;
}

bool isQuote(TextView text, std::size_t at) noexcept {
  return at < text.size() && text[at] == u'"';
}

} // namespace

std::size_t QuotePhase::at(TextView text, std::size_t position) noexcept {
  if (m_at == TextView::npos) {
    m_at = position;
  }
  for (; m_at < position; ++m_at) {
    m_phase ^= text[m_at] == u'"' ? 1U : 0U;
  }
  return m_phase;
}

std::size_t ColonFinder::colonBehind(std::size_t from) noexcept {
  Walk& earlier = m_walks[m_phase.at(m_text, from)];
  if (!earlier.isDone || from > earlier.end) {
    walk(earlier, from);
  }
  return earlier.colon;
}

void ColonFinder::walk(Walk& walk, std::size_t from) const noexcept {
  walk.isDone = true;
  walk.colon = TextView::npos;
  std::size_t at = from;
  for (; at < m_text.size() && !isLineTerminator(m_text[at]); ++at) {
    if (m_text[at] == u':') {
      walk.colon = at;
      break;
    }
    if (m_text[at] == u'"') {
      at = closingQuote(m_text, at);
      if (!isQuote(m_text, at)) {
        break;
      }
    }
  }
  walk.end = at;
}

bool ParameterWalker::reachesColon(std::size_t semicolon) noexcept {
  Walk& earlier = m_walks[m_phase.at(m_text, semicolon)];
  if (!earlier.isDone || semicolon > earlier.end) {
    walk(earlier, semicolon);
  }
  return earlier.reachesColon;
}

void ParameterWalker::walk(Walk& walk, std::size_t semicolon) const noexcept {
  walk.isDone = true;
  walk.reachesColon = false;
  std::size_t at = semicolon;
  while (at < m_text.size()) {
    const char16_t unit = m_text[at];
    if (unit == u':') {
      walk.reachesColon = true;
      break;
    }
    if (unit == u';') {
      std::size_t nameEnd = at + 1;
      while (nameEnd < m_text.size() && isNameUnit(m_text[nameEnd])) {
        ++nameEnd;
      }
      if (nameEnd == at + 1 || nameEnd >= m_text.size() || m_text[nameEnd] != u'=') {
        break;
      }
      at = nameEnd + 1;
    } else if (unit == u'"') {
      at = closingQuote(m_text, at);
      if (!isQuote(m_text, at)) {
        break;
      }
      ++at;
    } else if (isLineTerminator(unit)) {
      break;
    } else {
      ++at;
    }
  }
  walk.end = at;
}

} // namespace cardwright
