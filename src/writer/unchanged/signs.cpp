#include "writer/unchanged/signs.h"

#include "base/processor.h"
#include "base/wide_lanes.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cardwright {

#ifdef CARDWRIGHT_WIDE

namespace {

static_assert(kSignWindow == 64);

CARDWRIGHT_WIDE std::uint64_t signsInWide(const char* bytes, std::size_t count) noexcept {
  const std::uint64_t all = lowBits(count);
  const __m512i window = _mm512_maskz_loadu_epi8(all, bytes);
  // The highest bit of a byte is beyond ASCII.
  return _mm512_movepi8_mask(_mm512_andnot_si512(window, lookUp(kSigns, window))) & all;
}

} // namespace

#endif

std::uint64_t signsInPlainly(std::string_view bytes) noexcept {
  std::uint64_t signs = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    signs |= std::uint64_t{isSign(static_cast<unsigned char>(bytes[at]))} << at;
  }
  return signs;
}

#if defined(__SSE2__)

std::uint64_t signsIn(const char* bytes, std::size_t count) noexcept {
#ifdef CARDWRIGHT_WIDE
  if (usesWideLanes) {
    return signsInWide(bytes, count);
  }
#endif
  constexpr std::size_t kBlock = 16;
  static_assert(kBlock <= kSignsReadBeyond);
  std::uint64_t signs = 0;
  for (std::size_t at = 0; at < count; at += kBlock) {
    const __m128i block =
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + at)); // NOLINT: unaligned
    const auto isEqual = [block](char sign) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(sign)); };
    const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(block, _mm_set1_epi8(' ' - 1)), block);
    const __m128i all = _mm_or_si128(_mm_or_si128(_mm_or_si128(isEqual(','), isEqual(';')),
                                                  _mm_or_si128(isEqual('\\'), isEqual(0x7F))),
                                     controls);
    signs |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(all))) << at;
  }
  return count == kSignWindow ? signs : signs & ((std::uint64_t{1} << count) - 1);
}

#else

std::uint64_t signsIn(const char* bytes, std::size_t count) noexcept {
  return signsInPlainly({bytes, count});
}

#endif

} // namespace cardwright
