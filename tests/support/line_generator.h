#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"
#include "cleaner/vocabulary.h"
#include "support/random_source.h"

#include <array>
#include <cstdint>

namespace cardwright {

/// Makes lines as damaged exports hold them, and worse: names of the vocabulary in any case and
/// with letters that fold to ASCII, group labels, parameters, quotes, headers glued together.
class LineGenerator {
 public:
  explicit LineGenerator(std::uint64_t seed) : m_random(seed) {}

  Text line() {
    Text result;
    if (m_random.oneIn(25)) {
      appendNumberedName(result);
    }
    for (std::size_t pieces = m_random.below(12); pieces > 0; --pieces) {
      appendPiece(result);
    }
    return result;
  }

 private:
  void appendPiece(Text& line) {
    switch (m_random.below(24)) {
    case 0:
    case 1:
    case 20:
    case 21:
    case 22:
    case 23:
      appendHeader(line);
      line += u':';
      break;
    case 2:
    case 3:
      appendHeader(line);
      break;
    case 4:
      appendLabel(line);
      break;
    case 5:
      appendName(line);
      break;
    case 6:
      appendParameter(line);
      break;
    case 7:
      line += m_random.oneOf(std::array<TextView, 8>{u"X-", u"VND-", u"x-", u"vnd-", u"X-X-",
                                                     u"VND-X-", u"X-A", u"Vnd-1"});
      break;
    case 8:
    case 9:
      line += u':';
      break;
    case 10:
      line += u';';
      break;
    case 11:
      line += u"\\;";
      break;
    case 12:
      line += u'"';
      break;
    case 13:
      line += m_random.oneOf(std::array<TextView, 8>{u"\r\n", u"\n", u"\r", u"\v", u"\u0085",
                                                     u"\u2028", u" ", u"  \t"});
      break;
    case 14:
    case 15:
      line += anySign();
      break;
    default:
      line += m_random.oneOf(std::array<TextView, 14>{
          u"Jane Doe", u"+15550100", u"x-ray", u"a.b", u"http://x/", u"mailto:a@b.c", u"Town",
          u"&#13;&#10;", u"=C3=A9", u"Müller", u"文字", u"N", u"n=", u"-"});
    }
  }

  void appendHeader(Text& line) {
    if (m_random.oneIn(3)) {
      appendLabel(line);
    }
    appendName(line);
    for (std::size_t count = m_random.below(4); count > 1; --count) {
      appendParameter(line);
    }
  }

  void appendLabel(Text& line) {
    if (m_random.oneIn(3)) {
      line += m_random.oneOf(std::array<TextView, 3>{u"item", u"ITEM", u"Item"});
      appendDigits(line, 1 + m_random.below(5));
    } else {
      for (std::size_t length = 1 + m_random.below(13); length > 0; --length) {
        line += m_random.oneIn(24) ? m_random.oneOf(kLettersThatFold)
                                   : m_random.oneOf(TextView(u"abcXVNDxvndkKsS019-"));
      }
    }
    if (!m_random.oneIn(12)) {
      line += u'.';
    }
  }

  void appendName(Text& line) {
    switch (m_random.below(8)) {
    case 0:
      line += m_random.oneIn(2) ? u'N' : u'n';
      break;
    case 1:
      appendNumberedName(line);
      break;
    case 2: {
      Text name = m_random.oneIn(3) ? u"VND-" : u"X-";
      for (std::size_t length = m_random.below(9); length > 0; --length) {
        name += m_random.oneOf(TextView(u"ABKSVNDX019-"));
      }
      appendInSomeCase(line, name);
      break;
    }
    case 3:
      appendInSomeCase(line, m_random.oneOf(kCanonicalNames.names()));
      break;
    case 4:
    case 5:
      appendInSomeCase(line, m_random.oneOf(kStandardNames));
      break;
    default:
      appendInSomeCase(line, m_random.oneOf(kAllowlistedNames.names()));
    }
  }

