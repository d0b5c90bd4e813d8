#include "base/charset.h"

#include "base/ascii.h"
#include "base/ascii_lanes.h"
#include "base/case.h"
#include "base/icu_decoder.h"
#include "base/name_table.h"
#include "base/of_thread.h"
#include "base/utf8_decoder.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace cardwright {

namespace {

/// The GB 2312 names stand for its superset GB 18030, since writers label both that way.
constexpr NameTable kNames({
    NameRow<Charset>{u"ascii", Charset::ascii},
    {u"big5", Charset::big5},
    {u"euc-cn", Charset::eucCn},
    {u"euc-jp", Charset::eucJp},
    {u"euc-kr", Charset::eucKr},
    {u"euc-tw", Charset::eucTw},
    {u"gb-2312", Charset::gb18030},
    {u"gb2312", Charset::gb18030},
    {u"hz-gb-2312", Charset::hz},
    {u"iso-2022-cn", Charset::iso2022cn},
    {u"iso-2022-jp", Charset::iso2022jp},
    {u"iso-2022-kr", Charset::iso2022kr},
    {u"iso-8859-1", Charset::iso8859_1},
    {u"iso-8859-10", Charset::iso8859_10},
    {u"iso-8859-11", Charset::iso8859_11},
    {u"iso-8859-13", Charset::iso8859_13},
    {u"iso-8859-14", Charset::iso8859_14},
    {u"iso-8859-15", Charset::iso8859_15},
    {u"iso-8859-2", Charset::iso8859_2},
    {u"iso-8859-3", Charset::iso8859_3},
    {u"iso-8859-4", Charset::iso8859_4},
    {u"iso-8859-5", Charset::iso8859_5},
    {u"iso-8859-6", Charset::iso8859_6},
    {u"iso-8859-7", Charset::iso8859_7},
    {u"iso-8859-8", Charset::iso8859_8},
    {u"iso-8859-9", Charset::iso8859_9},
    {u"iso8859_1", Charset::iso8859_1},
    {u"koi8-r", Charset::koi8r},
    {u"koi8-u", Charset::koi8u},
    {u"ks_c_5601-1987", Charset::eucKr},
    {u"shift_jis", Charset::shiftJis},
    {u"us-ascii", Charset::ascii},
    {u"utf-16", Charset::utf16},
    {u"utf-16be", Charset::utf16be},
    {u"utf-16le", Charset::utf16le},
    {u"utf-8", Charset::utf8},
    {u"windows-1250", Charset::windows1250},
    {u"windows-1251", Charset::windows1251},
    {u"windows-1252", Charset::windows1252},
    {u"windows-1253", Charset::windows1253},
    {u"windows-1254", Charset::windows1254},
    {u"windows-1255", Charset::windows1255},
    {u"windows-1256", Charset::windows1256},
    {u"windows-1257", Charset::windows1257},
    {u"windows-1258", Charset::windows1258},
});

struct Encoding {
  const char* icuName;
  Charset charset;
  bool keepsAscii;
};

/// In the order of the enumeration. Shift_JIS is ASCII but for three control characters, which ICU
/// moves about as IBM does.
constexpr Encoding kEncodings[] = {
    {"", Charset::none, false},
    {"US-ASCII", Charset::ascii, true},
    {"UTF-8", Charset::utf8, true},
    {"UTF-16", Charset::utf16, false},
    {"UTF-16LE", Charset::utf16le, false},
    {"UTF-16BE", Charset::utf16be, false},
    {"ISO-8859-1", Charset::iso8859_1, true},
    {"ISO-8859-2", Charset::iso8859_2, true},
    {"ISO-8859-3", Charset::iso8859_3, true},
    {"ISO-8859-4", Charset::iso8859_4, true},
    {"ISO-8859-5", Charset::iso8859_5, true},
    {"ISO-8859-6", Charset::iso8859_6, true},
    {"ISO-8859-7", Charset::iso8859_7, true},
    {"ISO-8859-8", Charset::iso8859_8, true},
    {"ISO-8859-9", Charset::iso8859_9, true},
    {"ISO-8859-10", Charset::iso8859_10, true},
    {"ISO-8859-11", Charset::iso8859_11, true},
    {"ISO-8859-13", Charset::iso8859_13, true},
    {"ISO-8859-14", Charset::iso8859_14, true},
    {"ISO-8859-15", Charset::iso8859_15, true},
    {"windows-1250", Charset::windows1250, true},
    {"windows-1251", Charset::windows1251, true},
    {"windows-1252", Charset::windows1252, true},
    {"windows-1253", Charset::windows1253, true},
    {"windows-1254", Charset::windows1254, true},
    {"windows-1255", Charset::windows1255, true},
    {"windows-1256", Charset::windows1256, true},
    {"windows-1257", Charset::windows1257, true},
    {"windows-1258", Charset::windows1258, true},
    {"KOI8-R", Charset::koi8r, true},
    {"KOI8-U", Charset::koi8u, true},
    {"Shift_JIS", Charset::shiftJis, false},
    {"EUC-JP", Charset::eucJp, true},
    {"ISO-2022-JP", Charset::iso2022jp, false},
    {"EUC-KR", Charset::eucKr, true},
    {"ISO-2022-KR", Charset::iso2022kr, false},
    {"GB18030", Charset::gb18030, true},
    {"EUC-CN", Charset::eucCn, true},
    {"HZ-GB-2312", Charset::hz, false},
    {"ISO-2022-CN", Charset::iso2022cn, false},
    {"Big5", Charset::big5, true},
    {"EUC-TW", Charset::eucTw, true},
};
constexpr std::size_t kEncodingCount = std::size(kEncodings);

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kEncodingCount; ++i) {
    if (static_cast<std::size_t>(kEncodings[i].charset) != i) {
      return false;
    }
  }
  return static_cast<std::size_t>(Charset::eucTw) + 1 == kEncodingCount;
}
static_assert(isInOrder());

