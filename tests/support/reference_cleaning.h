#pragma once

#include "cardwright/vcard_cleaner.h"

#include <algorithm>
#include <optional>

namespace cardwright {

/// The cleaner as slow and plain as can be: whole lists of lines, pass after pass, out of the
/// documented operations and patterns.
class ReferenceCleaning {
 public:
  Text clean(TextView input) {
    didClean = false;
    summaries.clear();
    bool isSeparated = false;
    const Text source = separated(input, isSeparated);
    if (!isEnvelope(source)) {
      return Text(input);
    }
    const TextList unfolded = VCardCleaner::unfoldLines(source);
    const TextList lines = VCardCleaner::mergeQuotedPrintableSoftBreaks(unfolded);
    bool hasChanged = lines != unfolded;
    TextList output;
    for (const Text& line : lines) {
      hasChanged = take(line, output) || hasChanged;
    }
    if (VCardCleaner::containsSingularPropertyIn(output)) {
      TextList kept = VCardCleaner::deduplicateSingularProperties(output);
      if (kept != output) {
        summaries.emplace_back(u"Removed duplicate metadata properties");
        output = std::move(kept);
        hasChanged = true;
      }
    }
    didClean = hasChanged || isSeparated;
    const Text result = hasChanged ? joined(output) : source;
    if (isSeparated) {
      summaries.insert(summaries.begin(), u"Normalized malformed CRCRLF separators");
    } else if (hasChanged && summaries.empty()) {
      summaries.emplace_back(u"Performed vCard normalization");
    }
    return result;
  }

  bool didClean = false;
  TextList summaries;

 private:
  static constexpr TextView kMember = u"X-ADDRESSBOOKSERVER-MEMBER";

  static bool replaceAll(Text& text, TextView from, TextView to) {
    bool found = false;
    for (std::size_t at = text.find(from); at != Text::npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
      found = true;
    }
    return found;
  }

