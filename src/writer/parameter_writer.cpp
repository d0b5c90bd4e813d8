#include "base/case.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vocabulary.h"
#include "values/text_codec.h"

#include <algorithm>

namespace cardwright {

namespace {

/// Whether values of the parameter are written in upper case.
bool isOfFixedWords(TextView name) {
  return equalIgnoringCase(name, cVCardParameter_ENCODING) ||
         equalIgnoringCase(name, cVCardParameter_VALUE);
}

/// Whether a value is written as it stands but for its case, without quotes.
bool isWord(TextView value) noexcept {
  return std::all_of(value.begin(), value.end(), isAsciiNameUnit);
}

void appendValue(Text& output, TextView value, bool isUpperCased) {
  const bool changesCase = isUpperCased && value != cVCardParameter_TYPE_PREF;
  if (isWord(value)) {
    const std::size_t begin = output.size();
    output.append(value);
    if (changesCase) {
      std::transform(output.begin() + static_cast<std::ptrdiff_t>(begin), output.end(),
                     output.begin() + static_cast<std::ptrdiff_t>(begin), asciiUpper);
    }
    return;
  }
  const Text plain = changesCase ? upperCased(value) : Text(value);
  const CodedText coded = encodedParameterText(plain);
  const TextView encoded = coded.view();
  const bool needsQuotes = encoded.find_first_of(u":;,") != TextView::npos;
  if (needsQuotes) {
    output.push_back(u'"');
  }
  output.append(encoded);
  if (needsQuotes) {
    output.push_back(u'"');
  }
}

} // namespace

void VCardParameter::generate(Text& output, VersionCode version,
                              DateFormatter* /*formatter*/) const {
  const bool isType = equalIgnoringCase(name(), cVCardParameter_TYPE);
  const bool isUpperCased = isType || isOfFixedWords(name());
  const bool isBare = isType && version == 2;
  for (std::size_t i = 0; i < m_values.size(); ++i) {
    if (i != 0) {
      output.push_back(u';');
    }
    if (!isBare) {
      output.append(name());
      output.push_back(u'=');
    }
    appendValue(output, m_values[i].view(), isUpperCased);
  }
}

} // namespace cardwright
