#pragma once

#include <cstddef>

namespace cardwright {

/// Asks the system to lay large pages under memory that is about to be filled, where it has any and
/// the memory is many megabytes. Fetching 32 MB in small pages costs more than all that is done to
/// the text in them.
void useLargePages(const void* memory, std::size_t bytes) noexcept;

/// Makes room in a string or vector for so many elements that are about to come.
template <typename Sequence>
void reserveLarge(Sequence& sequence, std::size_t count) {
  sequence.reserve(count);
  useLargePages(sequence.data(), sequence.capacity() * sizeof(typename Sequence::value_type));
}

} // namespace cardwright
