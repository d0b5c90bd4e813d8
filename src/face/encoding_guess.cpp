#include "face/encoding_guess.h"

#include <unicode/ucsdet.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>

namespace cardwright {

namespace {

/// How much of the head is looked at for the zeros of UTF-16: "BEGIN:VC" in that encoding.
constexpr std::size_t kHeadBytes = 16;

// When the detector is believed. It gives a multi-byte encoding 10 points for nothing, tells the
// alphabets of Europe apart by a few bytes of a few words, and is easily wrong on names. These
// figures are the outcome of trying names of 23 languages and short western notes: they keep
// nearly all of the western text as it is and lose little of the rest.
constexpr int32_t kLeastConfidence = 11;
constexpr int32_t kLeastLead = 10;
constexpr int32_t kLeastLeadOfLatin = 15;
constexpr std::ptrdiff_t kLeastBytes = 6;
/// More of a file tells no more.
constexpr std::size_t kEnoughBytes = std::size_t{64} * 1024;

constexpr const char* kWestern = "windows-1252";

bool isAboveAscii(char byte) noexcept {
  return static_cast<unsigned char>(byte) >= 0x80;
}

/// The lines that hold bytes above 7F.
std::string tellingLines(std::string_view bytes) {
  std::string lines;
  while (lines.size() < kEnoughBytes) {
    const auto found = std::find_if(bytes.begin(), bytes.end(), isAboveAscii);
    if (found == bytes.end()) {
      break;
    }
    const auto at = static_cast<std::size_t>(found - bytes.begin());
    const std::size_t before = bytes.find_last_of("\r\n", at);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(bytes.find_first_of("\r\n", at), bytes.size());
    lines.append(bytes, begin, std::min(end - begin, kEnoughBytes)).push_back('\n');
    bytes.remove_prefix(end);
  }
  return lines;
}

/// The detector's name for what it found; null for what cannot be, since it is not made of ASCII
/// and bytes above it or has been ruled out before.
const char* usableName(const UCharsetMatch* match) {
  UErrorCode status = U_ZERO_ERROR;
  const char* const name = ucsdet_getName(match, &status);
  if (U_FAILURE(status) != 0) {
    return nullptr;
  }
  const std::string_view view = name;
  if (view.starts_with("UTF-") || view.starts_with("ISO-2022-") || view.starts_with("IBM")) {
    return nullptr;
  }
  // The detector tells the two apart by the bytes 80 to 9F, which nobody means as controls.
  return view == "ISO-8859-1" ? kWestern : name;
}

/// Whether an encoding shares most of its letters with the western one.
bool isOtherLatin(std::string_view name) noexcept {
  constexpr std::string_view kLatin[] = {"ISO-8859-2", "ISO-8859-9", "windows-1250",
                                         "windows-1254"};
  return std::find(std::begin(kLatin), std::end(kLatin), name) != std::end(kLatin);
}

struct Candidate {
  std::string name;
  int32_t confidence = 0;
};

struct Candidates {
  Candidate best;
  int32_t westernConfidence = 0;
};

Candidates detected(std::string_view lines) {
  struct Closer {
    void operator()(UCharsetDetector* detector) const noexcept { ucsdet_close(detector); }
  };
  Candidates candidates;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, Closer> detector(ucsdet_open(&status));
  ucsdet_setText(detector.get(), lines.data(), static_cast<int32_t>(lines.size()), &status);
  int32_t count = 0;
  const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &status);
  if (U_FAILURE(status) != 0) {
    return candidates;
  }
  // The surest comes first.
  for (int32_t i = 0; i < count; ++i) {
    const char* const name = usableName(matches[i]);
    if (name == nullptr) {
      continue;
    }
    const int32_t confidence = ucsdet_getConfidence(matches[i], &status);
    if (candidates.best.name.empty()) {
      candidates.best = {name, confidence};
    }
    if (name == std::string_view(kWestern)) {
      candidates.westernConfidence = std::max(candidates.westernConfidence, confidence);
    }
  }
  return candidates;
}

} // namespace

const char* encodingOfMark(std::string_view bytes) noexcept {
  using namespace std::string_view_literals;
  struct Mark {
    std::string_view bytes;
    const char* encoding;
  };
  // The longer marks first: one of them begins with a shorter one.
  static constexpr Mark kMarks[] = {
      {"\xFF\xFE\0\0"sv, "UTF-32LE"}, {"\0\0\xFE\xFF"sv, "UTF-32BE"}, {"\xEF\xBB\xBF"sv, "UTF-8"},
      {"\xFF\xFE"sv, "UTF-16LE"},     {"\xFE\xFF"sv, "UTF-16BE"},
  };
  for (const Mark& mark : kMarks) {
    if (bytes.starts_with(mark.bytes)) {
      return mark.encoding;
    }
  }
  return nullptr;
}

const char* encodingOfZeros(std::string_view bytes) noexcept {
  const std::size_t size = std::min(bytes.size(), kHeadBytes);
  if (size < 4) {
    return nullptr; // One zero would decide.
  }
  bool isLittleEndian = true;
  bool isBigEndian = true;
  for (std::size_t i = 0; i < size; ++i) {
    const bool isZero = bytes[i] == 0;
    const bool isOdd = i % 2 != 0;
    isLittleEndian = isLittleEndian && isZero == isOdd;
    isBigEndian = isBigEndian && isZero != isOdd;
  }
  return isLittleEndian ? "UTF-16LE" : isBigEndian ? "UTF-16BE" : nullptr;
}

std::string guessedLegacyEncoding(std::string_view bytes) {
  const std::string lines = tellingLines(bytes);
  if (std::count_if(lines.begin(), lines.end(), isAboveAscii) < kLeastBytes) {
    return kWestern;
  }
  const Candidates candidates = detected(lines);
  const auto& [best, westernConfidence] = candidates;
  const int32_t leastLead = isOtherLatin(best.name) ? kLeastLeadOfLatin : kLeastLead;
  const bool isSure =
      best.confidence >= kLeastConfidence && best.confidence - westernConfidence >= leastLead;
  return isSure ? best.name : kWestern;
}

} // namespace cardwright
