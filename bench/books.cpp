#include "books.h"

#include "support/address_book.h"

#include <map>
#include <string_view>
#include <utility>

namespace cardwright {

namespace {

AddressBookOptions optionsFor(Book book) {
  AddressBookOptions options;
  options.photoEvery = 0;
  switch (book) {
  case Book::plain:
    options.version = 3;
    break;
  case Book::mixed:
    break;
  case Book::photos:
    options.version = 3;
    options.photoEvery = 1;
    break;
  case Book::notes:
    options.version = 3;
    options.noteLength = 80;
    break;
  case Book::quotedPrintable:
    options.version = 2;
    break;
  }
  return options;
}

} // namespace

const char* nameOf(Book book) {
  switch (book) {
  case Book::plain:
    return "plain 3.0";
  case Book::mixed:
    return "mixed versions";
  case Book::photos:
    return "photos";
  case Book::notes:
    return "long notes";
  case Book::quotedPrintable:
    return "quoted-printable 2.1";
  }
  return "";
}

const std::string& bookOf(Book book, std::size_t bytes) {
  static std::map<std::pair<Book, std::size_t>, std::string> books;
  std::string& text = books[{book, bytes}];
  if (text.empty()) {
    AddressBook writer(optionsFor(book));
    while (text.size() < bytes) {
      writer.appendCard(text);
    }
  }
  return text;
}

std::string damaged(const std::string& bytes) {
  constexpr std::string_view kEnd = "END:VCARD\r\n";
  std::string text;
  std::size_t begin = 0;
  for (std::size_t card = 0; begin < bytes.size(); ++card) {
    const std::size_t end = bytes.find(kEnd, begin);
    text.append(bytes, begin, end - begin);
    if (card % 3 == 0) {
      text.append("TEL:+49 30 1234567EMAIL:someone@example.com\r\n")
          .append("NOTE:Met in Berlin&#13;&#10;likes tea\r\n");
    }
    text.append(kEnd);
    begin = end + kEnd.size();
  }
  return text;
}

} // namespace cardwright
