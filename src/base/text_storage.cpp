#include "cardwright/detail/text_storage.h"

#include <algorithm>

namespace cardwright::detail {

TextStorage::TextStorage(const TextStorage& other) {
  if (other.isOwned() || other.isLent()) {
    assign(other.view());
  } else {
    m_data = other.m_data;
    m_sizeAndKind = other.m_sizeAndKind;
  }
}

TextStorage& TextStorage::operator=(const TextStorage& other) {
  if (this != &other) {
    *this = TextStorage(other);
  }
  return *this;
}

TextStorage& TextStorage::operator=(TextStorage&& other) noexcept {
  if (this != &other) {
    release();
    m_data = other.m_data;
    m_sizeAndKind = other.m_sizeAndKind;
    other.forget();
  }
  return *this;
}

void TextStorage::assign(TextView text) {
  const char16_t* data = u"";
  if (!text.empty()) {
    auto* copy = new char16_t[text.size()];
    std::copy(text.begin(), text.end(), copy);
    data = copy;
  }
  release();
  m_data = data;
  m_sizeAndKind = (text.size() << 2U) | (text.empty() ? 0U : kOwned);
}

void TextStorage::assign(std::optional<TextView> text) {
  if (text) {
    assign(*text);
  } else {
    release();
    forget();
  }
}

} // namespace cardwright::detail
