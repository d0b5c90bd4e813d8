#include "view/person_names.h"

#include "text/display_width.h"
#include "text/words.h"

#include <algorithm>
#include <cstddef>

namespace cardwright::tool {

namespace {

Text slotText(const VCardNValue::Slot& slot) {
  return slot ? joined(*slot, u" ") : Text();
}

bool holdsWords(TextView text, TextView words) {
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(u' '), words.size());
    if (text.find(words.substr(0, end)) == TextView::npos) {
      return false;
    }
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  return true;
}

} // namespace

Text personName(const VCardNValue& name) {
  const Text last = slotText(name.last());
  const Text first = slotText(name.first());
  const Text middle = slotText(name.middle());

  Text text = slotText(name.prefix());
  if (const Text whole = concat({last, first, middle}); isWideThroughout(whole)) {
    appendJoined(text, u" ", whole);
  } else {
    appendJoined(text, u" ", first);
    appendJoined(text, u" ", middle);
    appendJoined(text, u" ", last);
  }
  appendJoined(text, u", ", name.suffix() ? joined(*name.suffix(), u", ") : Text());
  return text;
}

bool isSaidBy(const VCardNValue& name, TextView text) {
  constexpr std::size_t kLongest = 1000;
  if (text.size() > kLongest) {
    return false;
  }
  for (const VCardNValue::Slot* const slot :
       {&name.last(), &name.first(), &name.middle(), &name.prefix(), &name.suffix()}) {
    if (!holdsWords(text, slotText(*slot))) {
      return false;
    }
  }
  return true;
}

} // namespace cardwright::tool
