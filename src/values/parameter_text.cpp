#include "cardwright/vcard_utils.h"
#include "values/escapes.h"
#include "values/text_codec.h"

namespace cardwright {

CodedText decodedParameterText(TextView text) {
  return withoutEscapes(text, u'^', [](Text& result, char16_t escaped) {
    switch (escaped) {
    case u'\'':
      result.push_back(u'"');
      break;
    case u'^':
      result.push_back(u'^');
      break;
    case u'n':
      result.push_back(u'\n');
      break;
    default:
      result.push_back(u'^');
      result.push_back(escaped);
      break;
    }
  });
}

CodedText encodedParameterText(TextView text) {
  constexpr TextView kSpecial = u"\n\"^";
  std::size_t special = text.find_first_of(kSpecial);
  if (special == TextView::npos) {
    return CodedText::original(text);
  }
  Text result;
  result.reserve(text.size() + text.size() / 8 + 1);
  std::size_t copied = 0;
  while (special != TextView::npos) {
    result.append(text, copied, special - copied);
    const char16_t unit = text[special];
    result.append(unit == u'\n' ? u"^n" : unit == u'"' ? u"^'" : u"^^");
    copied = special + 1;
    special = text.find_first_of(kSpecial, copied);
  }
  result.append(text, copied);
  return CodedText::changed(std::move(result));
}

Text VCardUtils::decodeParameterTextValue(TextView text) {
  return decodedParameterText(text).text();
}

Text VCardUtils::encodeParameterTextValue(TextView text) {
  return encodedParameterText(text).text();
}

} // namespace cardwright
