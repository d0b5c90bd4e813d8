#pragma once

#include "conformance/case_error.h"
#include "conformance/json.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace cardwright::conformance {

[[nodiscard]] bool booleanFromJson(const Json& value);
[[nodiscard]] std::int64_t signedFromJson(const Json& value);
[[nodiscard]] std::uint64_t unsignedFromJson(const Json& value);
[[nodiscard]] Text textFromJson(const Json& value);
[[nodiscard]] std::string bytesFromJson(const Json& value);
/// The member of an object, or null.
[[nodiscard]] const Json& memberOf(const Json& object, const char* name);
/// Fails unless the value is a list.
const Json& checkedList(const Json& value);

/// How an argument of a type is read: what is kept of it during the call. All of these throw
/// CaseError for JSON of another kind.
template <typename Argument>
struct ArgumentReader;

template <>
struct ArgumentReader<bool> {
  [[nodiscard]] static bool read(const Json& value) { return booleanFromJson(value); }
};

template <std::integral Number>
struct ArgumentReader<Number> {
  [[nodiscard]] static Number read(const Json& value) {
    if constexpr (std::signed_integral<Number>) {
      return narrowed(signedFromJson(value));
    } else {
      return narrowed(unsignedFromJson(value));
    }
  }

 private:
  template <typename Wide>
  static Number narrowed(Wide number) {
    if (number < std::numeric_limits<Number>::min() ||
        number > std::numeric_limits<Number>::max()) {
      throw CaseError("a number out of range");
    }
    return static_cast<Number>(number);
  }
};

/// A text of a single unit.
template <>
struct ArgumentReader<char16_t> {
  [[nodiscard]] static char16_t read(const Json& value);
};

template <>
struct ArgumentReader<Text> {
  [[nodiscard]] static Text read(const Json& value) { return textFromJson(value); }
};
template <>
struct ArgumentReader<TextView> : ArgumentReader<Text> {};

/// Bytes.
template <>
struct ArgumentReader<std::string> {
  [[nodiscard]] static std::string read(const Json& value) { return bytesFromJson(value); }
};
template <>
struct ArgumentReader<std::string_view> : ArgumentReader<std::string> {};

template <typename Item>
struct ArgumentReader<std::optional<Item>> {
  using Kept = decltype(ArgumentReader<Item>::read(std::declval<const Json&>()));
  [[nodiscard]] static std::optional<Kept> read(const Json& value) {
    if (value.IsNull()) {
      return std::nullopt;
    }
    return ArgumentReader<Item>::read(value);
  }
};

template <typename Item>
struct ArgumentReader<std::vector<Item>> {
  [[nodiscard]] static std::vector<Item> read(const Json& value) {
    std::vector<Item> items;
    for (const Json& item : checkedList(value).GetArray()) {
      items.push_back(ArgumentReader<Item>::read(item));
    }
    return items;
  }
};

template <typename First, typename Second>
struct ArgumentReader<std::pair<First, Second>> {
  [[nodiscard]] static std::pair<First, Second> read(const Json& value) {
    if (checkedList(value).Size() != 2) {
      throw CaseError("no pair: " + textOfJson(value));
    }
    return {ArgumentReader<First>::read(value[0]), ArgumentReader<Second>::read(value[1])};
  }
};

/// The argument list of a case.
class Arguments {
 public:
  explicit Arguments(const Json& list) : m_list(checkedList(list)) {}

  [[nodiscard]] std::size_t count() const { return m_list.Size(); }
  [[nodiscard]] const Json& operator[](std::size_t index) const;

  /// Fails unless the case has so many.
  void expectCount(std::size_t least, std::size_t most) const;

  template <typename Argument>
  [[nodiscard]] auto get(std::size_t index) const {
    return ArgumentReader<Argument>::read((*this)[index]);
  }
  /// The same, with a default for an argument that the case leaves out.
  template <typename Argument>
  [[nodiscard]] Argument getOr(std::size_t index, Argument absent) const {
    return index < count() ? Argument(get<Argument>(index)) : absent;
  }

 private:
  const Json& m_list;
};

} // namespace cardwright::conformance
