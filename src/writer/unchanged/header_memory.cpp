#include "writer/unchanged/header_memory.h"

#include <cstring>

#if defined(__SSE2__)
#include <bit>
#include <emmintrin.h>
#endif

namespace cardwright {

#if defined(__SSE2__)

namespace {

constexpr std::size_t kBlock = 16;

/// As many bytes of ones as a block has kept, from some place on.
constexpr auto kKept = [] {
  std::array<unsigned char, 2 * kBlock> kept{};
  for (std::size_t i = 0; i < kBlock; ++i) {
    kept[i] = 0xFF;
  }
  return kept;
}();

__m128i load(const void* memory) noexcept {
  return _mm_loadu_si128(static_cast<const __m128i*>(memory));
}

/// Sixteen units of a header as bytes.
class HeaderBlock {
 public:
  explicit HeaderBlock(const char16_t* units) noexcept
      : m_bytes(_mm_packus_epi16(load(units), load(units + kBlock / 2))) {
    const __m128i colons = _mm_cmpeq_epi8(m_bytes, _mm_set1_epi8(':'));
    m_size = static_cast<unsigned>(
        std::countr_zero(static_cast<unsigned>(_mm_movemask_epi8(colons)) | 1U << kBlock));
  }

  [[nodiscard]] bool hasColon() const noexcept { return m_size != kBlock; }
  /// Whether anything before the colon is no byte of ASCII, or zero.
  [[nodiscard]] bool isOdd() const noexcept {
    // What is no ASCII has the highest bit set, or was made zero.
    const __m128i odd = _mm_or_si128(m_bytes, _mm_cmpeq_epi8(m_bytes, _mm_setzero_si128()));
    return (static_cast<unsigned>(_mm_movemask_epi8(odd)) & ((1U << m_size) - 1U)) != 0;
  }
  /// Stores what stands before the colon, and zeros, or only zeros.
  void store(__m128i* output, bool isUsed) const noexcept {
    const std::size_t size = isUsed ? m_size : 0;
    _mm_storeu_si128(output, _mm_and_si128(m_bytes, load(kKept.data() + kBlock - size)));
  }

 private:
  __m128i m_bytes;
  unsigned m_size; ///< kBlock without a colon
};

} // namespace

#endif

const HeaderMemory::Found* HeaderMemory::rewriteAfresh(Bytes& output, TextView line,
                                                       const HeaderTask& task) {
  const std::optional<LineName> name = nameOf(line);
  if (!name) {
    return nullptr;
  }
  const std::size_t begin = output.size();
  const std::optional<LineHeader> header = rewriteHeader(output, line, *name, task);
  if (!header) {
    output.resize(begin);
  }
  m_fresh = {header.value_or(LineHeader{.name = *name, .end = name->end, .form = {}}),
             header.has_value()};
  return &m_fresh;
}

/// False for a line whose header is long or has a unit that is no byte of ASCII, or zero.
bool HeaderMemory::keyOf(const ReadableText& readable, Key& key) noexcept {
  const TextView line = readable.text;
#if defined(__SSE2__)
  static_assert(kLongest == 4 * kBlock);
  if (readable.readableEnd - line.data() >= static_cast<std::ptrdiff_t>(kLongest)) {
    auto* const blocks = reinterpret_cast<__m128i*>(&key); // NOLINT: of that size
    // Most end in the first half. What is looked at without need costs less than to ask.
    const HeaderBlock first(line.data());
    const HeaderBlock second(line.data() + kBlock);
    first.store(blocks, true);
    second.store(blocks + 1, !first.hasColon());
    if (first.hasColon() || second.hasColon()) {
      _mm_storeu_si128(blocks + 2, _mm_setzero_si128());
      _mm_storeu_si128(blocks + 3, _mm_setzero_si128());
      return !first.isOdd() && (first.hasColon() || !second.isOdd());
    }
    const HeaderBlock third(line.data() + 2 * kBlock);
    const HeaderBlock fourth(line.data() + 3 * kBlock);
    third.store(blocks + 2, true);
    fourth.store(blocks + 3, !third.hasColon());
    return !first.isOdd() && !second.isOdd() && !third.isOdd() &&
           (third.hasColon() || (fourth.hasColon() && !fourth.isOdd()));
  }
#endif
  key = {};
  for (std::size_t at = 0; at < std::min(line.size(), kLongest); ++at) {
    if (line[at] == u':') {
      return true;
    }
    if (!isAscii(line[at]) || line[at] == u'\0') {
      return false;
    }
    const auto byte = static_cast<unsigned char>(line[at]);
    std::memcpy(reinterpret_cast<unsigned char*>(&key) + at, &byte, 1); // NOLINT: in that order
  }
  return false;
}

std::size_t HeaderMemory::placeOf(const Key& key, const HeaderTask& task) noexcept {
  // Sums of products do not wait for each other. All bits of a word count in the highest ones.
  constexpr std::array<std::uint64_t, 8> kFactors = {
      0x9E3779B97F4A7C15U, 0xBF58476D1CE4E5B9U, 0x94D049BB133111EBU, 0xD6E8FEB86659FD93U,
      0xC2B2AE3D27D4EB4FU, 0x165667B19E3779F9U, 0xFF51AFD7ED558CCDU, 0xC4CEB9FE1A85EC53U};
  constexpr unsigned kUnusedBits = 64U - 10U;
  static_assert(kPlaces == 1U << (64U - kUnusedBits));
  static_assert(kFactors.size() == std::tuple_size_v<decltype(Key::words)>);
  const std::size_t used =
      key.words[kFactors.size() / 2] == 0 ? kFactors.size() / 2 : kFactors.size();
  // Books of several versions have the same headers in each.
  std::uint64_t hash = (static_cast<std::uint64_t>(task.readAs) +
                        8 * static_cast<std::uint64_t>(task.version) + (task.isSafe ? 64 : 0)) *
                       kFactors.back();
  for (std::size_t i = 0; i < used; ++i) {
    hash += key.words[i] * kFactors[i];
  }
  return static_cast<std::size_t>(hash >> kUnusedBits);
}

const HeaderMemory::Found* HeaderMemory::rewrite(Bytes& output, const ReadableText& line,
                                                 const HeaderTask& task) {
  Key key; // NOLINT: filled at once
  if (!keyOf(line, key)) {
    return rewriteAfresh(output, line.text, task);
  }
  std::size_t place = placeOf(key, task);
  std::size_t probes = 0;
  for (; m_places[place] != 0 && probes < kProbes; ++probes) {
    const Entry& entry = m_entries[m_places[place] - 1];
    if (entry.key == key && entry.task == task) {
      output.appendBlocks({entry.written.data(), entry.size});
      return &entry.found;
    }
    place = (place + 1) % kPlaces;
  }
  const std::size_t begin = output.size();
  const Found* const found = rewriteAfresh(output, line.text, task);
  const std::string_view written = output.view().substr(begin);
  if (found != nullptr && written.size() <= kLongestWritten && probes < kProbes) {
    Entry entry{key, task, *found, written.size(), {}};
    std::copy(written.begin(), written.end(), entry.written.begin());
    remember(place, entry);
  }
  return found;
}

void HeaderMemory::remember(std::size_t place, const Entry& entry) {
  if (m_entries.size() == kMost) {
    m_entries.clear();
    m_places = {};
  }
  static_assert(kMost < UINT8_MAX);
  m_entries.push_back(entry);
  m_places[place] = static_cast<std::uint8_t>(m_entries.size());
}

} // namespace cardwright