  void appendNumberedName(Text& line) {
    Text name = u"VND-";
    appendDigits(name, m_random.below(4));
    appendInSomeCase(line, name + u"-SENSITIVE-CONTENT-CONFIG");
  }

  /// Upper, lower or mixed case, now and then with other letters that fold to the same.
  void appendInSomeCase(Text& line, TextView name) {
    const std::size_t style = m_random.below(3);
    const bool folds = m_random.oneIn(4);
    for (std::size_t at = 0; at < name.size(); ++at) {
      if (folds && m_random.oneIn(2)) {
        const std::size_t taken = appendFoldingLetter(line, name.substr(at));
        if (taken > 0) {
          at += taken - 1;
          continue;
        }
      }
      const bool isLower = style == 1 || (style == 2 && m_random.oneIn(2));
      line += isLower ? asciiLower(name[at]) : name[at];
    }
    if (m_random.oneIn(40)) {
      line.pop_back();
    }
  }

  std::size_t appendFoldingLetter(Text& line, TextView rest) {
    struct Folding {
      TextView letters;
      char16_t folds;
    };
    constexpr std::array<Folding, 12> kFoldings{{{u"FFI", 0xFB03},
                                                 {u"FFL", 0xFB04},
                                                 {u"SS", 0x00DF},
                                                 {u"SS", 0x1E9E},
                                                 {u"ST", 0xFB05},
                                                 {u"ST", 0xFB06},
                                                 {u"FF", 0xFB00},
                                                 {u"FI", 0xFB01},
                                                 {u"FL", 0xFB02},
                                                 {u"S", 0x017F},
                                                 {u"K", 0x212A},
                                                 {u"I", 0x0130}}};
    const std::size_t first = m_random.below(kFoldings.size());
    for (std::size_t i = 0; i < kFoldings.size(); ++i) {
      const Folding& folding = kFoldings[(first + i) % kFoldings.size()];
      if (rest.starts_with(folding.letters)) {
        line += folding.folds;
        return folding.letters.size();
      }
    }
    return 0;
  }

  void appendParameter(Text& line) {
    line += m_random.oneIn(4) ? u"\\;" : u";";
    if (!m_random.oneIn(6)) {
      line += m_random.oneOf(
          std::array<TextView, 7>{u"TYPE", u"ENCODING", u"a", u"X-LABEL", u"", u"\u212AEY", u"é"});
    }
    if (!m_random.oneIn(5)) {
      line += u'=';
    }
    line += m_random.oneOf(std::array<TextView, 12>{
        u"CELL", u"QUOTED-PRINTABLE", u"\"a;b:c\"", u"\"a", u"\"\"", u"a\"b\"c", u"a\\", u"",
        u"a=b", u"\"TEL:\"", u"\"N;X-A:\"", u"\"a\nb\""});
  }

  void appendDigits(Text& line, std::size_t count) {
    for (; count > 0; --count) {
      line += m_random.oneOf(TextView(u"0123456789"));
    }
  }

  char16_t anySign() {
    switch (m_random.below(4)) {
    case 0:
      return m_random.oneOf(TextView(u".,=-/?@#+_ '<>[]{}()*&%$!"));
    case 1:
      return m_random.oneOf(kLettersThatFold);
    case 2: // lone surrogates, or pairs by chance
      return static_cast<char16_t>(0xD800 + m_random.below(0x800));
    default:
      return m_random.oneOf(TextView(u"aZ09\u0000\u001F\u00A0\u00AD\u0301\u200B\u200D\u2029\u3000"
                                     u"\uFEFF\uFF21\u0600\u0663"));
    }
  }

  static constexpr std::array<char16_t, 16> kLettersThatFold{
      0x017F, 0x212A, 0x00DF, 0x1E9E, 0xFB00, 0xFB01, 0xFB02, 0xFB03,
      0xFB04, 0xFB05, 0xFB06, 0x0130, 0x0131, 0x212B, 0x0149, 0x01F0};

  RandomSource m_random;
};

} // namespace cardwright
