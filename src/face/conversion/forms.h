#pragma once

#include "face/conversion/step.h"

namespace cardwright {

// Each gives a property the form of the step's target version, under the name that it has there.
// All return whether the form can carry what the property holds; it is left alone if not.

bool convertPosition(Draft& draft, const ConversionStep& step);
bool convertZone(Draft& draft, const ConversionStep& step);
bool convertTelephone(Draft& draft, const ConversionStep& step);
bool convertDate(Draft& draft, const Rule& rule, const ConversionStep& step);
bool convertGender(Draft& draft, const ConversionStep& step);
bool convertRelation(Draft& draft, const ConversionStep& step);
bool convertAgent(Draft& draft, const ConversionStep& step);
bool convertMember(Draft& draft, const Rule& rule, const ConversionStep& step);
bool convertMessenger(Draft& draft, const ConversionStep& step);

/// A date, with a time or not, as the versions below 4 have it; null for what they cannot hold.
std::shared_ptr<VCardValue> dateBelow4(const VCardValue& value);
/// The same date as another kind of date; null where one of the two is none.
std::shared_ptr<VCardValue> dateOfKind(TextView kind, const VCardValue& value);

/// Gives a property another name and tells.
void rename(Draft& draft, TextView name, ConversionKind kind, const ConversionStep& step);

} // namespace cardwright
