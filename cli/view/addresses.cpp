#include "view/addresses.h"

#include "text/display_width.h"
#include "text/words.h"

namespace cardwright::tool {

namespace {

constexpr TextView kNextLine = u"\n";

Text slotText(const VCardAddressValue::Slot& slot) {
  return slot ? joined(*slot, u", ") : Text();
}

/// "1010 Vienna" where a number stands alone, "Springfield, IL 62701" otherwise.
Text townLine(const Text& town, const Text& region, const Text& postalCode) {
  const bool beginsWithDigit =
      !postalCode.empty() && postalCode.front() >= u'0' && postalCode.front() <= u'9';
  Text line;
  if (region.empty() && beginsWithDigit) {
    line = postalCode;
    appendJoined(line, u" ", town);
    return line;
  }
  line = town;
  appendJoined(line, u", ", region);
  appendJoined(line, u" ", postalCode);
  return line;
}

/// Town and street may hold digits and dashes; their first characters tell the script.
bool isEastAsian(const Text& town, const Text& street) {
  return isWideThroughout(TextView(town).substr(0, 1)) &&
         (street.empty() || isWideThroughout(TextView(street).substr(0, 1)));
}

} // namespace

Text addressText(const VCardAddressValue& address) {
  const Text town = slotText(address.locality());
  const Text region = slotText(address.region());
  const Text street = slotText(address.street());
  const Text postalCode = slotText(address.postalCode());

  Text text;
  if (isEastAsian(town, street)) {
    text = slotText(address.country());
    Text place = region;
    appendJoined(place, u" ", town);
    appendJoined(place, u" ", street);
    appendJoined(text, kNextLine, postalCode);
    appendJoined(text, kNextLine, place);
    appendJoined(text, kNextLine, slotText(address.extended()));
    appendJoined(text, kNextLine, slotText(address.poBox()));
    return text;
  }
  text = slotText(address.poBox());
  appendJoined(text, kNextLine, slotText(address.extended()));
  appendJoined(text, kNextLine, street);
  appendJoined(text, kNextLine, townLine(town, region, postalCode));
  appendJoined(text, kNextLine, slotText(address.country()));
  return text;
}

} // namespace cardwright::tool
