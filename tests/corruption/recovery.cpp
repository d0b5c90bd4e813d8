#include "corruption/recovery.h"

#include "support/card_model.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace cardwright {

namespace {

using Properties = std::vector<PropertyModel>;

const Properties& propertiesOf(const CardModel& card, const Text& key) {
  static const Properties kNone;
  const auto entry = card.find(key);
  return entry == card.end() ? kNone : entry->second;
}

/// How many of one list have an equal of their own in the other.
template <typename IsEqual>
std::size_t common(const Properties& before, const Properties& after, IsEqual isEqual) {
  std::vector<const PropertyModel*> rest;
  for (const PropertyModel& property : after) {
    rest.push_back(&property);
  }
  std::size_t count = 0;
  for (const PropertyModel& property : before) {
    const auto found = std::find_if(rest.begin(), rest.end(), [&](const PropertyModel* other) {
      return isEqual(property, *other);
    });
    if (found != rest.end()) {
      rest.erase(found);
      ++count;
    }
  }
  return count;
}

bool haveSameName(const PropertyModel& left, const PropertyModel& right) {
  return left.group == right.group && left.name == right.name;
}

bool isName(const Text& key) {
  return key == u"FN" || key == u"N";
}

bool haveSameNames(const CardModel& left, const CardModel& right) {
  const Text fullName = u"FN";
  const Text name = u"N";
  return propertiesOf(left, fullName) == propertiesOf(right, fullName) &&
         propertiesOf(left, name) == propertiesOf(right, name);
}

struct Share {
  std::size_t found = 0;
  std::size_t all = 0;

  [[nodiscard]] int thousandths() const {
    return all == 0 ? 0 : static_cast<int>(1000 * found / all);
  }
  [[nodiscard]] int thousandthsRoundedUp() const {
    return all == 0 ? 0 : static_cast<int>((1000 * found + all - 1) / all);
  }
};

/// Finds the cards of a list, each once.
class CardFinder {
 public:
  explicit CardFinder(const VCardList& cards) {
    for (const auto& card : cards) {
      if (const auto uid = card->uid()) {
        m_byUid.emplace(Text(*uid), m_cards.size());
      }
      m_rest.insert(m_cards.size());
      m_cards.push_back(modelOf(*card));
      for (const auto& [key, properties] : m_cards.back()) {
        m_properties += properties.size();
      }
    }
  }

  [[nodiscard]] std::size_t properties() const { return m_properties; }

  /// Null when the UID is not there.
  const CardModel* take(const Text& uid) {
    const auto found = m_byUid.find(uid);
    return found == m_byUid.end() || m_rest.erase(found->second) == 0 ? nullptr
                                                                      : &m_cards[found->second];
  }

  /// Null when no card is left that has the names of this one.
  const CardModel* takeNamesake(const CardModel& card) {
    const auto found = std::find_if(m_rest.begin(), m_rest.end(), [&](std::size_t candidate) {
      return haveSameNames(card, m_cards[candidate]);
    });
    if (found == m_rest.end()) {
      return nullptr;
    }
    const CardModel* namesake = &m_cards[*found];
    m_rest.erase(found);
    return namesake;
  }

 private:
  std::vector<CardModel> m_cards;
  std::map<Text, std::size_t> m_byUid;
  std::set<std::size_t> m_rest;
  std::size_t m_properties = 0;
};

class Counting {
 public:
  void add(const CardModel& before, const CardModel* after) {
    static const CardModel kNone;
    m_cards.found += after != nullptr ? 1 : 0;
    ++m_cards.all;
    for (const auto& [key, properties] : before) {
      const Properties& others = propertiesOf(after != nullptr ? *after : kNone, key);
      m_properties.found += common(properties, others, haveSameName);
      m_properties.all += properties.size();
      m_values.found += common(properties, others, std::equal_to<>());
      m_values.all += properties.size();
      if (isName(key)) {
        m_names.found +=
            common(properties, others, [](const PropertyModel& left, const PropertyModel& right) {
              return left.value == right.value;
            });
        m_names.all += properties.size();
      }
    }
  }

  /// @param propertiesAfter how many there are now, in cards that were found and in others
  [[nodiscard]] Recovery result(std::size_t propertiesAfter) const {
    const Share added{propertiesAfter - m_properties.found, m_properties.all};
    return {m_cards.thousandths(), m_names.thousandths(), m_properties.thousandths(),
            m_values.thousandths(), added.thousandthsRoundedUp()};
  }

 private:
  Share m_cards;
  Share m_names;
  Share m_properties;
  Share m_values;
};

} // namespace

bool isAsGoodAs(const Recovery& measured, const Recovery& promised) {
  return measured.cards >= promised.cards && measured.names >= promised.names &&
         measured.properties >= promised.properties && measured.values >= promised.values &&
         measured.added <= promised.added;
}

Recovery recovered(const VCardList& before, const VCardList& after) {
  CardFinder finder(after);
  std::vector<std::pair<CardModel, const CardModel*>> pairs;
  for (const auto& card : before) {
    pairs.emplace_back(modelOf(*card), finder.take(Text(card->uid().value_or(TextView()))));
  }
  // Only now, so that no card is taken from the one that it belongs to.
  Counting counting;
  for (const auto& [card, found] : pairs) {
    counting.add(card, found != nullptr ? found : finder.takeNamesake(card));
  }
  return counting.result(finder.properties());
}

} // namespace cardwright
