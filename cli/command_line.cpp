#include "command_line.h"

#include "command_options.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright show contacts.vcf           the cards of a file, for people\n"
    "  cardwright json contacts.vcf           the same cards, for programs\n"
    "  cardwright write --to 3.0 contacts.vcf\n"
    "                                         the same cards, written anew\n"
    "  cardwright convert --to 4.0 contacts.vcf\n"
    "                                         the same people, on cards of a version\n"
    "  cardwright check contacts.vcf          what is wrong with them, line by line\n"
    "  cardwright count contacts.vcf          how many cards and properties there are\n"
    "  cardwright clean contacts.vcf          the same text, repaired\n"
    "  cardwright split -d people contacts.vcf\n"
    "                                         a file for each card\n"
    "  cardwright join -o all.vcf people/*.vcf\n"
    "                                         one file of many\n"
#ifdef CARDWRIGHT_HAS_SERVE
    "  cardwright serve                       all this on a page, in a browser\n"
#endif
    "  unzip -p backup.zip a.vcf | cardwright show\n"
    "                                         without a file, standard input is read\n"
    "  cardwright show --help                 more about one command\n"
    "\n"
    "Exit status: 0 done, 1 a file could not be read or written, 2 wrong usage, 3\n"
    "'check' or 'clean --check' found something.";

/// Where to read on: the page of help of the command that was meant.
std::string helpHint(const CLI::App& app) {
  std::string command = "cardwright";
  for (const CLI::App* const subcommand : app.get_subcommands()) {
    command += " " + subcommand->get_name();
  }
  return "; see '" + command + " --help'";
}

/// What is wrong with the command line, in our words where they are clearer.
std::string usageProblem(const CLI::App& app, const std::exception& error) {
  const bool hasCommand = !app.get_subcommands().empty();
  const std::vector<std::string> unexpected = app.remaining(true);
  if (unexpected.empty()) {
    return hasCommand ? error.what() : "no command given";
  }
  const std::string& word = unexpected.front();
  if (word.starts_with('-')) {
    return "there is no option '" + word + "'";
  }
  return hasCommand ? error.what() : "there is no command '" + word + "'";
}

} // namespace

std::unique_ptr<CLI::App> makeCommandLine(const Session& session) {
  auto made = std::make_unique<CLI::App>(
      "Cardwright reads, repairs and writes vCards of every version.", "cardwright");
  CLI::App& app = *made;
  app.set_version_flag("--version", "cardwright " CARDWRIGHT_TOOL_VERSION, "Print the version");
  app.set_help_flag("-h,--help", "Print this help");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Positionals", "Arguments");
  app.footer(kExamples);
  app.require_subcommand(1);
  Command commands(app);
  addShowCommand(commands, session);
  addJsonCommand(commands, session);
  addWriteCommand(commands, session);
  addConvertCommand(commands, session);
  addCheckCommand(commands, session);
  addCountCommand(commands, session);
  addCleanCommand(commands, session);
  addSplitCommand(commands, session);
  addJoinCommand(commands, session);
#ifdef CARDWRIGHT_HAS_SERVE
  addServeCommand(commands, session);
#endif
  return made;
}

void runCommandLine(int argc, char** argv, const Session& session) {
  const auto app = makeCommandLine(session);
  const auto tellWrongUsage = [&](const std::exception& error) {
    session.diagnostics.wrongUsage(usageProblem(*app, error) + helpHint(*app));
  };
  try {
    app->parse(argc, argv);
  } catch (const CLI::CallForVersion&) {
    session.output.write(app->version());
    session.output.put('\n');
  } catch (const CLI::Success&) {
    session.output.write(app->help());
  } catch (const CLI::Error& error) {
    tellWrongUsage(error);
  } catch (const WrongUsage& error) {
    tellWrongUsage(error);
  }
}

} // namespace cardwright::tool
