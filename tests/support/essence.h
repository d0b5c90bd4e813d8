#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_property.h"

#include <map>
#include <memory>
#include <string>

namespace cardwright {

/// What must come back of a property that was converted there and back.
struct Essence {
  Text name; ///< behind its group
  std::map<Text, TextList> parameters;
  Text value;

  friend auto operator<=>(const Essence&, const Essence&) = default;
};

/// Everything that the page of conversions does not list as lost; neither the order of parameters.
[[nodiscard]] Essence wholeEssence(const std::shared_ptr<VCardProperty>& property,
                                   VersionCode version);

/// The same without what tells one version's form of a property from that of another.
[[nodiscard]] Essence commonEssence(const std::shared_ptr<VCardProperty>& property);

/// Whether a property of a card of version `home` has something that the tables of the way from
/// `there` would give another form on arrival: it was not made for that version.
[[nodiscard]] bool isForeign(const VCardProperty& property, VersionCode home, VersionCode there);

[[nodiscard]] std::string told(const Essence& essence);

} // namespace cardwright
