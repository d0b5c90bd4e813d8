#include "face/conversion/media.h"

#include "base/case.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/base64.h"

#include <algorithm>
#include <string_view>

namespace cardwright {

namespace {

using namespace std::string_view_literals;

struct Media {
  TextView mediaType;
  TextView type;             ///< what TYPE calls it below version 4
  std::string_view head{};   ///< what its bytes begin with
  std::string_view behind{}; ///< and what follows eight bytes from the start
};

constexpr Media kMedia[] = {
    {u"image/jpeg", u"JPEG", "\xFF\xD8\xFF"sv},
    {u"image/jpeg", u"JPG"},
    {u"image/png", u"PNG", "\x89PNG"sv},
    {u"image/gif", u"GIF", "GIF8"sv},
    {u"image/tiff", u"TIFF", "II*\0"sv},
    {u"image/tiff", u"TIFF", "MM\0*"sv},
    {u"image/webp", u"WEBP", "RIFF"sv, "WEBP"sv},
    {u"image/bmp", u"BMP", "BM"sv},
    {u"audio/wav", u"WAVE", "RIFF"sv, "WAVE"sv},
    {u"audio/wav", u"WAV"},
    {u"audio/ogg", u"OGG", "OggS"sv},
    {u"audio/mpeg", u"MP3", "ID3"sv},
    {u"audio/basic", u"BASIC", ".snd"sv},
    {u"application/pgp-keys", u"PGP", "-----BEGIN PGP"sv},
    {u"application/pkix-cert", u"X509", "\x30\x82"sv},
};

constexpr TextView kUnknown = u"application/octet-stream";
constexpr TextView kNoMediaType = u"none";
constexpr TextView kDataType = u"X-DATA-TYPE"; ///< what a data: URI says and the bytes do not
constexpr TextView kParkedEncoding = u"X-ENCODING";

/// What media types of a property begin with.
TextView familyOf(TextView propertyName) noexcept {
  if (propertyName == cVCardProperty_SOUND) {
    return u"audio/";
  }
  return propertyName == cVCardProperty_KEY ? u"application/" : u"image/";
}

/// Some write the media type itself.
bool hasTypeOf(const Draft& draft, const Media& media) {
  return draft.hasType(media.type) || draft.hasType(media.mediaType);
}

/// The media type that the bytes show, or else the types.
TextView mediaTypeOf(const Draft& draft, TextView base64) {
  const TextView family = familyOf(draft.name);
  const std::string bytes = headBytes(base64, 16);
  for (const Media& media : kMedia) {
    if (!media.head.empty() && media.mediaType.starts_with(family) &&
        bytes.starts_with(media.head) &&
        (media.behind.empty() || std::string_view(bytes).substr(8).starts_with(media.behind))) {
      return media.mediaType;
    }
  }
  for (const Media& media : kMedia) {
    if (media.mediaType.starts_with(family) && hasTypeOf(draft, media)) {
      return media.mediaType;
    }
  }
  return kUnknown;
}

void removeMediaTypes(Draft& draft) {
  for (const Media& media : kMedia) {
    if (media.mediaType.starts_with(familyOf(draft.name))) {
      draft.removeType(media.type);
      draft.removeType(media.mediaType);
    }
  }
}

bool isBase64(const Draft& draft) {
  const std::optional<TextView> encoding = draft.firstOf(cVCardParameter_ENCODING);
  return encoding && (equalIgnoringCase(*encoding, cVCardParameter_ENCODING_B) ||
                      equalIgnoringCase(*encoding, cVCardParameter_ENCODING_BASE64));
}

void toUri(Draft& draft, const ConversionStep& step) {
  const TextView text = draft.text().value_or(TextView());
  const std::optional<Text> base64 = soundBase64(text);
  if (!base64 || base64->empty()) {
    step.recorder.changed(ConversionKind::broken, draft, {}, draft.name, text);
    return;
  }
  const TextView parked = draft.firstOf(kDataType).value_or(TextView());
  Text uri = u"data:";
  if (parked != kNoMediaType) {
    uri.append(parked.empty() ? mediaTypeOf(draft, *base64) : parked);
  }
  uri.append(u";base64,").append(*base64);
  draft.setUri(uri);
  draft.remove(kDataType);
  draft.remove(cVCardParameter_ENCODING);
  removeMediaTypes(draft);
  step.recorder.changed(ConversionKind::reencoded, draft, {}, u"data:", {});
}

void typeOfUri(Draft& draft, const ConversionStep& step) {
  for (const Media& media : kMedia) {
    if (media.mediaType.starts_with(familyOf(draft.name)) && draft.hasType(media.type) &&
        !draft.valuesOf(cVCardParameter_MEDIATYPE)) {
      draft.set(cVCardParameter_MEDIATYPE, {Text(media.mediaType)});
      draft.removeType(media.type);
      step.recorder.changed(ConversionKind::reencoded, draft, cVCardParameter_TYPE,
                            cVCardParameter_MEDIATYPE, media.type);
    }
  }
}

/// @returns the media whose type says the same; null without one
const Media* mediaOf(const Draft& draft, TextView mediaType) {
  const auto* const found =
      std::find_if(std::begin(kMedia), std::end(kMedia), [&](const Media& media) {
        return media.mediaType == mediaType && mediaType.starts_with(familyOf(draft.name));
      });
  return found != std::end(kMedia) ? found : nullptr;
}

/// @returns whether the URI held the data itself, and now the value does
bool toBinary(Draft& draft, const ConversionStep& step) {
  constexpr TextView kScheme = u"data:";
  constexpr TextView kBase64 = u";base64,";
  const Text uri(*draft.text());
  const std::size_t mark = uri.find(kBase64);
  if (!uri.starts_with(kScheme) || mark == Text::npos) {
    return false;
  }
  const Text mediaType = uri.substr(kScheme.size(), mark - kScheme.size());
  const Text digits = uri.substr(mark + kBase64.size());
  if (soundBase64(digits) != digits || digits.empty()) {
    step.recorder.changed(ConversionKind::broken, draft, {}, draft.name, uri);
    return false;
  }
  draft.setText(digits);
  draft.set(cVCardParameter_ENCODING, {Text(cVCardParameter_ENCODING_B)});
  const Media* media = mediaOf(draft, TextView(mediaType).substr(0, mediaType.find(u';')));
  if (media != nullptr) {
    draft.append(cVCardParameter_TYPE, Text(media->type));
  }
  if (mediaTypeOf(draft, digits) != mediaType) {
    draft.set(kDataType, {mediaType.empty() ? Text(kNoMediaType) : mediaType});
  }
  step.recorder.changed(ConversionKind::reencoded, draft, {}, u"ENCODING=B", {});
  return true;
}

void mediaTypeToType(Draft& draft, const ConversionStep& step) {
  const Text mediaType(draft.firstOf(cVCardParameter_MEDIATYPE).value_or(TextView()));
  const Media* media = mediaOf(draft, mediaType);
  if (media != nullptr && draft.valuesOf(cVCardParameter_MEDIATYPE)->size() == 1) {
    draft.remove(cVCardParameter_MEDIATYPE);
    draft.append(cVCardParameter_TYPE, Text(media->type));
    step.recorder.changed(ConversionKind::reencoded, draft, cVCardParameter_MEDIATYPE,
                          cVCardParameter_TYPE, mediaType);
  }
}

} // namespace

void convertMedia(Draft& draft, const ConversionStep& step) {
  const bool isUri = dynamic_cast<const VCardURIValue*>(draft.value.get()) != nullptr;
  if (step.isUp()) {
    if (isBase64(draft) && draft.text()) {
      toUri(draft, step);
    } else if (isUri) {
      typeOfUri(draft, step);
    }
    return;
  }
  if (!draft.text()) {
    return;
  }
  if (isBase64(draft) || draft.valuesOf(kParkedEncoding) != nullptr) {
    draft.setText(Text(*draft.text())); // Base64 that never was a URI.
  } else if (isUri && !toBinary(draft, step)) {
    mediaTypeToType(draft, step);
  }
}

} // namespace cardwright
