#pragma once

#include "report/sums.h"

#include <cardwright/face.h>

#include <memory>
#include <string>
#include <string_view>

namespace cardwright::tool {

/// Gathers the whole report of a command as JSON; docs/reports.md tells its form.
class ReportJson {
 public:
  ReportJson();
  ReportJson(const ReportJson&) = delete;
  ReportJson& operator=(const ReportJson&) = delete;
  ~ReportJson();

  void addReading(std::string_view file, const ReadReport& report);
  /// @param firstCard number of the first card of the report in its file, counted from 1
  void addConversion(std::string_view file, std::size_t firstCard, const ConversionReport& report);
  void addWriting(std::string_view file, std::size_t firstCard, const WriteReport& report);

  /// The report, with the sums at its end. To be called once.
  [[nodiscard]] std::string finish(const Sums& sums);

 private:
  class Writer;

  std::unique_ptr<Writer> m_writer;
};

} // namespace cardwright::tool
