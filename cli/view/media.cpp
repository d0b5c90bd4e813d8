#include "view/media.h"

#include "text/words.h"

#include <cardwright/vocabulary.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cardwright::tool {

namespace {

using namespace std::string_view_literals;

/// How many bytes tell what a file is.
constexpr std::size_t kHeadSize = 16;

/// Longer texts without a blank are data when they could be base64.
constexpr std::size_t kLongestWord = 300;

/// What base64 text stands for.
struct Decoded {
  std::size_t size = 0;
  std::string head;     ///< the first bytes
  bool isSound = false; ///< holds nothing but base64 and white space
};

constexpr int base64Digit(char16_t unit) {
  if (unit >= u'A' && unit <= u'Z') {
    return unit - u'A';
  }
  if (unit >= u'a' && unit <= u'z') {
    return unit - u'a' + 26;
  }
  if (unit >= u'0' && unit <= u'9') {
    return unit - u'0' + 52;
  }
  // The second pair is that of "base64url".
  return unit == u'+' || unit == u'-' ? 62 : unit == u'/' || unit == u'_' ? 63 : -1;
}

constexpr bool isBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

Decoded decodeBase64(TextView text) {
  Decoded decoded{0, {}, true};
  std::size_t digits = 0;
  std::uint32_t bits = 0;
  for (const char16_t unit : text) {
    const int digit = base64Digit(unit);
    if (digit < 0) {
      decoded.isSound = decoded.isSound && (unit == u'=' || isBlank(unit));
      continue;
    }
    bits = (bits << 6U) | static_cast<std::uint32_t>(digit);
    if (++digits % 4 != 1 && decoded.head.size() < kHeadSize) {
      const unsigned shift = 6U - 2U * ((digits - 1) % 4);
      decoded.head.push_back(static_cast<char>((bits >> shift) & 0xFFU));
    }
  }
  decoded.size = digits / 4 * 3 + (digits % 4) * 3 / 4;
  return decoded;
}

struct Signature {
  std::size_t offset;
  std::string_view bytes;
  TextView format;
};

constexpr std::array kSignatures{
    Signature{0, "\xFF\xD8\xFF"sv, u"JPEG"},
    Signature{0, "\x89PNG"sv, u"PNG"},
    Signature{0, "GIF8"sv, u"GIF"},
    Signature{8, "WEBP"sv, u"WebP"},
    Signature{8, "WAVE"sv, u"WAV"},
    Signature{8, "AIFF"sv, u"AIFF"},
    Signature{4, "ftypavif"sv, u"AVIF"},
    Signature{4, "ftyphei"sv, u"HEIC"},
    Signature{4, "ftypmif1"sv, u"HEIC"},
    Signature{4, "ftypM4A"sv, u"M4A"},
    Signature{0, "BM"sv, u"BMP"},
    Signature{0, "II*\0"sv, u"TIFF"},
    Signature{0, "MM\0*"sv, u"TIFF"},
    Signature{0, "%PDF"sv, u"PDF"},
    Signature{0, "<svg"sv, u"SVG"},
    Signature{0, "OggS"sv, u"Ogg"},
    Signature{0, "ID3"sv, u"MP3"},
    Signature{0, ".snd"sv, u"AU"},
    Signature{0, "MThd"sv, u"MIDI"},
};

/// What the bytes say they are, or else what the property says.
Text formatOf(std::string_view head, TextView mediaType) {
  for (const Signature& signature : kSignatures) {
    if (head.size() > signature.offset &&
        head.substr(signature.offset).starts_with(signature.bytes)) {
      return Text(signature.format);
    }
  }
  const std::size_t slash = mediaType.find(u'/');
  if (slash != TextView::npos) {
    mediaType.remove_prefix(slash + 1);
  }
  Text format(mediaType.substr(0, mediaType.find(u';')));
  std::transform(format.begin(), format.end(), format.begin(), [](char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
  });
  return format;
}

/// "0.4 KB", "12 KB", "3 MB"
Text sizeText(std::size_t bytes) {
  constexpr std::size_t kStep = 1024;
  constexpr std::size_t kTenth = 10;
  constexpr std::array<TextView, 3> kUnits{u" KB", u" MB", u" GB"};
  std::size_t unit = 0;
  std::size_t divisor = kStep;
  // A thousand of one unit is shown in the next.
  while (bytes / divisor >= 1000 && unit + 1 < kUnits.size()) {
    divisor *= kStep;
    ++unit;
  }
  // Only nothing at all is zero.
  const std::size_t tenths =
      std::max(bytes / divisor * kTenth + (bytes % divisor * kTenth + divisor / 2) / divisor,
               std::size_t{bytes != 0});
  Text text = numberText(static_cast<std::int64_t>(tenths / kTenth));
  if (tenths < kTenth * kTenth && tenths % kTenth != 0) {
    text += u'.';
    text += static_cast<char16_t>(u'0' + tenths % kTenth);
  }
  return text.append(kUnits[unit]);
}

Text describe(std::size_t size, const Text& format) {
  Text text = sizeText(size);
  text += u' ';
  return text += format.empty() ? u"of data" : format;
}

/// data:[mediatype][;base64],data (RFC 2397)
Text describeDataUri(TextView uri) {
  constexpr TextView kBase64 = u";base64";
  uri.remove_prefix(TextView(u"data:").size());
  const std::size_t comma = uri.find(u',');
  TextView mediaType = uri.substr(0, comma);
  const TextView data = comma == TextView::npos ? TextView() : uri.substr(comma + 1);

  if (mediaType.size() >= kBase64.size() &&
      equalsIgnoringCase(mediaType.substr(mediaType.size() - kBase64.size()), kBase64)) {
    mediaType.remove_suffix(kBase64.size());
    const Decoded decoded = decodeBase64(data);
    return describe(decoded.size, formatOf(decoded.head, mediaType));
  }
  const auto escapes = static_cast<std::size_t>(std::count(data.begin(), data.end(), u'%'));
  const std::size_t size = data.size() - std::min(data.size(), 2 * escapes);
  return describe(size, formatOf({}, mediaType));
}

/// The media type that the property states, be it "image/png" or only "PNG".
TextView statedType(const VCardProperty& property) {
  constexpr std::array kOtherTypes{cVCardParameter_TYPE_HOME, cVCardParameter_TYPE_WORK,
                                   cVCardParameter_TYPE_PREF};
  if (const auto mediaType = property.valueOfParameterWithName(cVCardParameter_MEDIATYPE)) {
    return *mediaType;
  }
  const TextView type =
      property.valueOfParameterWithName(cVCardParameter_TYPE).value_or(TextView());
  const bool isOther = std::any_of(kOtherTypes.begin(), kOtherTypes.end(),
                                   [&](TextView other) { return equalsIgnoringCase(type, other); });
  return isOther ? TextView() : type;
}

bool saysBase64(const VCardProperty& property) {
  const auto encoding = property.valueOfParameterWithName(cVCardParameter_ENCODING);
  return encoding && (equalsIgnoringCase(*encoding, cVCardParameter_ENCODING_B) ||
                      equalsIgnoringCase(*encoding, cVCardParameter_ENCODING_BASE64));
}

} // namespace

std::optional<Text> inlineDataText(const VCardProperty& property, TextView text) {
  if (startsWithIgnoringCase(text, u"data:")) {
    return describeDataUri(text);
  }
  const bool isMarked = saysBase64(property) && !text.empty();
  if (!isMarked && text.size() <= kLongestWord) {
    return std::nullopt;
  }
  const Decoded decoded = decodeBase64(text);
  const bool hasBlanks = text.find(u' ') != TextView::npos;
  if (!isMarked && (!decoded.isSound || hasBlanks)) {
    return std::nullopt;
  }
  Text description = describe(decoded.size, formatOf(decoded.head, statedType(property)));
  if (!decoded.isSound) {
    description += u", damaged";
  }
  return description;
}

} // namespace cardwright::tool
