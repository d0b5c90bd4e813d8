#include "support/pages.h"

#include <iostream>
#include <string_view>

/// Prints a page of the documentation: "make_page conversion > docs/conversion.md".
int main(int argc, char** argv) {
  const std::string_view name = argc == 2 ? argv[1] : "";
  if (name == "conversion") {
    std::cout << cardwright::conversionPage();
    return 0;
  }
  if (name == "checks") {
    std::cout << cardwright::checksPage();
    return 0;
  }
  std::cerr << "usage: make_page conversion|checks\n";
  return 2;
}
