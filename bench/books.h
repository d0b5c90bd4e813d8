#pragma once

#include <cstddef>
#include <string>

namespace cardwright {

/// Kinds of address books, each of another weight.
enum class Book { plain, mixed, photos, notes, quotedPrintable };

[[nodiscard]] const char* nameOf(Book book);

/// An invented address book of at least so many bytes. It is made once and kept.
[[nodiscard]] const std::string& bookOf(Book book, std::size_t bytes);

} // namespace cardwright
