#pragma once

#include "support/address_book.h"

#include <cstddef>
#include <string>

namespace cardwright {

/// Sound cards, and one that needs most repairs; another text for each number.
inline std::string tornCards(std::size_t number) {
  const std::string label = std::to_string(number);
  return "BEGIN:VCARD\r\nVERSION:2.1\r\n"
         "N;CHARSET=windows-1252;ENCODING=QUOTED-PRINTABLE:M=FCller" +
         label +
         "=\r\n;A\r\n"
         "item1.TEL;TYPE=home:+" +
         label +
         "EMAIL:a@example.com\r\n"
         "NOTE:a&#13;&#10;b\\, \xC3\xA9 " +
         label + "\r\nBDAY;VALUE=date:1985-04-12\r\nREV:2001-02-03T04:05:06+0100\r\nUID:" + label +
         "\r\nX-CREATED:2001-02-03\r\nX-CREATED:2001-02-04\r\nKIND:group\r\n"
         "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1&#13;&#10;urn:uuid:2\r\n"
         "TZ:+0230\r\nGEO:1.5;2.5\r\nCATEGORIES:a,b\\,c\r\nURL:htt\r\n p://example.com\r\n"
         "END:VCARD\r\n" +
         addressBook({.cards = 6, .seed = number + 1});
}

} // namespace cardwright
