#pragma once

#include "cardwright/vcard.h"
#include "support/random_source.h"

#include <array>
#include <memory>

namespace cardwright {

/// Builds a card through the model, where names and values may hold what no text could: pieces that
/// end in U+0000 are group, name, parameter, values of the parameter and value of one property
/// after the other. A value begins with a letter for its kind; "|" separates values and parts.
/// Properties of lists hold lists.
[[nodiscard]] std::shared_ptr<VCard> builtCard(TextView pieces);

/// Makes pieces for cards out of what could become structure where it is written as it stands.
class HostilePieces {
 public:
  explicit HostilePieces(std::uint64_t seed) : m_random(seed) {}

  Text card() {
    Text text;
    for (std::size_t properties = 1 + m_random.below(6); properties > 0; --properties) {
      appendName(text, kGroups, 2);
      appendName(text, kNames, 4);
      appendName(text, kParameters, 3);
      appendMixed(text);
      text.push_back(kKinds[m_random.below(kKinds.size())]);
      appendMixed(text);
    }
    return text;
  }

 private:
  template <std::size_t N>
  void appendName(Text& text, const std::array<TextView, N>& names, std::size_t oneIn) {
    text.append(m_random.oneOf(names));
    if (m_random.oneIn(oneIn)) {
      text.append(m_random.oneOf(kHostile)).append(m_random.oneOf(names));
    }
    text.push_back(u'\0');
  }

  void appendMixed(Text& text) {
    for (std::size_t count = m_random.below(5); count > 0; --count) {
      text.append(m_random.oneOf(kHostile));
      text.append(m_random.oneIn(2) ? TextView(u"a") : TextView());
    }
    text.push_back(u'\0');
  }

  static constexpr TextView kKinds = u"tuxnaogcwzp";
  static constexpr std::array<TextView, 5> kGroups = {u"", u"", u"item1", u"ITEM1", u"g"};
  static constexpr std::array<TextView, 20> kNames = {
      u"FN",       u"N",     u"ADR",       u"ORG", u"TEL",   u"NOTE",   u"PHOTO",
      u"GEO",      u"TZ",    u"BDAY",      u"REV", u"URL",   u"GENDER", u"NICKNAME",
      u"X-CUSTOM", u"BEGIN", u"X-ABLabel", u"END", u"X-FOO", u"KIND"};
  static constexpr std::array<TextView, 8> kParameters = {
      u"TYPE", u"X-A", u"VALUE", u"ENCODING", u"CHARSET", u"PREF", u"", u"LANGUAGE"};
  static constexpr std::array<TextView, 44> kHostile = {u"\r\n",
                                                        u"\r",
                                                        u"\n",
                                                        u"\r\nEND:VCARD\r\n",
                                                        u"\nTEL:1",
                                                        u"\r\n ",
                                                        u":",
                                                        u";",
                                                        u",",
                                                        u"\"",
                                                        u"=",
                                                        u"=\r\n",
                                                        u".",
                                                        u" ",
                                                        u"\t",
                                                        u"\\",
                                                        u"\\n",
                                                        u"^n",
                                                        u"^",
                                                        u"^'",
                                                        u"|",
                                                        u"\u0001",
                                                        u"\u000B",
                                                        u"\u0085",
                                                        u"\u00A0",
                                                        u"\u2028",
                                                        u"\u200B",
                                                        u"\uFEFF",
                                                        u"\xD800",
                                                        u"\xDFFF",
                                                        u"\u0301",
                                                        u"\U0001F600",
                                                        u"VCARD",
                                                        u"pref",
                                                        u"BASE64",
                                                        u"home",
                                                        u"uri",
                                                        u"X-B=c:d",
                                                        u"QUOTED-PRINTABLE",
                                                        u"20240203",
                                                        u"-=+=-",
                                                        u"-=+=",
                                                        u"=41",
                                                        u"/9j/"};

  RandomSource m_random;
};

} // namespace cardwright
