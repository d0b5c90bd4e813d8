#include "face/conversion/parameters.h"

#include "base/case.h"
#include "cardwright/vcard_x_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/companions.h"
#include "face/conversion/forms.h"
#include "face/writing/value_kind.h"

#include <vector>

namespace cardwright {

namespace {

constexpr TextView kParkedTypes = u"X-TYPE";
constexpr TextView kParkedValue = u"X-VALUE";

Text parkedName(TextView name) {
  return upperCased(Text(u"X-").append(name));
}

TextView firstText(const TextList& values) noexcept {
  return values.empty() ? TextView() : TextView(values.front());
}

void restoreParameters(Draft& draft, const ConversionStep& step) {
  for (DraftParameter& parameter : draft.parameters) {
    const Rule* rule = parkedRule(step.back.parameters, parameter.key);
    if (rule == nullptr || draft.valuesOf(rule->name) != nullptr) {
      continue;
    }
    step.recorder.changed(ConversionKind::restored, draft, parameter.key, rule->name,
                          firstText(parameter.values));
    parameter.key = rule->name;
  }
}

/// Gives a parameter these values, or takes it away where there are none.
void setOrRemove(Draft& draft, TextView key, TextList values) {
  if (values.empty()) {
    draft.remove(key);
  } else {
    draft.set(key, std::move(values));
  }
}

TextList valuesOrNone(const Draft& draft, TextView key) {
  const TextList* values = draft.valuesOf(key);
  return values != nullptr ? *values : TextList();
}

void restoreTypes(Draft& draft, const ConversionStep& step) {
  if (draft.valuesOf(kParkedTypes) == nullptr) {
    return;
  }
  TextList types = valuesOrNone(draft, cVCardParameter_TYPE);
  TextList left;
  for (Text& type : valuesOrNone(draft, kParkedTypes)) {
    const Rule* rule = ruleFor(step.back.types, type);
    if (rule == nullptr || rule->action != Action::park) {
      left.push_back(std::move(type));
      continue;
    }
    step.recorder.changed(ConversionKind::restored, draft, kParkedTypes, cVCardParameter_TYPE,
                          type);
    types.push_back(std::move(type));
  }
  setOrRemove(draft, cVCardParameter_TYPE, std::move(types));
  setOrRemove(draft, kParkedTypes, std::move(left));
}

void convertTypes(Draft& draft, const ConversionStep& step) {
  if (draft.valuesOf(cVCardParameter_TYPE) == nullptr) {
    return;
  }
  TextList left;
  TextList parked = valuesOrNone(draft, kParkedTypes);
  bool isPreferred = false;
  for (Text& type : valuesOrNone(draft, cVCardParameter_TYPE)) {
    const Rule* rule = ruleFor(step.table.types, type);
    if (rule == nullptr) {
      left.push_back(std::move(type));
    } else if (rule->action == Action::drop) {
      step.recorder.changed(ConversionKind::dropped, draft, cVCardParameter_TYPE, {}, type);
    } else if (rule->action == Action::park) {
      step.recorder.changed(ConversionKind::parked, draft, cVCardParameter_TYPE, kParkedTypes,
                            type);
      parked.push_back(std::move(type));
    } else {
      step.recorder.changed(ConversionKind::reencoded, draft, cVCardParameter_TYPE, rule->target,
                            type);
      isPreferred = true;
    }
  }
  setOrRemove(draft, cVCardParameter_TYPE, std::move(left));
  setOrRemove(draft, kParkedTypes, std::move(parked));
  if (isPreferred && draft.valuesOf(cVCardParameter_PREF) == nullptr) {
    draft.set(cVCardParameter_PREF, {u"1"});
  }
}

void convertEncodings(Draft& draft, const ConversionStep& step) {
  const TextList* encodings = draft.valuesOf(cVCardParameter_ENCODING);
  if (encodings == nullptr) {
    return;
  }
  TextList left;
  for (const Text& encoding : *encodings) {
    const Rule* rule = ruleFor(step.table.encodings, encoding);
    if (rule == nullptr) {
      left.push_back(encoding);
      continue;
    }
    const bool isDropped = rule->action == Action::drop;
    step.recorder.changed(isDropped ? ConversionKind::dropped : ConversionKind::renamed, draft,
                          cVCardParameter_ENCODING, rule->target, encoding);
    if (!isDropped) {
      left.emplace_back(rule->target);
    }
  }
  setOrRemove(draft, cVCardParameter_ENCODING, std::move(left));
}

/// A first rank is a type below version 4.
bool preferenceToType(Draft& draft, const DraftParameter& rank, const ConversionStep& step) {
  if (rank.values != TextList{u"1"}) {
    return false;
  }
  step.recorder.changed(ConversionKind::reencoded, draft, rank.key, u"TYPE=pref", rank.values[0]);
  draft.remove(rank.key);
  if (!draft.hasType(cVCardParameter_TYPE_PREF)) {
    draft.append(cVCardParameter_TYPE, Text(cVCardParameter_TYPE_PREF));
  }
  return true;
}

void convertOthers(Draft& draft, const ConversionStep& step) {
  for (const DraftParameter& parameter : std::vector<DraftParameter>(draft.parameters)) {
    const Rule* rule = ruleFor(step.table.parameters, parameter.key);
    if (rule == nullptr || isSplitParameter(draft.name, parameter.key)) {
      continue;
    }
    if (rule->form == Form::preference && preferenceToType(draft, parameter, step)) {
      continue;
    }
    const bool isDropped = rule->action == Action::drop;
    const Text target = isDropped ? Text() : parkedName(rule->name);
    step.recorder.changed(isDropped ? ConversionKind::dropped : ConversionKind::parked, draft,
                          parameter.key, target, firstText(parameter.values));
    draft.remove(parameter.key);
    if (!isDropped) {
      draft.set(target, parameter.values);
    }
  }
}

/// Values of the types that version 2.1 has for itself.
void plainValue(Draft& draft) {
  const auto* extension = dynamic_cast<const VCardXValue*>(draft.value.get());
  if (extension == nullptr || !extension->type()) {
    return;
  }
  const Text type(*extension->type());
  const Text text(extension->text().value_or(TextView()));
  if (equalIgnoringCase(type, cVCardValue_URL)) {
    draft.setUri(text);
  } else if (equalIgnoringCase(type, cVCardValue_CONTENT_ID) ||
             equalIgnoringCase(type, cVCardValue_CID)) {
    draft.setUri(text.starts_with(u"cid:") ? text : Text(u"cid:").append(text));
  } else if (equalIgnoringCase(type, cVCardValue_INLINE)) {
    draft.setText(text);
  }
}

void restoreValue(Draft& draft) {
  const auto parked = draft.firstOf(kParkedValue);
  if (!parked) {
    return;
  }
  if (draft.text()) {
    draft.value = valueOfType(*parked, Text(*draft.text()));
  } else if (const auto date = dateOfKind(*parked, *draft.value)) {
    draft.value = date;
  } else {
    return;
  }
  draft.remove(kParkedValue);
}

/// Keeps a kind of value that the version does not have: dates as its own, all others as text.
void parkValue(Draft& draft, TextView type, ConversionRecorder& recorder) {
  const Text unknown = upperCased(type);
  recorder.changed(ConversionKind::parked, draft, cVCardParameter_VALUE, kParkedValue, unknown);
  draft.set(kParkedValue, {unknown});
  if (const auto date = dateBelow4(*draft.value)) {
    draft.value = date;
  } else {
    draft.setText(wholeText(*draft.value));
  }
}

} // namespace

void convertParameters(Draft& draft, const ConversionStep& step) {
  convertEncodings(draft, step);
  convertTypes(draft, step);
  convertOthers(draft, step);
  restoreParameters(draft, step);
  restoreTypes(draft, step);
}

void stateValue(Draft& draft, VersionCode version, ConversionRecorder& recorder) {
  if (draft.value == nullptr) {
    return;
  }
  if (version > 2) {
    plainValue(draft);
  }
  if (version == 4) {
    restoreValue(draft);
  }
  std::optional<TextView> type = typeToState(*draft.value, draft.name, version, std::nullopt);
  if (type && version == 2 && equalIgnoringCase(*type, cVCardValue_URI)) {
    type = cVCardValue_URL;
    draft.value = valueOfType(cVCardValue_URL, wholeText(*draft.value));
  } else if (type && version > 2 && !valueIsSupportedForVersion(*type, version)) {
    parkValue(draft, *type, recorder);
    type = typeToState(*draft.value, draft.name, version, std::nullopt);
  }
  if (type) {
    draft.set(cVCardParameter_VALUE, {Text(*type)});
  } else {
    draft.remove(cVCardParameter_VALUE);
  }
}

} // namespace cardwright
