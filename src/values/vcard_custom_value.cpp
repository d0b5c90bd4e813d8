#include "cardwright/vcard_custom_value.h"

#include "cardwright/vcard_utils.h"

namespace cardwright {

namespace {

constexpr TextView kSeparator = u"-=+=-";

} // namespace

bool VCardCustomValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  const Text decoded =
      VCardUtils::decodeTextValue(text, quotedPrintable(), charset()).value_or(Text());
  const TextView pieces = decoded;
  const std::size_t cut = pieces.find(kSeparator);
  if (cut == TextView::npos) {
    m_value.assign(pieces);
    return true;
  }
  const TextView rest = pieces.substr(cut + kSeparator.size());
  m_label.assign(pieces.substr(0, cut));
  m_value.assign(rest.substr(0, rest.find(kSeparator)));
  return true;
}

void VCardCustomValue::generate(Text& output, VersionCode /*version*/,
                                DateFormatter* /*formatter*/) const {
  if (!label()) {
    VCardUtils::writeTextValue(value(), output, true);
    return;
  }
  Text joined(*label());
  joined.append(kSeparator);
  joined.append(value().value_or(TextView()));
  VCardUtils::writeTextValue(joined, output, true);
}

} // namespace cardwright
