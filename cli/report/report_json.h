#pragma once

#include "report/sums.h"

#include <cardwright/face.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// Gathers the whole report of a command as JSON; docs/reports.md tells its form.
class ReportJson {
 public:
  ReportJson();
  ReportJson(const ReportJson&) = delete;
  ReportJson& operator=(const ReportJson&) = delete;
  ~ReportJson();

  /// @param cardsOfRepairs the number of its card for each repair
  void addReading(std::string_view file, const ReadReport& report,
                  const std::vector<std::size_t>& cardsOfRepairs);
  void addCleaning(std::string_view file, const CleanReport& report,
                   const std::vector<std::size_t>& cardsOfRepairs);
  /// @param firstCard number of the first card of the report in its file, counted from 1
  void addConversion(std::string_view file, std::size_t firstCard, const ConversionReport& report);
  void addWriting(std::string_view file, std::size_t firstCard, const WriteReport& report);

  /// The report, with the sums at its end. To be called once.
  [[nodiscard]] std::string finish(const Sums& sums);

 private:
  class Writer;

  void addForeignLine(std::string_view file, const std::optional<ForeignLine>& line);
  void addRepairs(std::string_view file, const DecodingReport& decoding,
                  const std::vector<CleaningRepair>& repairs,
                  const std::vector<std::size_t>& cardsOfRepairs);

  std::unique_ptr<Writer> m_writer;
};

} // namespace cardwright::tool
