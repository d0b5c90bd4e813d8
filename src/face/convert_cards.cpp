#include "base/case.h"
#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/companions.h"
#include "face/conversion/forms.h"
#include "face/conversion/media.h"
#include "face/conversion/names_made.h"
#include "face/conversion/parameters.h"

#include <algorithm>

namespace cardwright {

namespace {

/// The version that a card is converted from: its own, or 3 where it states none of 2, 3 and 4.
VersionCode versionOf(const Drafts& drafts) {
  for (const Draft& draft : drafts) {
    if (draft.name == cVCardProperty_VERSION && draft.text()) {
      const auto version =
          VCardProperty::propertyWithName(cVCardProperty_VERSION, *draft.text())->versionValue();
      if (version != 0) {
        return version >= 2 ? static_cast<VersionCode>(std::min<std::uint64_t>(version, 4)) : 3;
      }
    }
  }
  return 3;
}

void park(Draft& draft, const Rule& rule, const ConversionStep& step) {
  if (dynamic_cast<const VCardMultiValue*>(draft.value.get()) != nullptr) {
    // Under the other name it is no list.
    draft.setText(wholeText(*draft.value));
  }
  rename(draft, upperCased(Text(u"X-").append(rule.name)), ConversionKind::parked, step);
}

void restore(Draft& draft, const Rule& rule, const ConversionStep& step) {
  rename(draft, rule.name, ConversionKind::restored, step);
  const bool isList =
      VCardProperty::propertyWithName(rule.name, draft.value)->isMultiValueProperty();
  if (isList && dynamic_cast<const VCardTextValue*>(draft.value.get()) != nullptr) {
    auto list = VCardMultiValue::valueWithType(cVCardValue_TEXT);
    DateFormatter formatter("en_US_POSIX");
    list->parse(draft.text().value_or(TextView()), step.table.to, &formatter);
    draft.value = list;
  }
}

/// @returns whether the form of the other version can carry the property
bool takeForm(Draft& draft, const Rule& rule, const ConversionStep& step) {
  switch (rule.form) {
  case Form::media:
    convertMedia(draft, step);
    return true;
  case Form::position:
    return convertPosition(draft, step);
  case Form::zone:
    return convertZone(draft, step);
  case Form::telephone:
    return convertTelephone(draft, step);
  case Form::date:
    return convertDate(draft, rule, step);
  case Form::gender:
    return convertGender(draft, step);
  case Form::relation:
    return convertRelation(draft, step);
  case Form::agent:
    return convertAgent(draft, step);
  case Form::member:
    return convertMember(draft, rule, step);
  case Form::messenger:
    return convertMessenger(draft, step);
  case Form::none:
  case Form::label:      // These two belong to other properties,
  case Form::sortString: // and are merged and split with them.
  case Form::preference:
    return true;
  }
  return true;
}

void convertProperty(Draft& draft, const ConversionStep& step) {
  if (const Rule* rule = ruleFor(step.table.properties, draft.name)) {
    if (rule->action == Action::rename) {
      rename(draft, rule->target, ConversionKind::renamed, step);
    } else if (rule->action == Action::park) {
      park(draft, *rule, step);
    } else if (!takeForm(draft, *rule, step) && rule->action == Action::reencodeOrPark) {
      park(draft, *rule, step);
    }
  } else if (const Rule* parked = parkedRule(step.back.properties, draft.name)) {
    restore(draft, *parked, step);
  }
  convertParameters(draft, step);
}

void convertStep(Drafts& drafts, VersionCode from, VersionCode to, ConversionRecorder& recorder) {
  const ConversionStep step{conversionTable(from, to), conversionTable(to, from), recorder};
  if (to == 4) {
    mergeProperties(drafts, step);
  }
  for (Draft& draft : drafts) {
    if (!draft.isDropped && draft.name != cVCardProperty_VERSION) {
      convertProperty(draft, step);
    }
  }
  std::erase_if(drafts, [](const Draft& draft) { return draft.isDropped; });
  if (from == 4) {
    splitParameters(drafts, step);
  }
  for (Draft& draft : drafts) {
    stateValue(draft, to, recorder);
  }
}

/// Makes the card state the version, once.
void stateVersion(Drafts& drafts, VersionCode version, ConversionRecorder& recorder) {
  bool isFirst = true;
  const Draft stated =
      newDraft(cVCardProperty_VERSION, VCardProperty::propertyForVersion(version)->value());
  for (Draft& draft : drafts) {
    if (draft.name != cVCardProperty_VERSION) {
      continue;
    }
    if (!isFirst) {
      recorder.changed(ConversionKind::dropped, draft, {}, {}, draft.text().value_or(TextView()));
      recorder.propertyGone(false);
      draft.isDropped = true;
    } else if (draft.text() != stated.text()) {
      recorder.changed(ConversionKind::reencoded, draft, {}, *stated.text(),
                       draft.text().value_or(TextView()));
      draft.value = stated.value;
      draft.remove(cVCardParameter_VALUE);
    }
    isFirst = false;
  }
  if (isFirst) {
    recorder.propertyAdded(stated, {});
    drafts.push_back(stated);
  }
}

std::shared_ptr<VCard> convertCard(const VCard& card, VersionCode version,
                                   ConversionRecorder& recorder) {
  Drafts drafts = draftsOf(card);
  recorder.cardBegins(drafts.size());
  addMissingFormattedName(drafts, version, recorder); // Of what will be parked.
  for (VersionCode at = versionOf(drafts); at != version;) {
    const VersionCode next = at < version ? at + 1 : at - 1;
    convertStep(drafts, at, next, recorder);
    at = next;
  }
  stateVersion(drafts, version, recorder);
  addMissingFormattedName(drafts, version, recorder); // Of what was parked.
  addMissingName(drafts, version, recorder);
  recorder.cardEnds(static_cast<std::size_t>(std::count_if(
      drafts.begin(), drafts.end(), [](const Draft& draft) { return !draft.isDropped; })));
  return cardOf(drafts);
}

} // namespace

void rename(Draft& draft, TextView name, ConversionKind kind, const ConversionStep& step) {
  if (draft.name != name) {
    step.recorder.changed(kind, draft, {}, name, draft.name);
    draft.name = name;
  }
}

VCardList convertCards(const VCardList& cards, VersionCode version, ConversionReport* report) {
  ConversionReport done;
  ConversionRecorder recorder(report != nullptr ? &done : nullptr);
  const VersionCode target = std::clamp<VersionCode>(version, 2, 4);
  VCardList converted;
  converted.reserve(cards.size());
  for (const auto& card : cards) {
    if (card != nullptr) {
      converted.push_back(convertCard(*card, target, recorder));
    }
  }
  if (report != nullptr) {
    *report = std::move(done);
  }
  return converted;
}

} // namespace cardwright
