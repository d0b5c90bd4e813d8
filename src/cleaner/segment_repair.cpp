#include "base/case.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/line_name.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/note_repair.h"
#include "cleaner/vocabulary.h"

#include <iterator>

namespace cardwright {

namespace {

/// A value that a cut left before the next property's group label goes back to its own property:
/// "item1.TEL:" and "555item2.EMAIL:x" become "item1.TEL:555" and "item2.EMAIL:x".
void giveValueBack(Text& piece, Text& next) {
  const std::size_t colon = firstUnquotedColon(piece);
  if (colon == kNoColon || colon + 1 != piece.size()) {
    return;
  }
  const std::size_t label = findItemLabel(next).value_or(TextRange{0, 0}).location;
  if (label == 0 || !headerAtStart(TextView(next).substr(label), HeaderNames::allowed)) {
    return;
  }
  piece.append(next, 0, label);
  next.erase(0, label);
}

/// The beginning of the next property's name that stands at a value's end goes: "NOTE:helloX-AB"
/// before "X-ABLABEL:x" becomes "NOTE:hello".
void dropTornName(Text& piece, TextView next) {
  if (next.size() < 2 || next[1] != u'-' || asciiUpper(next[0]) != u'X') {
    return;
  }
  const std::size_t colon = firstUnquotedColon(piece);
  const LineName name(next);
  if (colon == kNoColon || !name.isPresent()) {
    return;
  }
  const TextView value = TextView(piece).substr(colon + 1);
  const auto match = VCardCleaner::danglingFragmentRegex().firstMatch(value);
  if (!match || !match->capture) {
    return;
  }
  const UpperCasedName fragment(value.substr(match->capture->location, match->capture->length));
  if (!fragment.view().empty() && name.view().starts_with(fragment.view())) {
    piece.resize(colon + 1 + match->capture->location);
  }
}

} // namespace

TextList VCardCleaner::postProcessSegmentsAfterSplit(TextList segments) {
  for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
    giveValueBack(segments[i], segments[i + 1]);
    dropTornName(segments[i], segments[i + 1]);
  }
  TextList result;
  result.reserve(segments.size());
  for (Text& piece : segments) {
    const LineName name(piece);
    if (name.view() == u"NOTE") {
      result.push_back(withEscapedLineBreaks(piece));
    } else if (name.view() == kMemberName) {
      TextList members = splitMemberNumericEntitiesWithHeader(name.header(), name.value());
      std::move(members.begin(), members.end(), std::back_inserter(result));
    } else {
      result.push_back(std::move(piece));
    }
  }
  return result;
}

} // namespace cardwright
