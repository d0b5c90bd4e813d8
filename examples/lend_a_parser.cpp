// Lends the reader another parser for notes. Some old phones keep a memo in a property of their
// own; whoever knows such a dialect, or has a parser of the platform, brings it in like this.

#include <cardwright/cardwright.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

using namespace cardwright;

namespace {

/// Is asked for the note of each card of version 2.1 that has none, or an empty one.
class MemoParser : public ContactsParser {
 public:
  std::optional<std::vector<ContactRecord>> contactsWithData(std::string_view vCard) override {
    const auto card = VCard::firstvCardFromString(vCard);
    const auto memos = card ? card->propertiesWithName(u"X-MEMO") : nullptr;
    if (memos == nullptr || memos->empty()) {
      return std::nullopt; // the card stays as it is
    }
    const auto memo = memos->front()->textValue();
    return std::vector{ContactRecord{memo ? std::optional<Text>(*memo) : std::nullopt}};
  }
};

} // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: lend_a_parser FILE\n";
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  if (!file) {
    std::cerr << "cannot read " << argv[1] << '\n';
    return 1;
  }
  const std::string bytes(std::istreambuf_iterator<char>(file), {});

  MemoParser parser;
  ReadOptions options;
  options.contactsParser = &parser; // borrowed for the call
  for (const auto& card : readCards(bytes, nullptr, options)) {
    for (const auto& note : *card->propertiesWithName(u"NOTE")) {
      std::cout << utf8FromText(note->textValue().value_or(u"(none)")) << '\n';
    }
  }
}
