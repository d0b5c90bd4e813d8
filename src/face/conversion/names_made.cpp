#include "face/conversion/names_made.h"

#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vocabulary.h"

#include <algorithm>

namespace cardwright {

namespace {

void appendJoined(Text& joined, TextView part, TextView separator) {
  if (!part.empty()) {
    joined.append(joined.empty() ? TextView() : separator).append(part);
  }
}

/// A name as it is spoken: prefixes, given names, family names, suffixes.
Text spoken(const VCardNValue& name) {
  Text text;
  for (const auto* slot :
       {&name.prefix(), &name.first(), &name.middle(), &name.last(), &name.suffix()}) {
    for (const Text& part : slot->value_or(TextList())) {
      appendJoined(text, part, u" ");
    }
  }
  return text;
}

Text nameIn(const VCardValue& value) {
  if (const auto* name = dynamic_cast<const VCardNValue*>(&value)) {
    return spoken(*name);
  }
  if (const auto* organisation = dynamic_cast<const VCardOrgValue*>(&value)) {
    Text text;
    for (const Text& part : organisation->parts()) {
      appendJoined(text, part, u", ");
    }
    return text;
  }
  if (const auto* list = dynamic_cast<const VCardMultiValue*>(&value)) {
    const VCardValueList elements = list->values().value_or(VCardValueList());
    return elements.empty() || elements.front() == nullptr ? Text() : wholeText(*elements.front());
  }
  const auto* text = dynamic_cast<const VCardTextValue*>(&value);
  return Text(text != nullptr ? text->text().value_or(TextView()) : TextView());
}

bool has(const Drafts& drafts, TextView name) {
  return std::any_of(drafts.begin(), drafts.end(),
                     [name](const Draft& draft) { return draft.name == name && !draft.isDropped; });
}

void addName(Drafts& drafts, TextView source, bool isFormatted, ConversionRecorder& recorder) {
  for (const Draft& draft : drafts) {
    // What the version has no kind of value for is no name.
    if (draft.name != source || draft.value == nullptr || draft.valuesOf(u"X-VALUE") != nullptr) {
      continue;
    }
    const Text name = nameIn(*draft.value);
    if (name.empty() && isFormatted) {
      continue;
    }
    std::shared_ptr<VCardValue> value = VCardTextValue::valueWithText(name);
    if (!isFormatted) {
      auto parts = std::make_shared<VCardNValue>();
      parts->setLast(TextList{name});
      value = parts;
    }
    Draft added = newDraft(isFormatted ? cVCardProperty_FN : cVCardProperty_N, std::move(value));
    recorder.propertyAdded(added, source);
    drafts.push_back(std::move(added));
    return;
  }
}

} // namespace

void addMissingFormattedName(Drafts& drafts, VersionCode version, ConversionRecorder& recorder) {
  // Version 2.1 asks for N only, which is made of FN in its turn.
  const bool isNeeded = version >= 3 || !has(drafts, cVCardProperty_N);
  for (const TextView source :
       {cVCardProperty_N, cVCardProperty_NICKNAME, cVCardProperty_ORG, cVCardProperty_EMAIL}) {
    if (isNeeded && !has(drafts, cVCardProperty_FN)) {
      addName(drafts, source, true, recorder);
    }
  }
}

void addMissingName(Drafts& drafts, VersionCode version, ConversionRecorder& recorder) {
  if (version <= 3 && !has(drafts, cVCardProperty_N)) {
    addName(drafts, cVCardProperty_FN, false, recorder);
  }
}

} // namespace cardwright
