#include "peer.h"

#include <memory>
#include <vc.h>
#include <vector>

namespace {

struct Release {
  void operator()(vc_component* card) const { vc_delete_deep(card); }
};
using Card = std::unique_ptr<vc_component, Release>;

struct Close {
  void operator()(FILE* file) const { std::fclose(file); }
};

std::size_t lengthOf(const char* text) {
  return text == nullptr ? 0 : std::char_traits<char>::length(text);
}

/// It reads files only, and of each only the first card.
std::vector<Card> cardsOf(const std::string& bytes) {
  std::vector<Card> cards;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::string_view text = peers::nextCard(bytes, begin);
    const std::unique_ptr<FILE, Close> file(
        fmemopen(const_cast<char*>(text.data()), text.size(), "r"));
    if (vc_component* card = parse_vcard_file(file.get())) {
      cards.emplace_back(card);
    }
  }
  return cards;
}

class Libvc : public peers::Peer {
 public:
  peers::Recovered open(const std::string& bytes) override { return {cardsOf(bytes).size()}; }

  peers::Recovered read(const std::string& bytes) override {
    const std::vector<Card> cards = cardsOf(bytes);
    peers::Recovered recovered{cards.size()};
    for (const Card& card : cards) {
      for (const vc_component* at = vc_get_next(card.get()); at != nullptr; at = vc_get_next(at)) {
        ++recovered.items;
        recovered.characters +=
            lengthOf(vc_get_name(at)) + lengthOf(vc_get_group(at)) + lengthOf(vc_get_value(at));
        for (auto* parameter = vc_get_param(at); parameter != nullptr;
             parameter = vc_param_get_next(parameter)) {
          recovered.characters +=
              lengthOf(vc_param_get_name(parameter)) + lengthOf(vc_param_get_value(parameter));
        }
      }
    }
    return recovered;
  }

  void prepareWriting(const std::string& bytes) override { m_cards = cardsOf(bytes); }

  peers::Recovered write() override {
    char* text = nullptr;
    std::size_t length = 0;
    FILE* file = open_memstream(&text, &length);
    for (const Card& card : m_cards) {
      fprintf_vcard(file, card.get());
    }
    std::fclose(file);
    std::free(text);
    return {m_cards.size(), length};
  }

 private:
  std::vector<Card> m_cards;
};

} // namespace

int main(int count, char** arguments) {
  Libvc libvc;
  return peers::measure(libvc, count, arguments);
}
