#include "corruption/damages.h"

#include <algorithm>
#include <array>

namespace cardwright {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kMember = "X-ADDRESSBOOKSERVER-MEMBER:";
constexpr std::size_t kFirstProperty = 2; ///< behind BEGIN and VERSION
constexpr std::size_t kRarely = 10;

constexpr std::array<std::string_view, 4> kJunk = {
    "Sent from my phone", "-----", "<br>", "This message was scanned and found to be clean."};

std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = text.find(from); at != std::string_view::npos;
       at = text.find(from, copied)) {
    result.append(text.substr(copied, at - copied)).append(to);
    copied = at + from.size();
  }
  return result.append(text.substr(copied));
}

/// Any property but the last `behind` ones; VERSION is none.
std::size_t anyProperty(const BookCard& card, std::size_t behind, RandomSource& random) {
  return kFirstProperty + random.below(card.size() - 1 - kFirstProperty - behind);
}

void glueNext(BookCard& card, std::size_t line) {
  const auto next = card.begin() + static_cast<std::ptrdiff_t>(line) + 1;
  card[line].append(*next);
  card.erase(next);
}

void insertBefore(BookCard& card, std::size_t line, std::string_view text) {
  card.insert(card.begin() + static_cast<std::ptrdiff_t>(line), std::string(text));
}

BookCard::iterator noteOf(BookCard& card) {
  return std::find_if(card.begin(), card.end(),
                      [](const std::string& line) { return line.starts_with("NOTE"); });
}

/// Takes a byte out of the first character that has several.
void tearCharacter(BookCard& card) {
  const auto isLead = [](char c) { return static_cast<unsigned char>(c) >= 0xC2; };
  for (std::string& line : card) {
    const auto lead = std::find_if(line.begin(), line.end(), isLead);
    if (lead != line.end()) {
      line.erase(lead + 1);
      return;
    }
  }
}

} // namespace

Book bookFrom(std::string_view text) {
  Book book;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find(kLineEnd, at);
    const std::string_view line = text.substr(at, end - at);
    at = end + kLineEnd.size();
    if (line == "BEGIN:VCARD") {
      book.emplace_back();
    }
    if (line.empty() || line.front() == ' ') {
      book.back().back().append(kLineEnd).append(line);
    } else {
      book.back().emplace_back(line);
    }
  }
  return book;
}

std::string textOf(const Book& book) {
  std::string text;
  for (const BookCard& card : book) {
    for (const std::string& line : card) {
      text.append(line).append(kLineEnd);
    }
  }
  return text;
}

void stamp(Book& book) {
  for (BookCard& card : book) {
    const auto note = noteOf(card);
    card.insert(note == card.end() ? card.end() - 1 : note + 1, "X-CREATED:20240229T120000Z");
  }
}

std::string doubleCarriageReturns(Book& book, RandomSource& /*random*/) {
  return replaced(textOf(book), kLineEnd, "\r\r\n");
}

std::string carriageReturnPairs(Book& book, RandomSource& /*random*/) {
  return replaced(textOf(book), kLineEnd, "\r\r");
}

std::string tearSoftBreaks(Book& book, RandomSource& /*random*/) {
  return replaced(textOf(book), "=\r\n ", "=\r\n");
}

std::string glueMembersByEntities(Book& book, RandomSource& /*random*/) {
  for (BookCard& card : book) {
    for (std::size_t line = 0; line + 1 < card.size();) {
      if (card[line].starts_with(kMember) && card[line + 1].starts_with(kMember)) {
        card[line + 1].replace(0, kMember.size(), "&#13;&#10;");
        glueNext(card, line);
      } else {
        ++line;
      }
    }
  }
  return textOf(book);
}

std::string writeNoteBreaksAsEntities(Book& book, RandomSource& /*random*/) {
  for (BookCard& card : book) {
    const auto note = noteOf(card);
    if (note != card.end() && note->starts_with("NOTE:")) {
      *note = replaced(replaced(*note, "\r\n ", ""), "\\n", "&#13;&#10;");
    }
  }
  return textOf(book);
}

