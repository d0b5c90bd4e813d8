#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace cardwright::tool {

/// Thrown while the command line is read or a command runs: an option makes no sense as given.
class WrongUsage : public std::runtime_error {
 public:
  WrongUsage(const std::string& option, const std::string& problem)
      : std::runtime_error(option + ": " + problem) {}
};

/// An option of a command.
class Option {
 public:
  /// @param option outlives this
  explicit Option(CLI::Option& option) noexcept : m_option(&option) {}

  Option& required();
  /// The value, which may then be left out, is given behind "=".
  Option& valueOptional();
  /// Not both can be given.
  Option& excludes(const Option& other);

 private:
  CLI::Option* m_option;
};

/// A command, or the whole command line that has them. This keeps the library that reads command
/// lines, which takes long to compile, away from the commands.
///
/// Options are named with their dashes, "-o,--output". What takes a value outlives the command
/// line.
class Command {
 public:
  using TakeText = std::function<void(const std::string&)>;
  using Action = std::function<void()>;

  /// @param command outlives this
  explicit Command(CLI::App& command) noexcept : m_command(&command) {}

  /// @param examples and what else is said below its options
  Command addCommand(const char* name, const char* description, const char* examples);

  Option addOption(const char* name, const char* valueName, std::string& value,
                   const char* description);
  /// @param take may throw WrongUsage
  Option addOption(const char* name, const char* valueName, const TakeText& take,
                   const char* description);
  Option addFlag(const char* name, bool& isGiven, const char* description);
  Option addFlag(const char* name, const Action& take, const char* description);
  /// Adds what is named without an option.
  void addFiles(std::vector<std::string>& files, const char* description);

  /// Says what it does when the command line has been read; that may throw WrongUsage.
  void setAction(const Action& action);

 private:
  CLI::App* m_command;
};

} // namespace cardwright::tool
