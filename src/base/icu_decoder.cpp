#include "base/icu_decoder.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>

namespace cardwright {

namespace {

/// ICU counts in 32 bits: what it is handed at once stays far below that.
constexpr std::size_t kPieceBytes = std::size_t{1} << 28U;

void stopAtError(UConverter* converter) {
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
}

void dropAndCount(const void* dropped, UConverterToUnicodeArgs* /*arguments*/,
                  const char* /*bytes*/, int32_t length, UConverterCallbackReason reason,
                  UErrorCode* status) {
  if (reason > UCNV_IRREGULAR) {
    return; // The converter is reset, cloned or closed.
  }
  *static_cast<std::size_t*>(const_cast<void*>(dropped)) += static_cast<std::size_t>(length);
  *status = U_ZERO_ERROR;
}

bool isKnownToIcu(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  return ucnv_countAliases(name, &status) > 0 && U_SUCCESS(status) != 0;
}

} // namespace

void IcuDecoder::Closer::operator()(UConverter* converter) const noexcept {
  ucnv_close(converter);
}

IcuDecoder::IcuDecoder(const char* name) {
  if (isKnownToIcu(name)) {
    UErrorCode status = U_ZERO_ERROR;
    m_converter.reset(ucnv_open(name, &status));
    if (isOpen()) {
      stopAtError(m_converter.get());
    }
  }
}

std::string IcuDecoder::name() const {
  UErrorCode status = U_ZERO_ERROR;
  const char* name = ucnv_getName(m_converter.get(), &status);
  return U_SUCCESS(status) != 0 ? name : std::string();
}

std::optional<Text> IcuDecoder::decode(std::string_view bytes) {
  std::optional<Text> text(std::in_place);
  if (!convert(bytes, *text)) {
    text.reset();
  }
  return text;
}

Text IcuDecoder::decodeDropping(std::string_view bytes, std::size_t& dropped) {
  dropped = 0;
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(m_converter.get(), dropAndCount, &dropped, nullptr, nullptr, &status);
  Text text;
  convert(bytes, text);
  stopAtError(m_converter.get());
  return text;
}

bool IcuDecoder::convert(std::string_view bytes, Text& text) {
  ucnv_resetToUnicode(m_converter.get());
  std::array<UChar, 2048> block; // NOLINT: filled by the converter
  for (;;) {
    const std::string_view piece = bytes.substr(0, kPieceBytes);
    bytes.remove_prefix(piece.size());
    const char* source = piece.data();
    const char* const sourceEnd = source + piece.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
      status = U_ZERO_ERROR;
      UChar* target = block.data();
      ucnv_toUnicode(m_converter.get(), &target, target + block.size(), &source, sourceEnd, nullptr,
                     static_cast<UBool>(bytes.empty()), &status);
      text.append(block.data(), static_cast<std::size_t>(target - block.data()));
    }
    if (U_FAILURE(status) != 0) {
      return false;
    }
    if (bytes.empty()) {
      return true;
    }
  }
}

} // namespace cardwright