std::string glueStampToNote(Book& book, RandomSource& /*random*/) {
  for (BookCard& card : book) {
    const auto note = noteOf(card);
    if (note != card.end()) {
      glueNext(card, static_cast<std::size_t>(note - card.begin()));
    }
  }
  return textOf(book);
}

std::string glueTwoProperties(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    glueNext(card, anyProperty(card, 1, random));
  }
  return textOf(book);
}

std::string glueFourProperties(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    const std::size_t line = anyProperty(card, 3, random);
    for (int times = 0; times < 3; ++times) {
      glueNext(card, line);
    }
  }
  return textOf(book);
}

std::string hangHeaderOnValue(Book& book, RandomSource& random) {
  constexpr std::array<std::string_view, 3> kHeaders = {"X-ABLABEL", "X-ABADR", "X-ABSHOWAS"};
  for (BookCard& card : book) {
    std::string& line = card[anyProperty(card, 0, random)];
    line.append(random.oneOf(kHeaders));
  }
  return textOf(book);
}

std::string repeatBookkeeping(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    for (std::size_t line = card.size() - 1; line-- > 0;) {
      if (card[line].starts_with(kMember) && random.oneIn(2)) {
        insertBefore(card, line + 1, std::string(card[line]));
      }
    }
    for (std::size_t times = 1 + random.below(3); times > 0; --times) {
      insertBefore(card, kFirstProperty, "X-CREATED:20200101T000000Z");
    }
  }
  return textOf(book);
}

std::string addByteOrderMark(Book& book, RandomSource& /*random*/) {
  return "\xEF\xBB\xBF" + textOf(book);
}

std::string mixLineEnds(Book& book, RandomSource& random) {
  constexpr std::array<std::string_view, 3> kLineEnds = {"\r\n", "\n", "\r"};
  const std::string text = textOf(book);
  std::string mixed;
  std::size_t copied = 0;
  for (std::size_t at = 0; (at = text.find(kLineEnd, copied)) != std::string::npos;) {
    mixed.append(text, copied, at - copied).append(random.oneOf(kLineEnds));
    copied = at + kLineEnd.size();
  }
  return mixed;
}

std::string loseFoldBlanks(Book& book, RandomSource& /*random*/) {
  for (BookCard& card : book) {
    for (std::string& line : card) {
      if (line.find("QUOTED-PRINTABLE") == std::string::npos) {
        line = replaced(line, "\r\n ", kLineEnd);
      }
    }
  }
  return textOf(book);
}

std::string tearCharacters(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    if (random.oneIn(kRarely)) {
      tearCharacter(card);
    }
  }
  return textOf(book);
}

std::string putJunkBetweenCards(Book& book, RandomSource& random) {
  for (auto card = book.begin() + 1; card != book.end(); ++card) {
    if (random.oneIn(kRarely)) {
      insertBefore(*card, 0, random.oneOf(kJunk));
    }
  }
  return textOf(book);
}

std::string putJunkIntoCards(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    insertBefore(card, anyProperty(card, 0, random), random.oneOf(kJunk));
  }
  return textOf(book);
}

std::string glueEndToBegin(Book& book, RandomSource& random) {
  for (auto card = book.begin() + 1; card != book.end(); ++card) {
    if (random.oneIn(kRarely)) {
      (card - 1)->back().append(card->front());
      card->erase(card->begin());
    }
  }
  return textOf(book);
}

std::string loseEnds(Book& book, RandomSource& random) {
  for (BookCard& card : book) {
    if (random.oneIn(kRarely)) {
      card.pop_back();
    }
  }
  return textOf(book);
}

std::string truncate(Book& book, RandomSource& /*random*/) {
  std::string text = textOf(book);
  text.resize(text.size() / 4 * 3);
  return text;
}

} // namespace cardwright
