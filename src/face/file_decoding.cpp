#include "base/ascii.h"
#include "base/charset.h"
#include "base/icu_decoder.h"
#include "base/large_memory.h"
#include "base/utf8_decoder.h"
#include "cardwright/decode.h"
#include "cardwright/utf8.h"
#include "face/encoding_guess.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr std::string_view kUtf8 = "UTF-8";

/// ICU's name for an encoding; empty when neither we nor ICU know it.
std::string icuNameOf(std::string_view name) {
  if (name.find('\0') != std::string_view::npos) {
    return {};
  }
  if (const Charset charset = charsetNamed(textFromUtf8(name)); charset != Charset::none) {
    return icuName(charset);
  }
  const IcuDecoder decoder(std::string(name).c_str());
  if (!decoder.isOpen()) {
    return {};
  }
  return decoder.name() == kUtf8 ? std::string(kUtf8) : std::string(name);
}

/// A line break with the blank behind it that makes the next line a continuation.
std::size_t foldLengthAt(std::string_view bytes, std::size_t at) noexcept {
  std::size_t end = at;
  if (bytes.substr(end).starts_with('\r')) {
    ++end;
  }
  if (bytes.substr(end).starts_with('\n')) {
    ++end;
  }
  const bool isFold = end > at && end < bytes.size() && (bytes[end] == ' ' || bytes[end] == '\t');
  return isFold ? end + 1 - at : 0;
}

/// Some writers fold by bytes and tear characters apart. Puts the one together whose first
/// `length` bytes stand at `at`, in front of the fold.
/// @returns the place behind the character's last byte, or `at` when no such character is there
std::size_t appendTornCharacter(TextGatherer& gatherer, std::string_view utf8, std::size_t at,
                                std::size_t length) {
  const std::size_t fold = foldLengthAt(utf8, at + length);
  if (fold == 0) {
    return at;
  }
  std::string character(utf8.substr(at, length));
  character.append(utf8.substr(at + length + fold, 3));
  const Utf8Sequence sequence = utf8SequenceAt(character, 0);
  if (!sequence.isLegal) {
    return at;
  }
  gatherer.append(sequence.codePoint);
  gatherer.appendSound(utf8.substr(at + length, fold));
  return at + sequence.length + fold;
}

Text decodeDroppingUtf8(std::string_view bytes, DecodingReport& report) {
  report.encoding = kUtf8;
  Text text;
  reserveLarge(text, bytes.size());
  decodeUtf8(text, bytes, [&](TextGatherer& gatherer, std::size_t at, std::size_t length) {
    const std::size_t behind = appendTornCharacter(gatherer, bytes, at, length);
    if (behind != at) {
      ++report.tornCharacters;
      return behind;
    }
    report.droppedBytes += length;
    return at + length;
  });
  return text;
}

Text decodeDropping(std::string_view bytes, const std::string& encoding, DecodingReport& report) {
  if (encoding == kUtf8) {
    return decodeDroppingUtf8(bytes, report);
  }
  report.encoding = encoding;
  IcuDecoder decoder(encoding.c_str());
  return decoder.isOpen() ? decoder.decodeDropping(bytes, report.droppedBytes) : Text();
}

/// Whether a file with broken bytes still is UTF-8 rather than something else.
bool hasMoreSoundCharacters(const Text& decoded, std::size_t brokenBytes) {
  std::size_t sound = 0;
  for (const char16_t unit : decoded) {
    sound += !isAscii(unit) && !isLowSurrogate(unit) ? 1U : 0U;
  }
  return sound > brokenBytes;
}

Text decodeBySight(std::string_view bytes, DecodingReport& report) {
  if (const char* const marked = encodingOfMark(bytes)) {
    return decodeDropping(bytes, marked, report);
  }
  if (const char* const encoding = encodingOfZeros(bytes)) {
    return decodeDropping(bytes, encoding, report);
  }
  Text text = decodeDroppingUtf8(bytes, report);
  if (report.droppedBytes == 0 || hasMoreSoundCharacters(text, report.droppedBytes)) {
    return text;
  }
  report = {};
  return decodeDropping(bytes, guessedLegacyEncoding(bytes), report);
}

} // namespace

std::optional<Text> decodeFile(std::string_view bytes, std::optional<std::string_view> encoding,
                               DecodingReport* report) {
  std::string name;
  if (encoding) {
    name = icuNameOf(*encoding);
    if (name.empty()) {
      return std::nullopt;
    }
  }
  DecodingReport done;
  Text text = encoding ? decodeDropping(bytes, name, done) : decodeBySight(bytes, done);
  if (text.starts_with(u'\uFEFF')) {
    text.erase(0, 1);
  }
  if (report != nullptr) {
    *report = std::move(done);
  }
  return text;
}

bool isKnownEncoding(std::string_view name) {
  return !icuNameOf(name).empty();
}

} // namespace cardwright
