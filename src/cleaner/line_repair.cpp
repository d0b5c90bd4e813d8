#include "cleaner/line_repair.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/graphemes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/line_name.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/note_repair.h"
#include "cleaner/segmentation.h"
#include "cleaner/vocabulary.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

Text contentLine(TextView header, TextView value) {
  Text line;
  line.reserve(header.size() + 1 + value.size());
  line.append(header);
  line.push_back(u':');
  line.append(value);
  return line;
}

Text withName(TextView summary, const LineName& name) {
  Text text(summary);
  text.append(name.isPresent() ? name.view() : TextView(u"UNKNOWN"));
  return text;
}

/// Whether a value is one member with nothing around it, as nearly all are.
bool isLoneMember(TextView value) {
  return value.starts_with(u"urn:uuid:") && value.find(u'&') == TextView::npos &&
         trimWhitespaceAndNewlines(value).size() == value.size();
}

std::optional<LineRepair> repairMember(TextView line, const LineName& name) {
  if (isLoneMember(name.value())) {
    return std::nullopt;
  }
  TextList members =
      VCardCleaner::splitMemberNumericEntitiesWithHeader(name.header(), name.value());
  if (members.size() == 1 && members.front() == line) {
    return std::nullopt;
  }
  return LineRepair{CleaningRepairKind::memberEntities,
                    VCardCleaner::postProcessSegmentsAfterSplit(std::move(members)),
                    u"Split numeric entities in X-ADDRESSBOOKSERVER-MEMBER"};
}

/// Tells a property glued onto a note by a lost line break from a name in the note's prose.
bool isGlued(TextView value, std::size_t position) {
  const TextView before = value.substr(0, position);
  const TextView last = before.substr(startOfLastCharacter(before));
  return u_isUWhiteSpace(static_cast<UChar32>(codePointAt(last, 0))) == 0 && last != u"." &&
         last != u"\\";
}

/// Where the property begins that is glued to the end of a note's value.
std::optional<std::size_t> startOfGluedProperty(TextView value) {
  if (value.find(u':') == TextView::npos) {
    return std::nullopt;
  }
  HeaderScanner headers(value, HeaderNames::anyUpper);
  std::optional<HeaderMatch> last;
  while (const std::optional<HeaderMatch> match = headers.next()) {
    last = match;
  }
  if (!last || last->start == 0) {
    return std::nullopt;
  }
  const UpperCasedName name(value.substr(last->name, last->nameEnd - last->name));
  if (!isExtensionName(name.view()) || !isAllowlistedName(name.view()) ||
      !isGlued(value, last->start)) {
    return std::nullopt;
  }
  return last->start;
}

std::optional<LineRepair> repairNote(TextView line, const LineName& name) {
  if (const auto start = startOfGluedProperty(name.value())) {
    const TextView note = VCardCleaner::trimTrailingNoteSeparators(name.value().substr(0, *start));
    LineRepair repair{CleaningRepairKind::noteExtraction,
                      {withEscapedLineBreaks(contentLine(name.header(), note))},
                      u"NOTE: extracted trailing allowlisted property"};
    for (Text& piece : VCardCleaner::postProcessSegmentsAfterSplit(
             VCardCleaner::segmentMergedLineIfSafe(name.value().substr(*start)))) {
      repair.lines.push_back(std::move(piece));
    }
    return repair;
  }
  if (name.value().find(u"&#1") == TextView::npos) {
    return std::nullopt;
  }
  Text decoded = withEscapedLineBreaks(line);
  if (decoded == line) {
    return std::nullopt;
  }
  return LineRepair{
      CleaningRepairKind::noteEntities, {std::move(decoded)}, u"NOTE: decoded numeric entities"};
}

bool mayHoldSeveralProperties(TextView line) {
  const std::size_t colon = line.find(u':');
  return colon != TextView::npos && line.find(u':', colon + 1) != TextView::npos &&
         holdsTwoHeaders(line);
}

std::optional<LineRepair> repairMergedLine(TextView line, const LineName& name) {
  std::vector<TextView> pieces;
  if (!cutMergedProperties(line, pieces)) {
    // The repair of pieces has nothing to do for one alone: notes and members came before.
    return std::nullopt;
  }
  LineRepair repair{
      CleaningRepairKind::mergedProperties,
      VCardCleaner::postProcessSegmentsAfterSplit(TextList(pieces.begin(), pieces.end())),
      withName(u"Split merged properties starting at ", name)};
  return repair;
}

std::optional<LineRepair> trimFragment(const LineName& name) {
  if (!name.isPresent() || isExtensionName(name.view())) {
    return std::nullopt;
  }
  const TextView value = VCardCleaner::trimDanglingExtendedFragmentsInValue(name.value());
  if (value.size() == name.value().size()) {
    return std::nullopt;
  }
  return LineRepair{CleaningRepairKind::danglingFragment,
                    {contentLine(name.header(), value)},
                    withName(u"Trimmed dangling extended fragment after ", name)};
}

} // namespace

std::optional<LineRepair> repairLine(TextView line) {
  if (line.empty()) {
    return std::nullopt;
  }
  const LineName name(line);
  if (name.view() == kMemberName) {
    if (std::optional<LineRepair> repair = repairMember(line, name)) {
      return repair;
    }
  }
  if (name.view() == u"NOTE") {
    return repairNote(line, name);
  }
  if (isExtensionName(name.view()) && line.find(u':') == name.colon() &&
      isUncutUri(name.view(), name.value())) {
    return std::nullopt; // Nothing is trimmed from extensions.
  }
  return mayHoldSeveralProperties(line) ? repairMergedLine(line, name) : trimFragment(name);
}

} // namespace cardwright
