#include "base/case.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_utils.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

void VCardParameter::generate(Text& output, VersionCode version,
                              DateFormatter* /*formatter*/) const {
  const bool isType = equalIgnoringCase(name(), cVCardParameter_TYPE);
  const bool isUpperCased = isType || equalIgnoringCase(name(), cVCardParameter_ENCODING) ||
                            equalIgnoringCase(name(), cVCardParameter_VALUE);
  const bool isBare = isType && version == 2;
  bool isFirst = true;
  for (std::size_t i = 0; i < m_values.size(); ++i) {
    if (!isFirst) {
      output.push_back(u';');
    }
    isFirst = false;
    if (!isBare) {
      output.append(name());
      output.push_back(u'=');
    }
    const TextView plain = m_values[i].view();
    const bool keepsCase = !isUpperCased || plain == cVCardParameter_TYPE_PREF;
    const Text encoded =
        VCardUtils::encodeParameterTextValue(keepsCase ? Text(plain) : upperCased(plain));
    const bool needsQuotes = encoded.find_first_of(u":;,") != Text::npos;
    if (needsQuotes) {
      output.push_back(u'"');
    }
    output.append(encoded);
    if (needsQuotes) {
      output.push_back(u'"');
    }
  }
}

} // namespace cardwright
