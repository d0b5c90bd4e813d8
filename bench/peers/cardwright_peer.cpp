#include "cardwright/cardwright.h"
#include "peer.h"

namespace {

using namespace cardwright;

std::size_t lengthOf(const VCardProperty& property) {
  std::size_t length = property.name().size() + property.group().value_or(TextView()).size();
  if (const auto parameters = property.parameterDict()) {
    for (const auto& [name, parameter] : *parameters) {
      length += name.size();
      for (const Text& value : parameter->values()) {
        length += value.size();
      }
    }
  }
  if (property.value()) {
    length += property.textValue().value_or(TextView()).size();
  }
  return length;
}

peers::Recovered contentOf(const VCardList& cards) {
  peers::Recovered recovered{cards.size()};
  for (const auto& card : cards) {
    for (const auto& [name, properties] : card->propertyDict()) {
      recovered.items += properties->size();
      for (const auto& property : *properties) {
        recovered.characters += lengthOf(*property);
      }
    }
  }
  return recovered;
}

/// With cleaning, as readCards does it by itself, or without.
class Cardwright : public peers::Peer {
 public:
  explicit Cardwright(bool clean) { m_options.clean = clean; }

  peers::Recovered open(const std::string& bytes) override {
    return {readCards(bytes, nullptr, m_options).size()};
  }

  peers::Recovered read(const std::string& bytes) override {
    return contentOf(readCards(bytes, nullptr, m_options));
  }

  void prepareWriting(const std::string& bytes) override {
    m_cards = readCards(bytes, nullptr, m_options);
    static_cast<void>(contentOf(m_cards));
  }

  peers::Recovered write() override {
    constexpr VersionCode kVersion = 3;
    DateFormatter formatter;
    std::string output;
    for (const auto& card : m_cards) {
      Text text;
      card->generate(text, kVersion, &formatter);
      appendUtf8(output, text);
    }
    return {m_cards.size(), output.size()};
  }

 private:
  ReadOptions m_options;
  VCardList m_cards;
};

} // namespace

int main(int count, char** arguments) {
  const bool clean = count < 5 || std::string_view(arguments[4]) != "uncleaned";
  Cardwright cardwright(clean);
  return peers::measure(cardwright, count, arguments);
}
