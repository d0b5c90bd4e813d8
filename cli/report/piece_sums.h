#pragma once

#include "io/text_source.h"
#include "report/report_json.h"
#include "report/sums.h"

#include <string>

namespace cardwright::tool {

/// Adds up what became of files whose texts are written piece by piece.
class PieceSums {
 public:
  void add(const TextPiece& piece) {
    m_written.cards += piece.cards.size();
    m_written.properties += piece.properties;
  }
  /// Ends a file.
  /// @param wantsReport whether each repair is to be reported
  void addFile(const TextFile& file, bool wantsReport);

  [[nodiscard]] const Sums& sums() const noexcept { return m_sums; }
  /// To be called once.
  [[nodiscard]] std::string report() { return m_json.finish(m_sums); }

 private:
  HeldCounts m_written; ///< of the file so far
  Sums m_sums;
  ReportJson m_json;
};

} // namespace cardwright::tool
