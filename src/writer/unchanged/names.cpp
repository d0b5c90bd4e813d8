#include "writer/unchanged/names.h"

#include "model/known_name_table.h"
#include "model/value_types.h"
#include "writer/companions.h"
#include "writer/order.h"

#include <array>

namespace cardwright {

namespace {

constexpr ValueClass classOf(TextView type) noexcept {
  return kValueClasses.find(type)->value;
}

constexpr auto kWrittenNames = [] {
  constexpr auto& kRows = kKnownNames.rows();
  NameRow<WrittenName> rows[kRows.size()];
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    const auto& [name, types] = kRows[i];
    rows[i] = {name,
               {orderOf(propertyRank(name), name), orderOf(parameterRank(name), name), types.below4,
                types.type, classOf(types.below4), classOf(types.type), isMultiValueName(name),
                name == kLabelKey || name == kAddressFormatKey}};
  }
  return NameTable(rows);
}();

/// The short names once more, found without a look at each letter.
class ShortNames {
 public:
  constexpr ShortNames() {
    const auto& rows = kWrittenNames.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const ShortWord word = shortWordPlainly(rows[i].name, 0);
      if (word.size == ShortWord::kMost) {
        continue;
      }
      std::size_t slot = slotOf(word.letters);
      while (m_slots[slot].letters != 0) {
        slot = (slot + 1) % kSize;
      }
      m_slots[slot] = {word.letters, i};
    }
  }

  [[nodiscard]] const NameRow<WrittenName>* find(std::uint64_t letters) const noexcept {
    std::size_t slot = slotOf(letters);
    while (m_slots[slot].letters != letters) {
      if (m_slots[slot].letters == 0) {
        return nullptr;
      }
      slot = (slot + 1) % kSize;
    }
    return &kWrittenNames.rows()[m_slots[slot].row];
  }

 private:
  struct Slot {
    std::uint64_t letters = 0; ///< 0 for none
    std::size_t row = 0;
  };

  static constexpr std::size_t kSize = 256;

  static constexpr std::size_t slotOf(std::uint64_t letters) noexcept {
    return static_cast<std::size_t>(letters * 0x9E3779B97F4A7C15U >> 56U);
  }

  std::array<Slot, kSize> m_slots{};
};

constexpr ShortNames kShortNames;

} // namespace

const NameRow<WrittenName>* writtenName(ShortWord word, TextView name) noexcept {
  return word.size < ShortWord::kMost ? kShortNames.find(word.letters)
                                      : kWrittenNames.findAsciiIgnoringCase(name);
}

} // namespace cardwright
