// BOOK BYTES: writes the address book of that number to the standard output.

#include "books.h"

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments) {
  if (count != 3) {
    return 2;
  }
  const auto book = static_cast<cardwright::Book>(std::atoi(arguments[1]));
  const std::string& bytes =
      cardwright::bookOf(book, static_cast<std::size_t>(std::atoll(arguments[2])));
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() ? 0 : 1;
}
