#include "conformance/comparison.h"

#include <algorithm>

namespace cardwright::conformance {
namespace {

constexpr const char* kNothing = "(nothing)";

[[nodiscard]] bool areSameNumber(const Json& a, const Json& b) {
  if (a.IsDouble() || b.IsDouble()) {
    return a.GetDouble() == b.GetDouble();
  }
  return a.IsUint64() == b.IsUint64() &&
         (a.IsUint64() ? a.GetUint64() == b.GetUint64() : a.GetInt64() == b.GetInt64());
}

/// Compares depth first and keeps the path to where it stands.
class Comparison {
 public:
  [[nodiscard]] bool areEqual(const Json& expected, const Json& got) {
    if (expected.IsObject() && got.IsObject()) {
      return areEqualObjects(expected, got);
    }
    if (expected.IsArray() && got.IsArray()) {
      return areEqualLists(expected, got);
    }
    const bool equal =
        expected.IsNumber() && got.IsNumber() ? areSameNumber(expected, got) : expected == got;
    return equal || differ(textOfJson(expected), textOfJson(got));
  }

  [[nodiscard]] Difference difference() && { return std::move(m_difference); }

 private:
  [[nodiscard]] bool differ(std::string expected, std::string got) {
    m_difference = {m_path, std::move(expected), std::move(got)};
    return false;
  }

  /// Compares what stands one step below, where either side may have nothing.
  [[nodiscard]] bool areEqualParts(const std::string& step, const Json* expected, const Json* got) {
    const std::size_t length = m_path.size();
    m_path += step;
    const bool equal = expected != nullptr && got != nullptr
                           ? areEqual(*expected, *got)
                           : differ(expected != nullptr ? textOfJson(*expected) : kNothing,
                                    got != nullptr ? textOfJson(*got) : kNothing);
    m_path.resize(length);
    return equal;
  }

  [[nodiscard]] bool areEqualObjects(const Json& expected, const Json& got) {
    if (!haveSameNames(expected, got)) {
      return differ(textOfJson(expected), textOfJson(got));
    }
    for (const auto& member : expected.GetObject()) {
      const std::string step = '.' + std::string(member.name.GetString());
      if (!areEqualParts(step, &member.value, &got.FindMember(member.name)->value)) {
        return false;
      }
    }
    return true;
  }

  [[nodiscard]] static bool haveSameNames(const Json& a, const Json& b) {
    return a.MemberCount() == b.MemberCount() &&
           std::all_of(a.MemberBegin(), a.MemberEnd(),
                       [&](const auto& member) { return b.HasMember(member.name); });
  }

  [[nodiscard]] bool areEqualLists(const Json& expected, const Json& got) {
    for (rapidjson::SizeType i = 0; i < std::max(expected.Size(), got.Size()); ++i) {
      if (!areEqualParts('[' + std::to_string(i) + ']',
                         i < expected.Size() ? &expected[i] : nullptr,
                         i < got.Size() ? &got[i] : nullptr)) {
        return false;
      }
    }
    return true;
  }

  std::string m_path;
  Difference m_difference;
};

} // namespace

std::optional<Difference> firstDifference(const Json& expected, const Json& got) {
  Comparison comparison;
  if (comparison.areEqual(expected, got)) {
    return std::nullopt;
  }
  return std::move(comparison).difference();
}

} // namespace cardwright::conformance
