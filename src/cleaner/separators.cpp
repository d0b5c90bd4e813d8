#include "cleaner/separators.h"

#include "base/ascii.h"
#include "base/scan_lanes.h"

namespace cardwright {

namespace {

/// End of the run of CRs that begins at `position`.
std::size_t endOfCrRun(TextView text, std::size_t position) noexcept {
  while (position < text.size() && text[position] == u'\r') {
    ++position;
  }
  return position;
}

bool isLineFeedAt(TextView text, std::size_t position) noexcept {
  return position < text.size() && text[position] == u'\n';
}

bool hasLoneLineFeed(TextView text) noexcept {
  for (std::size_t at = text.find(u'\n'); at != TextView::npos; at = text.find(u'\n', at + 1)) {
    if (at == 0 || text[at - 1] != u'\r') {
      return true;
    }
  }
  return false;
}

/// Makes one CR LF of every run of CRs that ends in LF.
Text collapsedBeforeLineFeeds(TextView text) {
  Text result;
  result.reserve(text.size());
  std::size_t copied = 0;
  for (std::size_t run = text.find(u"\r\r"); run != TextView::npos;) {
    const std::size_t end = endOfCrRun(text, run);
    if (isLineFeedAt(text, end)) {
      result.append(text.substr(copied, run - copied));
      copied = end - 1;
    }
    run = text.find(u"\r\r", end);
  }
  result.append(text.substr(copied));
  return result;
}

/// How many CRs at the position stand alone, that is, not before a LF.
std::size_t loneCrs(TextView text, std::size_t position, std::size_t end) noexcept {
  return end - position - (isLineFeedAt(text, end) ? 1 : 0);
}

/// Makes k CR LF of every run of 2k lone CRs; absent unless there are such runs and no others.
std::optional<Text> pairedToCrLf(TextView text) {
  bool hasRun = false;
  for (std::size_t run = text.find(u'\r'); run != TextView::npos;) {
    const std::size_t end = endOfCrRun(text, run);
    const std::size_t lone = loneCrs(text, run, end);
    if (lone % 2 != 0) {
      return std::nullopt;
    }
    hasRun = hasRun || lone != 0;
    run = text.find(u'\r', end);
  }
  if (!hasRun) {
    return std::nullopt;
  }
  Text result;
  result.reserve(text.size());
  std::size_t copied = 0;
  for (std::size_t run = text.find(u'\r'); run != TextView::npos;) {
    const std::size_t end = endOfCrRun(text, run);
    const std::size_t lone = loneCrs(text, run, end);
    result.append(text.substr(copied, run - copied));
    for (std::size_t i = 0; i < lone; i += 2) {
      result.append(u"\r\n");
    }
    copied = run + lone;
    run = text.find(u'\r', end);
  }
  result.append(text.substr(copied));
  return result;
}

} // namespace

std::optional<Text> repairedSeparators(TextView text) {
  const std::size_t firstPair = findDoubleCr(text);
  if (firstPair == TextView::npos) {
    return std::nullopt;
  }
  if (text.find(u"\r\r\n", firstPair) == TextView::npos) {
    return hasLoneLineFeed(text) ? std::nullopt : pairedToCrLf(text);
  }
  Text collapsed = collapsedBeforeLineFeeds(text);
  if (!hasLoneLineFeed(collapsed)) {
    if (std::optional<Text> paired = pairedToCrLf(collapsed)) {
      return paired;
    }
  }
  return collapsed;
}

void placesBeforeSeparatorRepair(TextView original, TextView repaired,
                                 std::span<std::size_t> offsets) {
  // Line breaks are all that differs, so the two texts are walked side by side, break by break.
  std::size_t before = 0;
  std::size_t after = 0;
  for (std::size_t& offset : offsets) {
    while (after < offset) {
      if (!isLineTerminator(repaired[after])) {
        ++after;
        ++before;
        continue;
      }
      while (after < repaired.size() && isLineTerminator(repaired[after])) {
        ++after;
      }
      while (before < original.size() && isLineTerminator(original[before])) {
        ++before;
      }
    }
    offset = before - (after - offset);
  }
}

} // namespace cardwright
