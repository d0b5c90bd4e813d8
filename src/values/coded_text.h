#pragma once

#include "cardwright/text.h"

#include <utility>

namespace cardwright {

/// What a step of the codec hands on: the text that it was given, which must outlive this, where
/// nothing had to change; else a text of its own.
class CodedText {
 public:
  [[nodiscard]] static CodedText original(TextView text) {
    CodedText coded;
    coded.m_original = text;
    coded.m_isOriginal = true;
    return coded;
  }
  [[nodiscard]] static CodedText changed(Text text) {
    CodedText coded;
    coded.m_text = std::move(text);
    return coded;
  }

  [[nodiscard]] bool isOriginal() const noexcept { return m_isOriginal; }
  /// Valid as long as this object lives and, if it is the original, that text.
  [[nodiscard]] TextView view() const noexcept { return m_isOriginal ? m_original : m_text; }
  [[nodiscard]] Text text() && { return m_isOriginal ? Text(m_original) : std::move(m_text); }

 private:
  CodedText() = default;

  TextView m_original;
  Text m_text;
  bool m_isOriginal = false;
};

} // namespace cardwright
