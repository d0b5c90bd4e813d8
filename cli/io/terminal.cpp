#include "io/terminal.h"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cardwright::tool {

namespace {

std::string_view environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

} // namespace

bool wantsColor(ColorWish wish, int descriptor) {
  switch (wish) {
  case ColorWish::always:
    return true;
  case ColorWish::never:
    return false;
  case ColorWish::automatic:
    break;
  }
  return ::isatty(descriptor) != 0 && environment("NO_COLOR").empty() &&
         environment("TERM") != "dumb";
}

std::size_t terminalColumns(int descriptor) {
  constexpr std::size_t kUsual = 80;
  constexpr std::size_t kMost = 1000;

  winsize size{};
  if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    return size.ws_col;
  }
  const std::string_view wish = environment("COLUMNS");
  std::size_t columns = 0;
  const auto [end, error] = std::from_chars(wish.data(), wish.data() + wish.size(), columns);
  const bool isNumber = error == std::errc() && end == wish.data() + wish.size();
  return isNumber && columns > 0 && columns <= kMost ? columns : kUsual;
}

} // namespace cardwright::tool
