#pragma once

#include "cardwright/text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// The text codec in its plainest form, for ASCII texts. Of character sets it knows those that
/// the tests name.
class ReferenceCodec {
 public:
  using Charset = std::optional<TextView>;

  static Text unescaped(Text text) {
    Text result;
    while (!text.empty()) {
      if (text[0] != u'\\') {
        result += text[0];
        text.erase(0, 1);
        continue;
      }
      if (text.starts_with(u"\\n") || text.starts_with(u"\\N")) {
        result += u'\n';
      } else if (text.starts_with(u"\\r") || text.starts_with(u"\\R")) {
        result += u'\r';
      } else {
        result += text.substr(1, 1);
      }
      text.erase(0, 2);
    }
    return result;
  }

  static std::string bytes(const Text& text) { return {text.begin(), text.end()}; }

  static std::string quotedPrintableBytes(const Text& text) {
    std::string rest = bytes(text);
    std::string result;
    while (!rest.empty()) {
      if (rest[0] != '=') {
        result += rest[0];
        rest.erase(0, 1);
      } else if (rest.starts_with("=\n")) {
        rest.erase(0, 2);
      } else if (rest.starts_with("=\r")) {
        rest.erase(0, 3);
      } else if (rest.size() <= 2) {
        rest.clear();
      } else if (digit(rest[1]) < 16 && digit(rest[2]) < 16) {
        result += static_cast<char>(digit(rest[1]) * 16 + digit(rest[2]));
        rest.erase(0, 3);
      } else {
        rest.erase(0, 1);
      }
    }
    return result.substr(0, result.find('\0'));
  }

  /// For bytes without those that only byte-order marks and surrogates have.
  static Text fromData(const std::string& bytes, Charset charset) {
    if (charset == u"ISO-8859-1") {
      return singleBytes(bytes);
    }
    if ((charset == u"utf-16le" || charset == u"utf-16be") && bytes.size() % 2 == 0) {
      return pairs(bytes, charset == u"utf-16be");
    }
    const bool isKnown = charset == u"utf-8" || charset == u"utf-16le" || charset == u"utf-16be";
    if (isKnown || isAscii(bytes)) {
      // No sequence of UTF-8 can be whole: its bytes are dropped one by one.
      std::string repaired = bytes;
      std::erase_if(repaired, isHigh);
      return singleBytes(repaired);
    }
    // Not UTF-8: UTF-16, which begins with the high byte where no mark says otherwise, or else
    // windows-1252, which from A0 on is Latin-1.
    return bytes.size() % 2 == 0 ? pairs(bytes, true) : singleBytes(bytes);
  }

  static Text normalized(const Text& decoded, const Text& source) {
    Text upper;
    for (const char16_t unit : source) {
      upper += unit == u'd' ? u'D' : unit == u'a' ? u'A' : unit;
    }
    if (upper.find(u"=0D=0A") == Text::npos || decoded.find(u"\r\n") != Text::npos) {
      return decoded;
    }
    Text result;
    for (const char16_t unit : decoded) {
      if (unit == u'\n') {
        result += u'\r';
      }
      result += unit;
    }
    return result;
  }

  static Text fromQuotedPrintable(const Text& text, Charset charset) {
    return fromData(quotedPrintableBytes(text), charset);
  }

  static Text value(const Text& text, bool quotedPrintable, Charset charset) {
    const Text plain = unescaped(text);
    if (quotedPrintable) {
      return normalized(fromQuotedPrintable(plain, charset), text);
    }
    return charset ? fromData(bytes(plain), charset) : plain;
  }

  /// The pieces between delimiters that no backslash stands before; a backslash that another one
  /// stands before does not count.
  static TextList pieces(const Text& text, char16_t delimiter) {
    TextList list(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == delimiter) {
        list.emplace_back();
      } else if (text[i] == u'\\') {
        list.back() += text.substr(i, 2);
        ++i;
      } else {
        list.back() += text[i];
      }
    }
    return list;
  }

  static TextList multiValue(const Text& text, bool quotedPrintable, Charset charset) {
    TextList list;
    for (const Text& piece : pieces(text, u',')) {
      Text trimmed = piece;
      while (!trimmed.empty() && isBlank(trimmed.front())) {
        trimmed.erase(0, 1);
      }
      while (!trimmed.empty() && isBlank(trimmed.back())) {
        trimmed.pop_back();
      }
      list.push_back(value(trimmed.empty() ? piece : trimmed, quotedPrintable, charset));
    }
    return list;
  }

  static Text written(const Text& text, bool escapeSemicolons) {
    Text result;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text.substr(i, 2) == u"\r\n") {
        continue;
      }
      switch (text[i]) {
      case u'\r':
      case u'\n':
        result += u"\\n";
        break;
      case u'\\':
        result += u"\\\\";
        break;
      case u',':
        result += u"\\,";
        break;
      case u';':
        result += escapeSemicolons ? u"\\;" : u";";
        break;
      default:
        result += text[i];
      }
    }
    return result;
  }

  static Text writtenParameter(const Text& text) {
    Text result;
    for (const char16_t unit : text) {
      if (unit == u'\n') {
        result += u"^n";
      } else if (unit == u'"') {
        result += u"^'";
      } else if (unit == u'^') {
        result += u"^^";
      } else {
        result += unit;
      }
    }
    return result;
  }

  static Text withoutSoftBreak(Text line) {
    while (!line.empty() && (line.back() == u' ' || line.back() == u'\t')) {
      line.pop_back();
    }
    if (!line.empty() && line.back() == u'=') {
      line.pop_back();
    }
    return line;
  }

 private:
  static unsigned digit(char unit) {
    const auto code = static_cast<unsigned>(static_cast<unsigned char>(unit));
    return code - 48 < 10 ? code - 48 : code - 55;
  }

  static bool isHigh(char byte) { return static_cast<unsigned char>(byte) > 0x7F; }
  static bool isAscii(const std::string& bytes) {
    return std::none_of(bytes.begin(), bytes.end(), isHigh);
  }
  static bool isBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

  static Text singleBytes(const std::string& bytes) {
    Text text;
    for (const char byte : bytes) {
      text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    }
    return text;
  }

  static Text pairs(const std::string& bytes, bool beginsHigh) {
    const Text units = singleBytes(bytes);
    Text text;
    for (std::size_t i = 0; i < units.size(); i += 2) {
      const unsigned high = units[beginsHigh ? i : i + 1];
      const unsigned low = units[beginsHigh ? i + 1 : i];
      text += static_cast<char16_t>(high * 256 + low);
    }
    return text;
  }
};

} // namespace cardwright
