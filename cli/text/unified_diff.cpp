#include "text/unified_diff.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <vector>

namespace cardwright::tool {

namespace {

using Lines = std::vector<std::string_view>;

/// Lines with their ends: CR LF, LF, or CR.
Lines splitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    if (end < text.size()) {
      end += text.substr(end).starts_with("\r\n") ? 2 : 1;
    }
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

std::string_view withoutEnd(std::string_view line) {
  return line.substr(0, line.find_last_not_of("\r\n") + 1);
}

/// A run of lines that differs: [beforeBegin, beforeEnd) became [afterBegin, afterEnd).
struct Change {
  std::size_t beforeBegin;
  std::size_t beforeEnd;
  std::size_t afterBegin;
  std::size_t afterEnd;
};

struct Pair {
  std::size_t before;
  std::size_t after;
};

/// Lines that stand once in each text: these are surely the same.
std::vector<Pair> uniquePairs(const Lines& before, const Lines& after) {
  struct Count {
    std::size_t inBefore = 0;
    std::size_t inAfter = 0;
    std::size_t atAfter = 0;
  };
  std::map<std::string_view, Count> counts;
  for (const std::string_view line : before) {
    ++counts[line].inBefore;
  }
  for (std::size_t i = 0; i < after.size(); ++i) {
    Count& count = counts[after[i]];
    ++count.inAfter;
    count.atAfter = i;
  }
  std::vector<Pair> pairs;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const Count& count = counts[before[i]];
    if (count.inBefore == 1 && count.inAfter == 1) {
      pairs.push_back({i, count.atAfter});
    }
  }
  return pairs;
}

/// The longest run of pairs in which both sides ascend.
std::vector<Pair> ascending(const std::vector<Pair>& pairs) {
  constexpr auto kNone = static_cast<std::size_t>(-1);
  std::vector<std::size_t> tails;
  std::vector<std::size_t> previous(pairs.size(), kNone);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto place = std::lower_bound(
        tails.begin(), tails.end(), pairs[i].after,
        [&pairs](std::size_t tail, std::size_t after) { return pairs[tail].after < after; });
    if (place != tails.begin()) {
      previous[i] = *std::prev(place);
    }
    if (place == tails.end()) {
      tails.push_back(i);
    } else {
      *place = i;
    }
  }
  std::vector<Pair> run;
  for (std::size_t i = tails.empty() ? kNone : tails.back(); i != kNone; i = previous[i]) {
    run.push_back(pairs[i]);
  }
  std::reverse(run.begin(), run.end());
  return run;
}

/// Adds what differs in a stretch, without the lines that are the same at its ends.
void addChange(const Lines& before, const Lines& after, Change stretch,
               std::vector<Change>& changes) {
  while (stretch.beforeBegin < stretch.beforeEnd && stretch.afterBegin < stretch.afterEnd &&
         before[stretch.beforeBegin] == after[stretch.afterBegin]) {
    ++stretch.beforeBegin;
    ++stretch.afterBegin;
  }
  while (stretch.beforeBegin < stretch.beforeEnd && stretch.afterBegin < stretch.afterEnd &&
         before[stretch.beforeEnd - 1] == after[stretch.afterEnd - 1]) {
    --stretch.beforeEnd;
    --stretch.afterEnd;
  }
  if (stretch.beforeBegin < stretch.beforeEnd || stretch.afterBegin < stretch.afterEnd) {
    changes.push_back(stretch);
  }
}

std::vector<Change> changesBetween(const Lines& before, const Lines& after) {
  std::vector<Change> changes;
  std::size_t beforeAt = 0;
  std::size_t afterAt = 0;
  for (const Pair& pair : ascending(uniquePairs(before, after))) {
    addChange(before, after, {beforeAt, pair.before, afterAt, pair.after}, changes);
    beforeAt = pair.before + 1;
    afterAt = pair.after + 1;
  }
  addChange(before, after, {beforeAt, before.size(), afterAt, after.size()}, changes);
  return changes;
}

/// Writes lines with their marks.
class HunkWriter {
 public:
  HunkWriter(const Lines& before, const Lines& after, std::string& output)
      : m_before(before), m_after(after), m_output(output) {}

  /// @param first, last changes that share one hunk
  void write(const Change* first, const Change* last) {
    constexpr std::size_t kContext = 3;
    const std::size_t lead = std::min(kContext, first->beforeBegin);
    const std::size_t trail = std::min(kContext, m_before.size() - last->beforeEnd);
    const std::size_t beforeBegin = first->beforeBegin - lead;
    const std::size_t afterBegin = first->afterBegin - lead;
    m_output += "@@ -" + range(beforeBegin, last->beforeEnd + trail) + " +" +
                range(afterBegin, last->afterEnd + trail) + " @@\n";
    std::size_t at = beforeBegin;
    for (const Change* change = first; change <= last; ++change) {
      stay(at, change->beforeBegin);
      show(*change);
      at = change->beforeEnd;
    }
    stay(at, last->beforeEnd + trail);
  }

 private:
  static std::string range(std::size_t begin, std::size_t end) {
    // An empty range is named by the line before it.
    const std::size_t count = end - begin;
    return std::to_string(count == 0 ? begin : begin + 1) + "," + std::to_string(count);
  }

  void stay(std::size_t begin, std::size_t end) {
    for (; begin < end; ++begin) {
      line(' ', m_before[begin], false);
    }
  }

  void show(const Change& change) {
    const bool showsEnds = differsInEndsOnly(change);
    for (std::size_t i = change.beforeBegin; i < change.beforeEnd; ++i) {
      line('-', m_before[i], showsEnds);
    }
    for (std::size_t i = change.afterBegin; i < change.afterEnd; ++i) {
      line('+', m_after[i], showsEnds);
    }
  }

  /// Whether some line of a change differs from its counterpart in nothing but its end.
  [[nodiscard]] bool differsInEndsOnly(const Change& change) const {
    std::size_t i = change.beforeBegin;
    std::size_t j = change.afterBegin;
    for (; i < change.beforeEnd && j < change.afterEnd; ++i, ++j) {
      if (m_before[i] != m_after[j] && withoutEnd(m_before[i]) == withoutEnd(m_after[j])) {
        return true;
      }
    }
    return false;
  }

  void line(char mark, std::string_view text, bool showsEnd) {
    const std::string_view content = withoutEnd(text);
    m_output += mark;
    m_output += content;
    if (showsEnd) {
      for (const char unit : text.substr(content.size())) {
        m_output += unit == '\r' ? "\u240D" : "\u240A";
      }
    }
    m_output += '\n';
    if (content.size() == text.size()) {
      m_output += "\\ No newline at end of file\n";
    }
  }

  const Lines& m_before;
  const Lines& m_after;
  std::string& m_output;
};

} // namespace

std::string unifiedDiff(std::string_view before, std::string_view after, std::string_view name) {
  constexpr std::size_t kGap = 6;
  const Lines beforeLines = splitLines(before);
  const Lines afterLines = splitLines(after);
  const std::vector<Change> changes = changesBetween(beforeLines, afterLines);
  std::string output;
  if (changes.empty()) {
    return output;
  }
  output.append("--- ").append(name).append("\n+++ ").append(name).append(" (cleaned)\n");
  HunkWriter writer(beforeLines, afterLines, output);
  for (auto first = changes.begin(); first != changes.end();) {
    auto last = first;
    while (std::next(last) != changes.end() &&
           std::next(last)->beforeBegin - last->beforeEnd <= kGap) {
      ++last;
    }
    writer.write(&*first, &*last);
    first = std::next(last);
  }
  return output;
}

} // namespace cardwright::tool
