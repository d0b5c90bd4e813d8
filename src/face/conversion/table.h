#pragma once

#include "cardwright/text.h"

#include <cstdint>
#include <span>

namespace cardwright {

// What becomes of properties, parameters, types and encodings on the way from one version to its
// neighbour. The tables are read by the conversion, and by what makes docs/conversion.md.

enum class Action : std::uint8_t {
  rename,         ///< to the target
  reencode,       ///< as the form says
  reencodeOrPark, ///< the same, and parked where the form cannot carry it
  park,           ///< under "X-" and its name, from where the way back restores it
  drop,
};

/// The things that have another form in each version.
enum class Form : std::uint8_t {
  none,
  media,
  position,
  zone,
  telephone,
  date,
  label,
  sortString,
  gender,
  relation,
  agent,
  member,
  messenger,
  preference,
};

struct Rule { // NOLINT(clang-analyzer-optin.performance.Padding): in reading order
  TextView name;
  Action action;
  TextView target{};
  Form form = Form::none;
  TextView note{}; ///< for people
};

/// One way from a version to its neighbour. What no rule names is kept.
struct ConversionTable {
  VersionCode from;
  VersionCode to;
  std::span<const Rule> properties;
  std::span<const Rule> parameters;
  std::span<const Rule> types;
  std::span<const Rule> encodings;
};

/// All four: up to 3.0 and 4.0, down to 3.0 and 2.1.
[[nodiscard]] std::span<const ConversionTable> conversionTables();

/// @param from a version next to `to`
[[nodiscard]] const ConversionTable& conversionTable(VersionCode from, VersionCode to);

/// The rule for a name, without regard to case; null for what is kept.
[[nodiscard]] const Rule* ruleFor(std::span<const Rule> rules, TextView name);

/// What a parked name stands for in the table of the way back; null for any other name.
[[nodiscard]] const Rule* parkedRule(std::span<const Rule> rulesBack, TextView name);

} // namespace cardwright
