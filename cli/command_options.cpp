#include "command_options.h"

#include <CLI/CLI.hpp>

namespace cardwright::tool {

namespace {

/// Heading of the commands in the help.
constexpr const char* kCommandGroup = "Commands";

} // namespace

Option& Option::required() {
  m_option->required();
  return *this;
}

Option& Option::valueOptional() {
  m_option->expected(0, 1)->default_str("");
  return *this;
}

Option& Option::excludes(const Option& other) {
  m_option->excludes(other.m_option);
  return *this;
}

Command Command::addCommand(const char* name, const char* description, const char* examples) {
  CLI::App* const command = m_command->add_subcommand(name, description);
  command->group(kCommandGroup);
  command->footer(examples);
  return Command(*command);
}

Option Command::addOption(const char* name, const char* valueName, std::string& value,
                          const char* description) {
  return Option(*m_command->add_option(name, value, description)->type_name(valueName));
}

Option Command::addOption(const char* name, const char* valueName, const TakeText& take,
                          const char* description) {
  return Option(*m_command->add_option_function(name, take, description)->type_name(valueName));
}

Option Command::addFlag(const char* name, bool& isGiven, const char* description) {
  return Option(*m_command->add_flag(name, isGiven, description));
}

Option Command::addFlag(const char* name, const Action& take, const char* description) {
  return Option(*m_command->add_flag_callback(name, take, description));
}

void Command::addFiles(std::vector<std::string>& files, const char* description) {
  m_command->add_option("FILE", files, description)->type_name("");
}

void Command::setAction(const Action& action) {
  m_command->callback(action);
}

} // namespace cardwright::tool
