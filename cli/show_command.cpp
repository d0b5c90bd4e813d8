#include "command_options.h"
#include "commands.h"
#include "io/card_source.h"
#include "io/input.h"
#include "io/terminal.h"
#include "output_options.h"
#include "reading_options.h"
#include "view/card_printer.h"

#include <memory>
#include <string>

namespace cardwright::tool {

namespace {

struct ShowOptions {
  ReadingOptions reading;
  ColorWish color = ColorWish::automatic;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright show contacts.vcf\n"
    "  cardwright show family.vcf friends.vcf\n"
    "  cardwright show --color=always contacts.vcf | less -R\n"
    "  cardwright show --encoding=windows-1252 old-phone.vcf\n"
    "  curl -s https://example.org/me.vcf | cardwright show\n"
    "\n"
    "Colour is used on a terminal, unless NO_COLOR is set in the environment. What a\n"
    "card holds can never steer the terminal: control characters are shown.";

ColorWish colorWish(const std::string& word) {
  if (word == "auto") {
    return ColorWish::automatic;
  }
  if (word == "always") {
    return ColorWish::always;
  }
  if (word == "never") {
    return ColorWish::never;
  }
  throw WrongUsage("--color", "'" + word + "' is not auto, always or never");
}

void show(const ShowOptions& options, const Session& session) {
  Output& output = session.output;
  CardPrinter printer(output, {wantsColor(options.color, output.descriptor()),
                               terminalColumns(output.descriptor())});
  forEachCardFile(options.reading, session.diagnostics, [&](CardFile& file) {
    if (options.reading.files.size() > 1 && !file.cards.empty()) {
      printer.printFileName(displayName(file.path));
    }
    // Cards speak of each other by name, so all stay until the last is printed.
    CardNames names(file.cards);
    Progress& progress = session.diagnostics.progress();
    progress.begin("writing", file.cards.size());
    std::size_t number = 0;
    for (const auto& card : file.cards) {
      printer.print(viewOfCard(*card, names));
      if (!output.isOpen()) {
        return false;
      }
      progress.show(++number);
    }
    progress.end();
    return true;
  });
}

} // namespace

void addShowCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<ShowOptions>();
  Command command = app.addCommand("show", "Show cards as people read them", kExamples);
  addReadingOptions(command, options->reading);
  command.addOption(
      "--color", "WHEN", [options](const std::string& wish) { options->color = colorWish(wish); },
      "Colour the output: auto, always or never");
  addQuietFlag(command, session);
  command.setAction([options, session] { show(*options, session); });
}

} // namespace cardwright::tool
