#include "reader/merged_lines.h"

#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vcard.h"
#include "reader/address_book_server.h"
#include "reader/repair_patterns.h"

namespace cardwright {

namespace {

constexpr TextView kPrefix = u"x-addressbookserver-";

bool isSeparator(char16_t unit) noexcept {
  return isSpaceOrTab(unit) || isLineTerminator(unit) || unit == u';';
}

bool namesTwoProperties(TextView line) {
  const auto first = findIgnoringCase(line, kPrefix);
  return first && findIgnoringCase(line, kPrefix, first->position + first->length);
}

bool beginsWithAddressBookServerName(TextView line) {
  std::size_t begin = 0;
  while (begin < line.size() && isWhitespaceOrNewline(line[begin])) {
    ++begin;
  }
  return addressBookServerPrefix(line, addressBookServerNameStart(line, begin)).has_value();
}

TextView withoutLeadingSemicolons(TextView piece) {
  while (!piece.empty() && piece.front() == u';') {
    piece = trimWhitespaceAndNewlines(piece.substr(1));
  }
  return piece;
}

/// What stands before a header, without the separators around it.
TextView leadingPiece(TextView text) {
  TextView piece = withoutLeadingSemicolons(trimWhitespaceAndNewlines(text));
  while (!piece.empty() && piece.back() == u';') {
    piece = trimWhitespaceAndNewlines(piece.substr(0, piece.size() - 1));
  }
  return piece;
}

/// A property from its header on, without the separators behind it.
TextView propertyPiece(TextView text) {
  while (!text.empty() && isSeparator(text.back())) {
    text.remove_suffix(1);
  }
  return withoutLeadingSemicolons(trimWhitespaceAndNewlines(text));
}

void keepProperty(TextView piece, std::vector<TextView>& pieces) {
  if (piece.find(u':') != TextView::npos) {
    pieces.push_back(piece);
  }
}

} // namespace

void cutMergedLine(TextView line, std::vector<TextView>& pieces) {
  pieces.clear();
  if (beginsWithAddressBookServerName(line) && namesTwoProperties(line)) {
    PropertyBoundaryFinder finder(line);
    PropertyBoundary boundary{};
    std::size_t cut = 0;
    for (bool found = finder.next(boundary); found;) {
      const std::size_t header = boundary.headerBegin;
      keepProperty(leadingPiece(line.substr(cut, header - cut)), pieces);
      found = finder.next(boundary);
      cut = found ? boundary.begin : line.size();
      keepProperty(propertyPiece(line.substr(header, cut - header)), pieces);
    }
  }
  if (pieces.empty()) {
    pieces.push_back(line);
  }
}

TextList VCard::candidatePropertyLinesFromLine(std::optional<TextView> line) {
  if (!line) {
    return {};
  }
  std::vector<TextView> pieces;
  cutMergedLine(*line, pieces);
  return {pieces.begin(), pieces.end()};
}

} // namespace cardwright
