#pragma once

#include "conformance/arguments.h"
#include "conformance/json.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace cardwright::conformance {

/// Runs an operation on the arguments of a case.
using Operation = std::function<Json(const Arguments&)>;

namespace detail {

/// Hands a kept argument over in the form that the operation takes.
template <typename Parameter, typename Kept>
decltype(auto) passArgument(Kept& kept) {
  using Bare = std::remove_cvref_t<Parameter>;
  if constexpr (std::is_same_v<Kept, std::shared_ptr<Bare>>) {
    return static_cast<Bare&>(*kept);
  } else if constexpr (std::is_rvalue_reference_v<Parameter> || !std::is_reference_v<Parameter>) {
    return static_cast<Bare>(kept);
  } else {
    return static_cast<Bare&>(kept);
  }
}

template <typename Result, typename... Parameters, std::size_t... Index>
[[nodiscard]] Operation operationOf(Result (*function)(Parameters...),
                                    std::index_sequence<Index...> /*indices*/) {
  return [function](const Arguments& arguments) -> Json {
    arguments.expectCount(sizeof...(Parameters), sizeof...(Parameters));
    // Views among the parameters look into what is kept here.
    [[maybe_unused]] auto kept =
        std::make_tuple(arguments.get<std::remove_cvref_t<Parameters>>(Index)...);
    return toJson(function(passArgument<Parameters>(std::get<Index>(kept))...));
  };
}

} // namespace detail

/// The operations that this program can run, by the names that cases call them.
class OperationTable {
 public:
  void add(std::string_view name, Operation operation);
  void add(std::string_view name, Json (*function)(const Arguments&)) {
    add(name, Operation(function));
  }
  /// A function whose parameters are the arguments of the case, and whose result is the result.
  template <typename Result, typename... Parameters>
  void add(std::string_view name, Result (*function)(Parameters...)) {
    add(name, detail::operationOf(function, std::index_sequence_for<Parameters...>()));
  }

  /// Null for an operation that is not built.
  [[nodiscard]] const Operation* find(std::string_view name) const;
  [[nodiscard]] std::size_t size() const noexcept { return m_operations.size(); }

 private:
  std::map<std::string, Operation, std::less<>> m_operations;
};

/// A family of operations: each is a source with one object of this class, so that a family is in
/// the table when its source is in the program.
class OperationFamily {
 public:
  explicit OperationFamily(void (*addTo)(OperationTable&));
};

/// The operations of all families.
[[nodiscard]] OperationTable builtOperations();

} // namespace cardwright::conformance
