#include "cardwright/cardwright.h"
#include "content.h"
#include "peer.h"

namespace {

using namespace cardwright;

/// With cleaning, as readCards does it by itself, or without.
class Cardwright : public peers::Peer {
 public:
  explicit Cardwright(bool clean) { m_options.clean = clean; }

  peers::Recovered open(const std::string& bytes) override {
    return {readCards(bytes, nullptr, m_options).size()};
  }

  peers::Recovered read(const std::string& bytes) override {
    const VCardList cards = readCards(bytes, nullptr, m_options);
    const Content content = contentOf(cards);
    return {cards.size(), content.properties, content.characters};
  }

  void prepareWriting(const std::string& bytes) override {
    m_cards = readCards(bytes, nullptr, m_options);
    static_cast<void>(contentOf(m_cards));
  }

  peers::Recovered write() override {
    constexpr VersionCode kVersion = 3;
    DateFormatter formatter;
    m_output.clear();
    for (const auto& card : m_cards) {
      card->generateUtf8(m_output, kVersion, &formatter);
    }
    return {m_cards.size(), m_output.size()};
  }

 private:
  ReadOptions m_options;
  VCardList m_cards;
  std::string m_output;
};

} // namespace

int main(int count, char** arguments) {
  const bool clean = count < 5 || std::string_view(arguments[4]) != "uncleaned";
  Cardwright cardwright(clean);
  return peers::measure(cardwright, count, arguments);
}
