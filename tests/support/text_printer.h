#pragma once

#include "cardwright/utf8.h"

#include <ostream>
#include <string_view>

// GoogleTest prints UTF-16 strings as text, but their views as lists of numbers.
namespace std { // NOLINT(cert-dcl58-cpp): the only place where argument-dependent look-up finds it

inline void PrintTo(u16string_view text, ostream* stream) {
  *stream << '"' << cardwright::utf8FromText(text) << '"';
}

} // namespace std
