// KIND FILE: makes the manual page or the completions of a shell.

#include "pages/pages.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <string>

int main(int count, char** arguments) {
  using namespace cardwright::tool;
  using Maker = std::string (*)(const std::vector<CommandRow>&);
  const std::map<std::string, Maker> makers = {{"man", manualPage},
                                               {"bash", bashCompletion},
                                               {"zsh", zshCompletion},
                                               {"fish", fishCompletion}};
  const auto maker = count == 3 ? makers.find(arguments[1]) : makers.end();
  if (maker == makers.end()) {
    static_cast<void>(std::fputs("usage: cardwright_make_page man|bash|zsh|fish FILE\n", stderr));
    return 2;
  }
  std::ofstream file(arguments[2], std::ios::binary);
  file << maker->second(commandTable());
  return file.flush() ? 0 : 1;
}