const Encoding& encodingOf(Charset charset) noexcept {
  return kEncodings[static_cast<std::size_t>(charset)];
}

/// The calling thread's converter of a charset, opened when it is first asked for.
IcuDecoder& decoderOf(Charset charset) {
  using Decoders = std::array<std::optional<IcuDecoder>, kEncodingCount>;
  std::optional<IcuDecoder>& decoder = ofThread<Decoders>()[static_cast<std::size_t>(charset)];
  if (!decoder) {
    decoder.emplace(icuName(charset));
  }
  return *decoder;
}

/// Whether HZ text ends where a character ends, which ICU does not look at. The line continuation
/// "~" LF means nothing then, and something or an error otherwise.
bool isWholeHz(IcuDecoder& decoder, std::string_view bytes, const std::optional<Text>& text) {
  return decoder.decode(std::string(bytes).append("~\n")) == text;
}

} // namespace

Charset charsetNamed(TextView name) {
  constexpr std::size_t kLongest = 64;
  if (name.size() > kLongest) {
    return Charset::none; // Every piece of a list asks again.
  }
  const bool isAsciiName = std::all_of(name.begin(), name.end(), isAscii);
  const auto* const row =
      isAsciiName ? kNames.findIgnoringCase(name) : kNames.find(lowerCased(name));
  return row != nullptr ? row->value : Charset::none;
}

const char* icuName(Charset charset) noexcept {
  return encodingOf(charset).icuName;
}

bool keepsAscii(Charset charset) noexcept {
  return encodingOf(charset).keepsAscii;
}

std::optional<Text> textFromBytes(std::string_view bytes, Charset charset) {
  if (charset == Charset::utf8) {
    return textFromSoundUtf8(bytes);
  }
  if (keepsAscii(charset)) {
    Text text(bytes.size(), u'\0');
    if (widenAscii(bytes.data(), bytes.size(), text.data()) == bytes.size()) {
      return text;
    }
  }
  IcuDecoder& decoder = decoderOf(charset);
  if (!decoder.isOpen()) {
    return std::nullopt;
  }
  std::optional<Text> text = decoder.decode(bytes);
  if (charset == Charset::hz && !isWholeHz(decoder, bytes, text)) {
    text.reset();
  }
  return text;
}

} // namespace cardwright
