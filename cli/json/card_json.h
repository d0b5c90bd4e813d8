#pragma once

#include "io/output.h"

#include <cardwright/vcard.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// Writes cards as one JSON object, card by card; docs/json.md tells its form.
class CardJsonWriter {
 public:
  CardJsonWriter(const CardJsonWriter&) = delete;
  CardJsonWriter& operator=(const CardJsonWriter&) = delete;
  virtual ~CardJsonWriter() = default;

  virtual void writeCard(std::string_view file, const VCard& card) = 0;
  /// Keeps what was repaired in a file until the end.
  virtual void addRepairs(std::string_view file, const std::vector<std::string>& summaries) = 0;
  /// Writes the repairs and closes the object.
  virtual void finish() = 0;

 protected:
  CardJsonWriter() = default;
};

/// @param output outlives the writer
[[nodiscard]] std::unique_ptr<CardJsonWriter> makeCardJsonWriter(Output& output, bool isPretty);

} // namespace cardwright::tool
