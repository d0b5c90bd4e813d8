#pragma once

#include "cardwright/read_report.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Writes down what a reading call does, when somebody wants to know.
class ReadRecorder {
 public:
  explicit ReadRecorder(ReadReport* report) noexcept : m_report(report) {}

  void cardRead() noexcept {
    if (m_report != nullptr) {
      ++m_report->cards;
    }
  }
  void propertyRead() noexcept {
    if (m_report != nullptr) {
      ++m_report->properties;
    }
  }
  /// @param offset where the logical line begins that the text is, or is part of; what line number
  ///               that is, is found out by who wants to know, when all is read
  void lineDropped(DropReason reason, std::size_t offset, TextView text);

 private:
  ReadReport* m_report;
};

} // namespace cardwright