  static bool hasLoneLineFeed(const Text& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r')) {
        return true;
      }
    }
    return false;
  }

  static Text separated(TextView input, bool& isSeparated) {
    Text text(input);
    if (text.find(u"\r\r") == Text::npos) {
      return text;
    }
    while (replaceAll(text, u"\r\r\n", u"\r\n")) {
      isSeparated = true;
    }
    if (hasLoneLineFeed(text)) {
      return text;
    }
    Text rebuilt;
    bool hasRun = false;
    for (std::size_t i = 0; i < text.size();) {
      if (text[i] != u'\r' || text.substr(i, 2) == u"\r\n") {
        rebuilt += text[i];
        i += 1;
        if (rebuilt.back() == u'\r') {
          rebuilt += text[i++];
        }
        continue;
      }
      std::size_t end = i;
      while (end < text.size() && text[end] == u'\r' && text.substr(end, 2) != u"\r\n") {
        ++end;
      }
      if ((end - i) % 2 != 0) {
        return text;
      }
      hasRun = true;
      for (; i < end; i += 2) {
        rebuilt += u"\r\n";
      }
    }
    isSeparated = isSeparated || hasRun;
    return hasRun ? rebuilt : text;
  }

  static bool isEnvelope(const Text& text) {
    const CharacterSet& set = VCardCleaner::envelopeTrimCharacterSet();
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && set.contains(text[begin])) {
      ++begin;
    }
    while (end > begin && set.contains(text[end - 1])) {
      --end;
    }
    const Text upper = VCardCleaner::asciiUppercased(TextView(text).substr(begin, end - begin));
    return VCardCleaner::fastContains(text, u"BEGIN:VCARD") &&
           VCardCleaner::fastContains(text, u"END:VCARD") && upper.starts_with(u"BEGIN:VCARD") &&
           upper.ends_with(u"END:VCARD");
  }

  static Text contentLine(TextView header, TextView value) {
    return Text(header).append(u":").append(value);
  }

  static void escapeLineBreaks(Text& value) {
    for (const TextView entity : {u"&#13;&#10;", u"&#10;", u"&#13;"}) {
      replaceAll(value, entity, u"\\n");
    }
  }

  /// Whether the line was repaired.
  bool take(const Text& line, TextList& output) {
    const auto append = [&output](const TextList& lines) {
      output.insert(output.end(), lines.begin(), lines.end());
    };
    if (line.empty()) {
      output.push_back(line);
      return false;
    }
    const std::optional<Text> name = VCardCleaner::propertyNameUpper(line);
    const std::optional<std::size_t> colon = VCardCleaner::firstUnquotedColonIndex(line);
    const Text header = line.substr(0, colon.value_or(0));
    const Text value = colon ? line.substr(*colon + 1) : Text();
    if (name == kMember) {
      const TextList members = VCardCleaner::splitMemberNumericEntitiesWithHeader(header, value);
      if (members != TextList{line}) {
        append(VCardCleaner::postProcessSegmentsAfterSplit(members));
        summaries.emplace_back(u"Split numeric entities in X-ADDRESSBOOKSERVER-MEMBER");
        return true;
      }
    }
    if (name == u"NOTE") {
      return takeNote(line, header, value, output);
    }
    const bool isMerged = VCardCleaner::countColonsIn(line) >= 2 &&
                          VCardCleaner::anyUpperHeaderRegex().matches(line).size() >= 2;
    if (isMerged) {
      const TextList pieces = VCardCleaner::segmentMergedLineIfSafe(line);
      const TextList repaired = VCardCleaner::postProcessSegmentsAfterSplit(pieces);
      append(repaired);
      if (pieces == TextList{line} && repaired == TextList{line}) {
        return false;
      }
      summaries.push_back(
          Text(u"Split merged properties starting at ").append(name.value_or(u"UNKNOWN")));
      return true;
    }
    if (name && !name->starts_with(u"X-") && !name->starts_with(u"VND-")) {
      const TextView trimmed = VCardCleaner::trimDanglingExtendedFragmentsInValue(value);
      if (trimmed != value) {
        output.push_back(contentLine(header, trimmed));
        summaries.push_back(Text(u"Trimmed dangling extended fragment after ").append(*name));
        return true;
      }
    }
    output.push_back(line);
    return false;
  }

  bool takeNote(const Text& line, const Text& header, const Text& value, TextList& output) {
    const auto matches = VCardCleaner::anyUpperHeaderRegex().matches(value);
    if (!matches.empty() && matches.back().range.location != 0) {
      const auto& match = matches.back();
      const Text name = VCardCleaner::asciiUppercased(
          value.substr(match.capture->location, match.capture->length));
      const Text before = value.substr(0, match.range.location);
      // White space, a full stop and a backslash are all ASCII in what this is fed with.
      const bool isGlued = VCardCleaner::trimTrailingWhitespace(before) == before &&
                           before.back() != u'.' && before.back() != u'\\';
      if ((name.starts_with(u"X-") || name.starts_with(u"VND-")) &&
          VCardCleaner::isAllowlistedProperty(name) && isGlued) {
        Text note(VCardCleaner::trimTrailingNoteSeparators(before));
        escapeLineBreaks(note);
        output.push_back(contentLine(header, note));
        summaries.emplace_back(u"NOTE: extracted trailing allowlisted property");
        const TextList pieces = VCardCleaner::postProcessSegmentsAfterSplit(
            VCardCleaner::segmentMergedLineIfSafe(TextView(value).substr(match.range.location)));
        output.insert(output.end(), pieces.begin(), pieces.end());
        return true;
      }
    }
    Text decoded = value;
    escapeLineBreaks(decoded);
    output.push_back(contentLine(header, decoded));
    if (output.back() == line) {
      return false;
    }
    summaries.emplace_back(u"NOTE: decoded numeric entities");
    return true;
  }

  static Text joined(const TextList& lines) {
    const bool isFolded =
        std::none_of(lines.begin(), lines.end(), VCardCleaner::lineUsesQuotedPrintable);
    Text text;
    for (const Text& line : lines) {
      for (const Text& physical : isFolded ? VCardCleaner::foldLine75(line) : TextList{line}) {
        text +=
            (&line == &lines.front() && text.empty()) ? physical : Text(u"\r\n").append(physical);
      }
    }
    return text;
  }
};

} // namespace cardwright
