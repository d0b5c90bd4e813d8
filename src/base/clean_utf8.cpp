#include "base/clean_utf8.h"

#include <cstdint>
#include <iconv.h>
#include <memory>
#include <type_traits>

namespace cardwright {

namespace {

struct Closer {
  void operator()(iconv_t converter) const noexcept { iconv_close(converter); }
};

using Converter = std::unique_ptr<std::remove_pointer_t<iconv_t>, Closer>;

bool isFailure(std::size_t result) noexcept {
  return result == SIZE_MAX;
}

/// How a library declares the input: with const or, after POSIX, without.
template <typename Input>
std::size_t convert(std::size_t (*function)(iconv_t, Input**, std::size_t*, char**, std::size_t*),
                    iconv_t converter, std::string_view bytes, std::string& output,
                    std::size_t& room) {
  auto* source = const_cast<Input*>(bytes.data());
  std::size_t left = bytes.size();
  char* target = output.data();
  return function(converter, &source, &left, &target, &room);
}

} // namespace

std::string cleanedUtf8(std::string_view bytes) {
  auto* const opened = iconv_open("UTF-8", "UTF-8");
  if (reinterpret_cast<std::intptr_t>(opened) == -1) {
    return {};
  }
  const Converter converter(opened);
  int discard = 1;
  iconvctl(converter.get(), ICONV_SET_DISCARD_ILSEQ, &discard);
  std::string output(bytes.size(), '\0');
  std::size_t room = output.size();
  if (isFailure(convert(iconv, converter.get(), bytes, output, room))) {
    return {};
  }
  output.resize(output.size() - room);
  return output;
}

} // namespace cardwright
