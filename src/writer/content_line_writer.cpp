#include "base/case.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vocabulary.h"
#include "model/value_types.h"
#include "writer/folding.h"
#include "writer/order.h"

namespace cardwright {

namespace {

bool describesEncoding(TextView parameterKey) {
  return equalIgnoringCase(parameterKey, cVCardParameter_ENCODING) ||
         equalIgnoringCase(parameterKey, cVCardParameter_CHARSET);
}

} // namespace

TextList VCardProperty::parametersInSortOrder() const {
  return keysInWrittenOrder(m_parameters, parameterRank);
}

void VCardProperty::addValueParameterIfNecessaryForVersion(VersionCode version) {
  const TextView defaultType = defaultTypeForVersion(version);
  const std::optional<TextView> type = m_value != nullptr ? m_value->type() : std::nullopt;
  const std::optional<TextView> implied = equivalentType(defaultType);
  const bool isDefault = type && (equalIgnoringCase(*type, defaultType) ||
                                  (implied && equalIgnoringCase(*type, *implied)));
  if (isDefault || defaultType == cVCardValue_DATE_AND_OR_TIME) {
    removeParameterWithName(cVCardParameter_VALUE);
    return;
  }
  const std::optional<TextView> stated = valueOfParameterWithName(cVCardParameter_VALUE);
  if (type && !(stated && equalIgnoringCase(*stated, *type))) {
    addParameter(VCardParameter::parameterWithName(cVCardParameter_VALUE, *type));
  }
}

void VCardProperty::generate(Text& output, VersionCode version, DateFormatter* formatter) const {
  const std::size_t begin = output.size();
  if (group()) {
    output.append(*group());
    output.push_back(u'.');
  }
  output.append(name());

  const std::optional<TextView> encoding =
      m_parameters.empty() ? std::nullopt : valueOfParameterWithKey(cVCardParameter_ENCODING);
  const bool isQuotedPrintable =
      m_value != nullptr && m_value->quotedPrintable() && encoding &&
      equalIgnoringCase(*encoding, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
  const auto write = [&](TextView key, const VCardParameter* parameter) {
    const bool isLeftOut = isQuotedPrintable && describesEncoding(key);
    if (parameter != nullptr && !isLeftOut) {
      output.push_back(u';');
      parameter->generate(output, version, formatter);
    }
  };
  if (m_parameters.size() <= 1) {
    for (const auto& [key, parameter] : m_parameters.entries()) {
      write(key.view(), parameter.get());
    }
  } else {
    const WrittenOrder order(m_parameters, parameterRank);
    for (std::size_t place = 0; place < order.size(); ++place) {
      write(order[place].key, order[place].value->get());
    }
  }
  if (version == 2 && isQuotedPrintable) {
    // The value is written decoded; readers of 2.1 are told in which character set.
    output.append(u";CHARSET=UTF-8");
  }
  output.push_back(u':');
  if (m_value != nullptr) {
    m_value->generate(output, version, formatter);
  }
  foldTail(output, begin);
  if (version == 2 && encoding && equalIgnoringCase(*encoding, cVCardParameter_ENCODING_BASE64)) {
    // An empty line ends inline binary data in 2.1.
    output.append(u"\r\n");
  }
}

} // namespace cardwright
