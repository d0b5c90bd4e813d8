#include <cardwright/cardwright.h>

#include <iostream>

int main() {
  const auto cards =
      cardwright::readCards("BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Zoë Ångström\r\nEND:VCARD\r\n");
  const auto names = cards.at(0)->propertiesWithName(u"FN");
  std::cout << cardwright::utf8FromText(names->at(0)->textValue().value()) << '\n';
}
