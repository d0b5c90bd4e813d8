#include "face/conversion/companions.h"

#include "base/case.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/forms.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace cardwright {

namespace {

/// What a label and its address have in common: group and types.
using Place = std::pair<std::optional<Text>, std::set<Text>>;

bool isDroppedBy(std::span<const Rule> rules, TextView name) {
  const Rule* rule = ruleFor(rules, name);
  return rule != nullptr && rule->action == Action::drop;
}

Place placeOf(const Draft& draft, const ConversionStep& step) {
  Place place{draft.group, {}};
  if (const TextList* types = draft.valuesOf(cVCardParameter_TYPE)) {
    for (const Text& type : *types) {
      if (!isDroppedBy(step.table.types, type)) {
        place.second.insert(caseFolded(type));
      }
    }
  }
  return place;
}

/// Whether the types are all that a property has but for its value.
bool hasOnlyTypes(const Draft& draft, const ConversionStep& step) {
  return std::all_of(draft.parameters.begin(), draft.parameters.end(),
                     [&step](const DraftParameter& parameter) {
                       return parameter.key == cVCardParameter_TYPE ||
                              isDroppedBy(step.table.parameters, parameter.key);
                     });
}

/// Makes a property a parameter of another one.
void merge(Draft& part, Draft& whole, TextView parameter, const ConversionStep& step) {
  whole.set(parameter, {Text(*part.text())});
  part.isDropped = true;
  step.recorder.changed(ConversionKind::reencoded, part, {},
                        Text(whole.name).append(u";").append(parameter), *part.text());
  step.recorder.propertyGone(true);
}

void mergeLabels(Drafts& drafts, const ConversionStep& step) {
  std::map<Place, std::vector<Draft*>> addresses;
  for (Draft& draft : drafts) {
    if (draft.name == cVCardProperty_ADR && draft.valuesOf(cVCardParameter_LABEL) == nullptr) {
      addresses[placeOf(draft, step)].push_back(&draft);
    }
  }
  std::map<Place, std::size_t> used;
  for (Draft& draft : drafts) {
    if (draft.name != cVCardProperty_LABEL) {
      continue;
    }
    const Place place = placeOf(draft, step);
    const auto found = addresses.find(place);
    std::size_t& next = used[place];
    if (found != addresses.end() && next < found->second.size() && hasOnlyTypes(draft, step) &&
        !draft.text().value_or(TextView()).empty()) {
      merge(draft, *found->second[next++], cVCardParameter_LABEL, step);
    } else {
      rename(draft, u"X-LABEL", ConversionKind::parked, step);
    }
  }
}

void mergeSortStrings(Drafts& drafts, const ConversionStep& step) {
  const auto name = std::find_if(drafts.begin(), drafts.end(),
                                 [](const Draft& draft) { return draft.name == cVCardProperty_N; });
  for (Draft& draft : drafts) {
    if (draft.name != cVCardProperty_SORT_STRING) {
      continue;
    }
    const bool isPlain =
        draft.parameters.empty() && !draft.group && !draft.text().value_or(TextView()).empty();
    if (isPlain && name != drafts.end() && name->valuesOf(cVCardParameter_SORT_AS) == nullptr) {
      merge(draft, *name, cVCardParameter_SORT_AS, step);
    } else {
      rename(draft, u"X-SORT-STRING", ConversionKind::parked, step);
    }
  }
}

/// Line breaks that are escaped as in a value, as many do in the label of an address.
Text withLineBreaks(TextView text) {
  Text result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isEscaped =
        text[at] == u'\\' && at + 1 < text.size() && (text[at + 1] == u'n' || text[at + 1] == u'N');
    result.push_back(isEscaped ? u'\n' : text[at]);
    at += isEscaped ? 1 : 0;
  }
  return result;
}

/// Makes the one value of a parameter a property, or parks it.
/// @param group that of the property
std::optional<Draft> split(Draft& whole, TextView parameter, TextView property,
                           const std::optional<Text>& group, bool isPossible,
                           const ConversionStep& step) {
  const TextList values = *whole.valuesOf(parameter);
  whole.remove(parameter);
  if (!isPossible || values.size() != 1 || values.front().empty()) {
    const Text parked = Text(u"X-").append(parameter);
    whole.set(parked, values);
    step.recorder.changed(ConversionKind::parked, whole, parameter, parked,
                          values.empty() ? TextView() : TextView(values.front()));
    return std::nullopt;
  }
  Draft draft =
      newDraft(property, VCardTextValue::valueWithText(property == cVCardProperty_LABEL
                                                           ? withLineBreaks(values.front())
                                                           : values.front()));
  if (group) {
    draft.group = group;
    draft.origin = originOf(draft);
  }
  step.recorder.propertyAdded(draft, whole.name);
  return draft;
}

} // namespace

bool isSplitParameter(TextView property, TextView parameter) noexcept {
  return (property == cVCardProperty_ADR && parameter == cVCardParameter_LABEL) ||
         (property == cVCardProperty_N && parameter == cVCardParameter_SORT_AS);
}

void mergeProperties(Drafts& drafts, const ConversionStep& step) {
  mergeLabels(drafts, step);
  mergeSortStrings(drafts, step);
}

void splitParameters(Drafts& drafts, const ConversionStep& step) {
  std::set<Place> unlabelled; // There, the way back could not tell whose a label is.
  bool isFirstName = true;
  Drafts added;
  for (Draft& draft : drafts) {
    if (draft.name == cVCardProperty_ADR) {
      const Place place = placeOf(draft, step);
      if (draft.valuesOf(cVCardParameter_LABEL) == nullptr) {
        unlabelled.insert(place);
        continue;
      }
      auto label = split(draft, cVCardParameter_LABEL, cVCardProperty_LABEL, draft.group,
                         !unlabelled.contains(place), step);
      if (label) {
        if (const TextList* types = draft.valuesOf(cVCardParameter_TYPE)) {
          label->set(cVCardParameter_TYPE, *types);
        }
        added.push_back(std::move(*label));
      } else {
        unlabelled.insert(place);
      }
    } else if (draft.name == cVCardProperty_N) {
      if (draft.valuesOf(cVCardParameter_SORT_AS) != nullptr) {
        if (auto sort = split(draft, cVCardParameter_SORT_AS, cVCardProperty_SORT_STRING,
                              std::nullopt, isFirstName, step)) {
          added.push_back(std::move(*sort));
        }
      }
      isFirstName = false;
    }
  }
  // In front of those that nothing took before.
  std::move(drafts.begin(), drafts.end(), std::back_inserter(added));
  drafts = std::move(added);
}

} // namespace cardwright
