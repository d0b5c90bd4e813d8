#include "face/writing/safe_values.h"

#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vocabulary.h"
#include "face/writing/kept_source.h"
#include "face/writing/safe_texts.h"

#include <algorithm>
#include <array>
#include <span>

namespace cardwright {

namespace {

constexpr TextView kLabelSeparator = u"-=+=-";
constexpr TextView kAlmostSeparator = u"-=+=";

/// The text without what separates a label from its value.
Text withoutSeparators(const Text& text) {
  Text kept;
  for (const char16_t unit : text) {
    kept.push_back(unit);
    if (kept.ends_with(kLabelSeparator)) {
      kept.erase(kept.size() - kLabelSeparator.size());
    }
  }
  return kept;
}

/// Version 2.1 has another name for URIs.
bool isUri(const VCardTextValue& text) {
  return dynamic_cast<const VCardURIValue*>(&text) != nullptr ||
         equalIgnoringCase(text.type().value_or(TextView()), cVCardValue_URL);
}

class Writing {
 public:
  Writing(SafeValue& result, VersionCode version, Parting parting,
          DateFormatter& formatter) noexcept
      : m_output(result.text),
        m_result(result),
        m_version(version),
        m_parting(parting),
        m_escapesSemicolons(version == 3 || parting.atSemicolons),
        m_formatter(formatter) {}

  /// Writes all but lists, which hold no lists.
  /// @returns whether the text has escapes: dates, offsets and positions have none
  bool writeSingle(const VCardValue& value) {
    const auto* text = dynamic_cast<const VCardTextValue*>(&value);
    if (text != nullptr && isUri(*text)) {
      writeUri(text->text().value_or(TextView()));
    } else if (text != nullptr) {
      const std::size_t begin = m_output.size();
      writeText(text->text().value_or(TextView()), m_escapesSemicolons);
      if (m_parting.trimsParts && !m_isInList) {
        protectBlanks(m_output, begin);
      }
    } else if (const auto* name = dynamic_cast<const VCardNValue*>(&value)) {
      writeSlots(std::array{&name->last(), &name->first(), &name->middle(), &name->prefix(),
                            &name->suffix()});
    } else if (const auto* address = dynamic_cast<const VCardAddressValue*>(&value)) {
      writeSlots(std::array{&address->poBox(), &address->extended(), &address->street(),
                            &address->locality(), &address->region(), &address->postalCode(),
                            &address->country()});
    } else if (const auto* organisation = dynamic_cast<const VCardOrgValue*>(&value)) {
      writeParts(organisation->parts());
    } else if (const auto* gender = dynamic_cast<const VCardGenderValue*>(&value)) {
      writeGender(*gender);
    } else if (const auto* labelled = dynamic_cast<const VCardCustomValue*>(&value)) {
      writeLabelled(*labelled);
    } else if (const auto source = sourceToKeep(value, m_version, m_formatter)) {
      const bool isPosition = dynamic_cast<const VCardGeoValue*>(&value) != nullptr;
      writeSource(*source, isPosition);
      return false;
    } else {
      value.generate(m_output, m_version, &m_formatter);
      return false;
    }
    return true;
  }

  void writeList(const VCardMultiValue& list) {
    bool isFirst = true;
    for (const auto& element : list.values().value_or(VCardValueList())) {
      if (!isFirst) {
        m_output.push_back(u',');
      }
      isFirst = false;
      const std::size_t begin = m_output.size();
      const bool isList = dynamic_cast<const VCardMultiValue*>(element.get()) != nullptr;
      m_isInList = true;
      if (element != nullptr && !isList && writeSingle(*element)) {
        protectBlanks(m_output, begin);
      }
    }
  }

 private:
  Text cleaned(TextView text) {
    m_result.isCleaned = m_result.isCleaned || losesCharacters(text);
    return valueText(text);
  }

  void writeText(TextView text, bool escapeSemicolons) {
    appendEscaped(m_output, cleaned(text), escapeSemicolons);
  }

  /// Nothing but a backslash would be read otherwise than it stands there.
  void writeUri(TextView text) {
    const Text uri = cleaned(text);
    if (!m_isInList && !m_parting.atSemicolons && uri.find_first_of(u"\\\n") == Text::npos) {
      m_output.append(uri);
    } else {
      appendEscaped(m_output, uri, m_escapesSemicolons);
    }
  }

  void writeSlots(std::span<const std::optional<TextList>* const> slots) {
    bool isFirst = true;
    for (const auto* slot : slots) {
      if (!isFirst) {
        m_output.push_back(u';');
      }
      isFirst = false;
      bool isFirstText = true;
      for (const Text& text : slot->value_or(TextList())) {
        if (!isFirstText) {
          m_output.push_back(u',');
        }
        isFirstText = false;
        const std::size_t begin = m_output.size();
        writeText(text, true);
        protectBlanks(m_output, begin);
      }
    }
  }

  void writeParts(const TextList& parts) {
    bool isFirst = true;
    for (const Text& part : parts) {
      if (!isFirst) {
        m_output.push_back(u';');
      }
      isFirst = false;
      writeText(part, true);
    }
  }

  /// A semicolon in the sex would begin the identity, escaped or not.
  void writeGender(const VCardGenderValue& gender) {
    Text sex = cleaned(gender.sex().value_or(TextView()));
    m_result.isCleaned = std::erase(sex, u';') > 0 || m_result.isCleaned;
    appendEscaped(m_output, sex, true);
    if (gender.identity()) {
      m_output.push_back(u';');
      writeText(*gender.identity(), true);
    }
  }

  void writeLabelled(const VCardCustomValue& labelled) {
    if (labelled.label()) {
      Text label = unseparated(*labelled.label());
      if (label.ends_with(kAlmostSeparator)) {
        label.pop_back(); // The separator itself would complete it.
        m_result.isCleaned = true;
      }
      appendEscaped(m_output, label.append(kLabelSeparator), true);
    }
    appendEscaped(m_output, unseparated(labelled.value().value_or(TextView())), true);
  }

  Text unseparated(TextView text) {
    const Text whole = cleaned(text);
    Text kept = withoutSeparators(whole);
    m_result.isCleaned = m_result.isCleaned || kept.size() != whole.size();
    return kept;
  }

  /// Such a text has no escapes: what would tear the line is replaced by what means as little.
  /// Numbers may have line breaks before them.
  void writeSource(TextView source, bool isPosition) {
    const std::size_t begin = m_output.size();
    for (const char16_t unit : source) {
      const bool isLost = unit < 0x20 && unit != u'\t';
      m_result.isCleaned = m_result.isCleaned || isLost;
      const char16_t replacement = isPosition && isWhitespaceOrNewline(unit) ? u' ' : u'?';
      const char16_t written = isLost ? replacement : unit;
      if (m_output.size() > begin || !isWhitespace(written)) {
        m_output.push_back(written);
      }
    }
  }

  Text& m_output;
  SafeValue& m_result;
  VersionCode m_version;
  Parting m_parting;
  bool m_escapesSemicolons;
  DateFormatter& m_formatter;
  bool m_isInList = false;
};

} // namespace

SafeValue safeValue(const VCardValue& value, VersionCode version, Parting parting,
                    DateFormatter& formatter) {
  SafeValue result;
  Writing writing(result, version, parting, formatter);
  if (const auto* list = dynamic_cast<const VCardMultiValue*>(&value)) {
    writing.writeList(*list);
  } else {
    writing.writeSingle(value);
  }
  if (!result.text.empty() && isWhitespace(result.text.front())) {
    result.text.insert(0, 1, u'\\');
  }
  return result;
}

} // namespace cardwright
