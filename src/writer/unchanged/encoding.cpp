#include "writer/unchanged/encoding.h"

#include "base/processor.h"
#include "base/utf8_encoder.h"
#include "base/wide_lanes.h"
#include "values/valid_xml.h"
#include "writer/unchanged/signs.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cardwright {

namespace {

#if defined(__SSE2__)

constexpr std::size_t kBlock = 16;

__m128i loadUnits(const char16_t* units) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(units)); // NOLINT: unaligned by design
}

/// Encodes the ASCII that the text begins with, by blocks of which each but the last one is all of
/// the text.
/// @returns how many units that are: all, or some before the first one that is no ASCII
std::size_t encodeAscii(const ReadableText& readable, char* output) noexcept {
  const std::size_t size = readable.text.size();
  const char16_t* const units = readable.text.data();
  const std::size_t readableUnits = readable.readable(0);
  std::size_t at = 0;
  for (; at < size && readableUnits - at >= kBlock; at += kBlock) {
    const __m128i first = loadUnits(units + at);
    const __m128i second = loadUnits(units + at + kBlock / 2);
    const __m128i high = _mm_set1_epi16(static_cast<short>(0xFF80));
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(_mm_or_si128(first, second), high),
                                          _mm_setzero_si128())) != 0xFFFF) {
      const auto isAscii = [high](__m128i block) {
        return _mm_cmpeq_epi16(_mm_and_si128(block, high), _mm_setzero_si128());
      };
      const auto ascii = static_cast<unsigned>(
          _mm_movemask_epi8(_mm_packs_epi16(isAscii(first), isAscii(second))));
      // Behind the text may stand anything.
      if (size - at >= kBlock || (~ascii & ((1U << (size - at)) - 1U)) != 0) {
        return at;
      }
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(output + at), // NOLINT: unaligned by design
                     _mm_packus_epi16(first, second));
  }
  return at < size ? at : size;
}

#else

std::size_t encodeAscii(const ReadableText& /*readable*/, char* /*output*/) noexcept {
  return 0;
}

#endif

#ifdef CARDWRIGHT_WIDE

CARDWRIGHT_WIDE bool encodeSimpleWide(TextView text, char* output) noexcept {
  const __m512i bytes = narrowed(text.data(), text.size());
  _mm512_storeu_si512(output, bytes);
  return (_mm512_movepi8_mask(_mm512_or_si512(bytes, lookUp(kSigns, bytes))) &
          lowBits(text.size())) == 0;
}

#endif

} // namespace

bool encodeSimple(Bytes& output, TextView text) noexcept {
#ifdef CARDWRIGHT_WIDE
  if (usesWideLanes && text.size() <= kSignWindow && encodeSimpleWide(text, output.end())) {
    output.setEnd(output.end() + text.size());
    return true;
  }
#else
  static_cast<void>(output);
  static_cast<void>(text);
#endif
  return false;
}

bool encodeSound(Bytes& output, const ReadableText& text) noexcept {
  const std::size_t ascii = usesWideLanes ? 0 : encodeAscii(text, output.end());
  char* end = output.end() + ascii;
  if (ascii < text.text.size()) {
    end = encodeUtf8(text.substr(ascii), end,
                     [](char32_t codePoint) { return isValidInXml(codePoint); });
  }
  if (end == nullptr) {
    return false;
  }
  output.setEnd(end);
  return true;
}

} // namespace cardwright
