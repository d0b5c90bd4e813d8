#pragma once

#include "support/random_source.h"

#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// The content lines of a card from BEGIN to END. A line keeps its folds and soft breaks and the
/// blank line behind it, but not its last line end.
using BookCard = std::vector<std::string>;
using Book = std::vector<BookCard>;

/// Takes an address book that ends its lines with CR LF apart.
[[nodiscard]] Book bookFrom(std::string_view text);
[[nodiscard]] std::string textOf(const Book& book);

/// Gives each card a stamp, behind the note where there is one.
void stamp(Book& book);

/// What broke: the bytes that are left of a book. The book is broken with them.
using Damage = std::string (*)(Book& book, RandomSource& random);

// What the rules mend.
[[nodiscard]] std::string doubleCarriageReturns(Book& book, RandomSource& random);
[[nodiscard]] std::string carriageReturnPairs(Book& book, RandomSource& random);
[[nodiscard]] std::string tearSoftBreaks(Book& book, RandomSource& random);
[[nodiscard]] std::string glueMembersByEntities(Book& book, RandomSource& random);
[[nodiscard]] std::string writeNoteBreaksAsEntities(Book& book, RandomSource& random);
[[nodiscard]] std::string glueStampToNote(Book& book, RandomSource& random);
[[nodiscard]] std::string glueTwoProperties(Book& book, RandomSource& random);
[[nodiscard]] std::string glueFourProperties(Book& book, RandomSource& random);
[[nodiscard]] std::string hangHeaderOnValue(Book& book, RandomSource& random);
[[nodiscard]] std::string repeatBookkeeping(Book& book, RandomSource& random);

// What befalls any file.
[[nodiscard]] std::string addByteOrderMark(Book& book, RandomSource& random);
[[nodiscard]] std::string mixLineEnds(Book& book, RandomSource& random);
[[nodiscard]] std::string loseFoldBlanks(Book& book, RandomSource& random);
[[nodiscard]] std::string tearCharacters(Book& book, RandomSource& random);
[[nodiscard]] std::string putJunkBetweenCards(Book& book, RandomSource& random);
[[nodiscard]] std::string putJunkIntoCards(Book& book, RandomSource& random);
[[nodiscard]] std::string glueEndToBegin(Book& book, RandomSource& random);
[[nodiscard]] std::string loseEnds(Book& book, RandomSource& random);
[[nodiscard]] std::string truncate(Book& book, RandomSource& random);

} // namespace cardwright
