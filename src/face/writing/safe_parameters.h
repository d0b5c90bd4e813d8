#pragma once

#include "cardwright/vcard_property.h"
#include "face/writing/write_recorder.h"

#include <optional>
#include <vector>

namespace cardwright {

/// A parameter whose name and values can become nothing but that.
struct SafeParameter {
  Text key; ///< the name in upper case
  Text name;
  TextList values;
};

/// The parameters of a property in the order in which they are written, without those that say
/// nothing.
[[nodiscard]] std::vector<SafeParameter> safeParameters(const VCardProperty& property,
                                                        WriteRecorder& recorder);

/// The first value of a parameter; absent without one.
[[nodiscard]] std::optional<TextView> firstValueOf(const std::vector<SafeParameter>& parameters,
                                                   TextView key);
/// Gives a parameter this one value, in its place among the others.
void replaceParameter(std::vector<SafeParameter>& parameters, TextView name, TextView value);
void removeParameter(std::vector<SafeParameter>& parameters, TextView key);

/// Appends the parameters, each behind ";".
/// @param propertyKey name of the property in upper case
void appendParameters(Text& output, const std::vector<SafeParameter>& parameters,
                      TextView propertyKey, VersionCode version);

} // namespace cardwright
