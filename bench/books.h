#pragma once

#include <cstddef>
#include <string>

namespace cardwright {

/// Kinds of address books, each of another weight.
enum class Book { plain, mixed, photos, notes, quotedPrintable };

inline constexpr Book kBooks[] = {Book::plain, Book::mixed, Book::photos, Book::notes,
                                  Book::quotedPrintable};

[[nodiscard]] const char* nameOf(Book book);

/// An invented address book of at least so many bytes. It is made once and kept.
[[nodiscard]] const std::string& bookOf(Book book, std::size_t bytes);

/// What a sound book looks like after a program that glues properties together and writes entities
/// into notes, in every third card.
[[nodiscard]] std::string damaged(const std::string& bytes);

} // namespace cardwright
