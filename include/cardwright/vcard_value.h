#pragma once

#include "cardwright/detail/shared_text.h"
#include "cardwright/vcard_object.h"

#include <memory>
#include <optional>

namespace cardwright {

/// The value of a property. Each subclass reads its fields from the raw value text, still escaped,
/// and writes them back.
class [[gnu::visibility("default")]] VCardValue : public VCardObject {
 public:
  VCardValue() = default;

  /// Makes an empty value of the class that a value type name selects, without regard to case;
  /// unknown names give a VCardXValue that keeps the name. Null for an absent name.
  [[nodiscard]] static std::shared_ptr<VCardValue> valueWithType(std::optional<TextView> type);

  /// The value type name of the class; absent for a class without one.
  [[nodiscard]] virtual std::optional<TextView> type() const noexcept;

  /// Whether the text to be parsed is quoted-printable.
  [[nodiscard]] bool quotedPrintable() const noexcept {
    return m_quotedPrintable;
  }
  /// Tells parse() so.
  void setQuotedPrintable(bool quotedPrintable) noexcept {
    changed();
    m_quotedPrintable = quotedPrintable;
  }

  /// Name of the character set of the text to be parsed; absent when none was stated.
  [[nodiscard]] std::optional<TextView> charset() const noexcept {
    return m_charset.optionalView();
  }
  /// Tells parse() the name of the character set.
  void setCharset(std::optional<TextView> charset) {
    changed();
    m_charset.assign(charset);
  }

 protected:
  /// Whether the text that is being parsed outlives the value.
  [[nodiscard]] bool isTextLent() const noexcept {
    return m_isTextLent;
  }

 private:
  friend class VCardMultiValue;
  friend struct ValueReading;

  detail::SharedText m_charset;
  bool m_quotedPrintable = false;
  bool m_isTextLent = false;
};

} // namespace cardwright
