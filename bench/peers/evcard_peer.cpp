#include "peer.h"

#include <libebook-contacts/libebook-contacts.h>
#include <memory>
#include <vector>

namespace {

struct Release {
  void operator()(EVCard* card) const { g_object_unref(card); }
};
using Card = std::unique_ptr<EVCard, Release>;

std::size_t lengthOf(const GList* texts) {
  std::size_t length = 0;
  for (; texts != nullptr; texts = texts->next) {
    length += std::char_traits<char>::length(static_cast<const char*>(texts->data));
  }
  return length;
}

std::size_t lengthOf(const char* text) {
  return text == nullptr ? 0 : std::char_traits<char>::length(text);
}

std::size_t lengthOf(EVCardAttribute* attribute) {
  std::size_t length = lengthOf(e_vcard_attribute_get_name(attribute)) +
                       lengthOf(e_vcard_attribute_get_group(attribute));
  for (GList* at = e_vcard_attribute_get_params(attribute); at != nullptr; at = at->next) {
    auto* parameter = static_cast<EVCardAttributeParam*>(at->data);
    length += lengthOf(e_vcard_attribute_param_get_name(parameter)) +
              lengthOf(e_vcard_attribute_param_get_values(parameter));
  }
  return length + lengthOf(e_vcard_attribute_get_values(attribute));
}

std::vector<Card> cardsOf(const std::string& bytes) {
  std::vector<Card> cards;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::string_view text = peers::nextCard(bytes, begin);
    Card card(e_vcard_new());
    e_vcard_construct_full(card.get(), text.data(), static_cast<gssize>(text.size()), nullptr);
    static_cast<void>(e_vcard_get_attributes(card.get())); // before this nothing is parsed
    cards.push_back(std::move(card));
  }
  return cards;
}

class Evcard : public peers::Peer {
 public:
  peers::Recovered open(const std::string& bytes) override { return {cardsOf(bytes).size()}; }

  peers::Recovered read(const std::string& bytes) override {
    const std::vector<Card> cards = cardsOf(bytes);
    peers::Recovered recovered{cards.size()};
    for (const Card& card : cards) {
      for (GList* at = e_vcard_get_attributes(card.get()); at != nullptr; at = at->next) {
        ++recovered.items;
        recovered.characters += lengthOf(static_cast<EVCardAttribute*>(at->data));
      }
    }
    return recovered;
  }

  void prepareWriting(const std::string& bytes) override { m_cards = cardsOf(bytes); }

  peers::Recovered write() override {
    m_output.clear();
    for (const Card& card : m_cards) {
      char* text = e_vcard_to_string(card.get(), EVC_FORMAT_VCARD_30);
      m_output.append(text);
      g_free(text);
    }
    return {m_cards.size(), m_output.size()};
  }

 private:
  std::vector<Card> m_cards;
  std::string m_output;
};

} // namespace

int main(int count, char** arguments) {
  Evcard evcard;
  return peers::measure(evcard, count, arguments);
}
