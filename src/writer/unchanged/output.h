#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_property.h"

#include <string>
#include <string_view>

namespace cardwright {

/// What the lines of a card are appended to.
class CardOutput {
 public:
  CardOutput() = default;
  CardOutput(const CardOutput&) = delete;
  CardOutput& operator=(const CardOutput&) = delete;

  /// Appends physical lines of sound UTF-8, with their ends.
  virtual void append(std::string_view lines) = 0;
  /// Appends a content line of sound UTF-8, which takes several physical lines.
  virtual void appendFolded(std::string_view line) = 0;
  /// Appends what a property writes of itself.
  virtual void append(const VCardProperty& property, VersionCode version,
                      DateFormatter* formatter) = 0;
  /// Takes notice that a line is written decoded, without the encoding that it was read in.
  /// @param group empty for none
  /// @param name  upper-cased
  virtual void encodingLeftOut(TextView group, TextView name, TextView encoding) {
    static_cast<void>(group);
    static_cast<void>(name);
    static_cast<void>(encoding);
  }

 protected:
  ~CardOutput() = default;
};

class Utf8Output final : public CardOutput {
 public:
  explicit Utf8Output(std::string& output) noexcept : m_output(output) {}

  void append(std::string_view lines) override;
  void appendFolded(std::string_view line) override;
  void append(const VCardProperty& property, VersionCode version,
              DateFormatter* formatter) override;

 private:
  std::string& m_output;
};

class TextOutput final : public CardOutput {
 public:
  explicit TextOutput(Text& output) noexcept : m_output(output) {}

  void append(std::string_view lines) override;
  void appendFolded(std::string_view line) override;
  void append(const VCardProperty& property, VersionCode version,
              DateFormatter* formatter) override;

 private:
  Text& m_output;
};

} // namespace cardwright
