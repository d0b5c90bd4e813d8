#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <ostream>

namespace cardwright {

/// A card whose body is one piece over and over, between a beginning and an end.
struct HostileCard {
  const char* name;
  TextView beginning;
  TextView piece;
  TextView end = u"";
};

inline void PrintTo(const HostileCard& hostile, std::ostream* stream) {
  *stream << hostile.name;
}

inline constexpr TextView kQuotedPrintableNote = u"NOTE;ENCODING=QUOTED-PRINTABLE:";

inline const HostileCard kHostileCards[] = {
    {"extensions", u"", u"X-A;"},
    {"extensions in a value", u"FN:a", u"X-A;"},
    {"extensions with a colon", u"", u"X-A;", u":"},
    {"extensions and blanks", u"FN:a", u"X-A;", u"                                "},
    {"extensions and blanks in turn", u"FN:a", u"X-A; "},
    {"blanks behind an extension", u"FN:aX-A;", u" "},
    {"prefixes", u"FN:a", u"X-"},
    {"prefixes with a colon", u"FN:a", u"X-", u":"},
    {"prefixes in a merged line", u"TEL:1EMAIL:1", u"X-", u":"},
    {"names with parameters", u"", u"N;A=b"},
    {"names with parameters in a value", u"FN:a", u"N;A=b", u":"},
    {"headers without a colon", u"", u"TEL;"},
    {"headers without a colon in a value", u"FN:a", u"TEL;", u":"},
    {"balanced quotes", u"", u"TEL;A=\"b\""},
    {"open quotes", u"", u"TEL;A=\"b", u":"},
    {"quotes and colons", u"TEL:1", u"EMAIL;A=\":\":1"},
    {"entities in a note", u"NOTE:", u"&#13;"},
    {"entities in a member", u"X-ADDRESSBOOKSERVER-MEMBER:a", u"&#13;", u"b"},
    {"entities elsewhere", u"TEL:", u"&#13;"},
    {"labels", u"", u"item1."},
    {"labels in a value", u"FN:a", u"item1.", u"TEL:1"},
    {"labels in a merged line", u"TEL:1EMAIL:1", u"item1.", u"TEL:1"},
    {"prose", u"NOTE:", u"Call me later, or write. The x-ray: it is fine; see N and TEL. "},
    {"soft breaks", kQuotedPrintableNote, u"a=\r\n"},
    {"soft breaks with continuations", kQuotedPrintableNote, u"a=\r\n b=\r\n"},
    {"soft breaks that a mark joins", kQuotedPrintableNote, u"=\r\n\t\u0301:"},
    {"blank continuations of quoted-printable", kQuotedPrintableNote, u"=\r\n "},
    {"blank continuations behind one soft break", u"NOTE;ENCODING=QUOTED-PRINTABLE:=", u"\r\n "},
    {"longer blank continuations", kQuotedPrintableNote, u"\r\n  "},
    {"members", u"", u"X-ADDRESSBOOKSERVER-MEMBER:a\r\n"},
    {"glued properties", u"", u"TEL:1EMAIL:2"},
    {"glued properties behind labels", u"", u"item1.TEL:1item2.X-ABLABEL:2"},
    {"glued unknown properties", u"TEL:1", u"X-FOO:1"},
    {"glued names behind formatted ones", u"FN:a", u"N:b;;;"},
    {"glued properties in a note", u"NOTE:a", u"X-ABLABEL:b"},
    {"fragments", u"FN:a", u"\u00E9X-ABLABEL"},
    {"fragments with parameters", u"FN:a", u".X-ABLABEL;a"},
    {"continuations", u"NOTE:a", u"\r\n b"},
    {"empty lines", u"NOTE:a", u"\r\n"},
    {"empty lines with a blank", u"NOTE:a", u"\r\n\r\n "},
    {"repeats", u"", u"X-CREATED:1\r\n"},
    {"cards", u"", u"END:VCARD\r\nBEGIN:VCARD\r\n"},
    {"CRs", u"NOTE:a", u"\r"},
    {"CRs and a line feed", u"NOTE:a", u"\r", u"\n"},
    {"CRs and line feeds", u"NOTE:a", u"\r\r\n"},
    {"CRs in odd runs", u"NOTE:a", u"\r\r\rb"},
    {"marks", u"TEL:1EMAIL:e", u"\u0301", u"TEL:1"},
    {"flags", u"TEL:1EMAIL:e", u"\U0001F1E9", u"TEL:1"},
    {"colons with marks", u"TEL", u":\u0301", u"EMAIL:1"},
    {"lone surrogates", u"TEL:1EMAIL:1", u"\xD83D"},
};

/// At least so many code units of text, all of them in one card.
inline Text hostileText(const HostileCard& hostile, std::size_t units) {
  Text text = u"BEGIN:VCARD\r\n";
  text.append(hostile.beginning);
  while (text.size() < units) {
    text.append(hostile.piece);
  }
  text.append(hostile.end);
  return text.append(u"\r\nEND:VCARD\r\n");
}

} // namespace cardwright
