// Prints the names, telephone numbers and e-mail addresses of an address book.

#include <cardwright/cardwright.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

using namespace cardwright;

namespace {

/// The first value of a parameter in parentheses, such as "(CELL)".
std::string noteOn(const VCardProperty& property) {
  const auto type = property.valueOfParameterWithName(u"TYPE");
  return type ? " (" + utf8FromText(*type) + ")" : "";
}

/// A card has a list for each name that it knows, and none for the others.
void printAll(const VCard& card, TextView name) {
  const auto properties = card.propertiesWithName(name);
  if (properties == nullptr) {
    return;
  }
  for (const auto& property : *properties) {
    if (const auto text = property->textValue()) {
      std::cout << "  " << utf8FromText(*text) << noteOn(*property) << '\n';
    }
  }
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: read_and_print FILE\n";
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  if (!file) {
    std::cerr << "cannot read " << argv[1] << '\n';
    return 1;
  }
  const std::string bytes(std::istreambuf_iterator<char>(file), {});

  // Any encoding, any version, any damage: what can be read is in the cards.
  for (const auto& card : readCards(bytes)) {
    const auto names = card->propertiesWithName(u"FN");
    const auto name = names && !names->empty() ? names->front()->textValue() : std::nullopt;
    std::cout << utf8FromText(name.value_or(u"(no name)")) << '\n';
    printAll(*card, u"TEL");
    printAll(*card, u"EMAIL");
  }
}
