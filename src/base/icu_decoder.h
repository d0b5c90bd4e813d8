#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct UConverter;

namespace cardwright {

/// One of ICU's converters, used to decode. Opening one is costly next to a short text, so it is
/// kept; it belongs to one thread at a time.
class IcuDecoder {
 public:
  /// Opens the converter of a name or alias that ICU knows. Nothing is read from disk for others.
  explicit IcuDecoder(const char* name);

  [[nodiscard]] bool isOpen() const noexcept { return m_converter != nullptr; }
  /// ICU's own name of the encoding.
  [[nodiscard]] std::string name() const;

  /// Decodes the whole of `bytes`; absent when some of them are illegal, unmappable or cut short.
  [[nodiscard]] std::optional<Text> decode(std::string_view bytes);
  /// Decodes what can be decoded.
  /// @param dropped receives how many bytes could not be
  [[nodiscard]] Text decodeDropping(std::string_view bytes, std::size_t& dropped);

 private:
  struct Closer {
    void operator()(UConverter* converter) const noexcept;
  };

  bool convert(std::string_view bytes, Text& text);

  std::unique_ptr<UConverter, Closer> m_converter;
};

} // namespace cardwright
