#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_utils.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace cardwright {

/// What the line scanner asks about the text in front of it, in its plainest form and for ASCII.
class ReferenceLookAhead {
 public:
  static bool isAddressBookServerLine(const Text& line) {
    const Text whole = stripped(line, u" \t\n\v\f\r");
    const std::size_t colon = whole.find(u':');
    if (colon == Text::npos) {
      return false;
    }
    Text name = whole.substr(0, colon);
    while (name.find(u'.') != Text::npos) {
      name.erase(0, name.find(u'.') + 1);
    }
    return upper(name).starts_with(kPrefix);
  }

  /// Where an address-book-server property begins; absent when there is none.
  static std::optional<std::size_t> addressBookServerProperty(const Text& text, std::size_t at) {
    Text rest = text.substr(std::min(at, text.size()));
    while (rest.starts_with(u' ') || rest.starts_with(u'\t')) {
      rest.erase(0, 1);
    }
    const std::size_t start = text.size() - rest.size();
    std::size_t run = 0;
    while (run < rest.size() && isNameSign(rest[run])) {
      ++run;
    }
    if (run > 0 && run + 1 < rest.size() && rest[run] == u'.') {
      rest.erase(0, run + 1);
    }
    const bool isOne =
        upper(rest).starts_with(kPrefix) && rest.substr(0, 128).find(u':') != Text::npos;
    return isOne ? std::optional(start) : std::nullopt;
  }

  static bool isBoundary(const Text& text, std::size_t at) {
    const Text line = upper(stripped(lineAt(text, at), u" \t"));
    return line.empty() || line == u"BEGIN:VCARD" || line == u"END:VCARD";
  }

  static bool isRecoverableProperty(const Text& text, std::size_t at) {
    const Text line = lineAt(text, at);
    const std::size_t colon = line.find(u':');
    if (colon == Text::npos) {
      return false;
    }
    Text name = line.substr(0, colon);
    name = name.substr(0, name.find(u';'));
    while (name.find(u'.') != Text::npos) {
      name.erase(0, name.find(u'.') + 1);
    }
    name = upper(stripped(name, u" \t"));
    const auto names = VCardUtils::recoverableStandalonePropertyNames();
    return std::find(names.begin(), names.end(), name) != names.end();
  }

 private:
  static constexpr TextView kPrefix = u"X-ADDRESSBOOKSERVER-";

  static bool isNameSign(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'-';
  }

  static Text upper(Text text) {
    for (char16_t& unit : text) {
      unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    return text;
  }

  static Text stripped(Text text, TextView of) {
    while (!text.empty() && of.find(text.front()) != TextView::npos) {
      text.erase(0, 1);
    }
    while (!text.empty() && of.find(text.back()) != TextView::npos) {
      text.pop_back();
    }
    return text;
  }

  /// The rest of the line, without the blanks it begins with.
  static Text lineAt(const Text& text, std::size_t at) {
    Text line = text.substr(std::min(at, text.size()));
    while (line.starts_with(u' ') || line.starts_with(u'\t')) {
      line.erase(0, 1);
    }
    return line.substr(0, line.find_first_of(u"\r\n"));
  }
};

} // namespace cardwright
