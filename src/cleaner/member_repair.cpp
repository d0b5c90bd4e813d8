#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/line_name.h"
#include "cleaner/segmentation.h"
#include "cleaner/vocabulary.h"

namespace cardwright {

namespace {

constexpr TextView kCrEntity = u"&#13;";
constexpr TextView kLfEntity = u"&#10;";

Text contentLine(TextView header, TextView value) {
  Text line(header);
  line.push_back(u':');
  line.append(value);
  return line;
}

/// Takes the text up to the next entity of a line break from the front of `rest`.
/// @returns whether there was such an entity
bool takePiece(TextView& rest, TextView& piece) {
  std::size_t at = rest.find(u"&#1");
  while (at != TextView::npos && !rest.substr(at).starts_with(kCrEntity) &&
         !rest.substr(at).starts_with(kLfEntity)) {
    at = rest.find(u"&#1", at + 1);
  }
  piece = rest.substr(0, at);
  if (at == TextView::npos) {
    rest = {};
    return false;
  }
  const bool isPair = rest.substr(at).starts_with(u"&#13;&#10;");
  rest.remove_prefix(at + kCrEntity.size() + (isPair ? kLfEntity.size() : 0));
  return true;
}

void addPiece(TextView header, TextView piece, TextList& lines) {
  if (piece.empty()) {
    return;
  }
  const LineName name(piece);
  if (!name.isPresent() || !isPropertyName(name.view())) {
    lines.push_back(contentLine(header, piece));
    return;
  }
  std::vector<TextView> properties;
  if (cutMergedProperties(piece, properties)) {
    lines.insert(lines.end(), properties.begin(), properties.end());
  } else {
    lines.emplace_back(piece);
  }
}

} // namespace

TextList VCardCleaner::splitMemberNumericEntitiesWithHeader(TextView header, TextView value) {
  TextList lines;
  TextView rest = value;
  bool hasEntity = false;
  for (bool goesOn = true; goesOn;) {
    TextView piece;
    goesOn = takePiece(rest, piece);
    hasEntity = hasEntity || goesOn;
    addPiece(header, trimWhitespaceAndNewlines(piece), lines);
  }
  if (lines.empty() && !hasEntity) {
    lines.push_back(contentLine(header, value));
  }
  return lines;
}

} // namespace cardwright
