#include "values/text_codec.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/charset.h"
#include "base/whitespace.h"
#include "cardwright/vcard_utils.h"
#include "values/escapes.h"
#include "values/quoted_printable.h"

#include <algorithm>

namespace cardwright {

namespace {

/// Whether the text, taken as bytes in the charset, is nothing but itself.
bool isUnchangedByCharset(TextView text, std::optional<TextView> name) {
  const Charset charset = name ? charsetNamed(*name) : Charset::none;
  if (charset != Charset::none) {
    return keepsAscii(charset);
  }
  // Zero bytes would make it look like UTF-16.
  return text.find(u'\0') == TextView::npos;
}

/// Reads the units of an ASCII text as bytes in the charset.
std::optional<CodedText> decodedInCharset(CodedText text, TextView charset) {
  const TextView units = text.view();
  if (!std::all_of(units.begin(), units.end(), isAscii) || isUnchangedByCharset(units, charset)) {
    return text;
  }
  std::optional<Text> decoded =
      VCardUtilities::stringFromData(std::string(units.begin(), units.end()), charset);
  return decoded ? std::optional(CodedText::changed(*std::move(decoded))) : std::nullopt;
}

/// Whether a decoded text has lost the CR of line breaks that its source spelled as CR LF.
bool lacksCarriageReturns(TextView decoded, TextView source) {
  return decoded.find(u'\n') != TextView::npos && decoded.find(u"\r\n") == TextView::npos &&
         findIgnoringCase(source, u"=0d=0a").has_value();
}

Text withCarriageReturns(TextView text) {
  Text result;
  result.reserve(text.size() + text.size() / 16);
  for (const char16_t unit : text) {
    if (unit == u'\n') {
      result.push_back(u'\r');
    }
    result.push_back(unit);
  }
  return result;
}

/// Whether a unit stands for itself in quoted-printable.
bool isPlain(char16_t unit) {
  return isAscii(unit) && unit != u'=' && unit != u'\0';
}

std::optional<CodedText> decodedQuotedPrintable(CodedText text, std::optional<TextView> charset,
                                                TextView source) {
  const TextView units = text.view();
  if (std::all_of(units.begin(), units.end(), isPlain) && isUnchangedByCharset(units, charset)) {
    return text;
  }
  if (const std::optional<std::string> bytes = quotedPrintableBytes(units)) {
    std::optional<Text> decoded = VCardUtilities::stringFromData(*bytes, charset);
    if (!decoded) {
      return std::nullopt;
    }
    text = CodedText::changed(*std::move(decoded));
  }
  if (lacksCarriageReturns(text.view(), source)) {
    return CodedText::changed(withCarriageReturns(text.view()));
  }
  return text;
}

} // namespace

CodedText unescapedText(TextView text) {
  return withoutEscapes(text, u'\\', [](Text& result, char16_t escaped) {
    const char16_t lower = asciiLower(escaped);
    result.push_back(lower == u'n' ? u'\n' : lower == u'r' ? u'\r' : escaped);
  });
}

std::optional<CodedText> decodedText(TextView text, bool quotedPrintable,
                                     std::optional<TextView> charset) {
  CodedText unescaped = unescapedText(text);
  if (quotedPrintable) {
    return decodedQuotedPrintable(std::move(unescaped), charset, text);
  }
  return charset ? decodedInCharset(std::move(unescaped), *charset) : std::move(unescaped);
}

std::optional<Text> VCardUtils::decodeTextValue(std::optional<TextView> text, bool quotedPrintable,
                                                std::optional<TextView> charset) {
  std::optional<CodedText> decoded;
  if (text) {
    decoded = decodedText(*text, quotedPrintable, charset);
  }
  return decoded ? std::optional(std::move(*decoded).text()) : std::nullopt;
}

std::optional<TextList> VCardUtils::decodeTextMultiValue(std::optional<TextView> text,
                                                         bool quotedPrintable,
                                                         std::optional<TextView> charset) {
  if (!text) {
    return std::nullopt;
  }
  std::size_t count = 0;
  forEachListPiece(*text, [&count](TextView /*piece*/) { ++count; });
  TextList list;
  list.reserve(count);
  forEachListPiece(*text, [&](TextView piece) {
    const TextView trimmed = trimWhitespaceAndNewlines(piece);
    // A piece of nothing but blanks keeps them.
    if (auto decoded = decodedText(trimmed.empty() ? piece : trimmed, quotedPrintable, charset)) {
      list.push_back(std::move(*decoded).text());
    }
  });
  return list;
}

std::optional<Text> VCardUtils::normalizedDecodedString(std::optional<TextView> decoded,
                                                        std::optional<TextView> source) {
  if (!decoded) {
    return std::nullopt;
  }
  return source && lacksCarriageReturns(*decoded, *source) ? withCarriageReturns(*decoded)
                                                           : Text(*decoded);
}

void VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(Text& line,
                                                            const CharacterSet& spaceAndTabSet) {
  while (!line.empty() && spaceAndTabSet.contains(line.back())) {
    line.pop_back();
  }
  if (line.ends_with(u'=')) {
    line.pop_back();
  }
}

} // namespace cardwright
