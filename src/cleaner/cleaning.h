#pragma once

#include "base/simple_lines.h"
#include "cardwright/cleaning_repair.h"
#include "cardwright/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace cardwright {

/// Where the lines of a cleaned text were in the text before.
struct LineOrigin {
  std::size_t cleaned;  ///< where the line begins in the cleaned text
  std::size_t original; ///< where what it comes from began
};

/// What one run of the cleaner did.
struct Cleaning {
  std::optional<Text> text; ///< absent when the text needs nothing
  bool isEnvelope = false;  ///< whether the text was nothing but cards, and so was looked at
  TextList summaries;
  std::vector<CleaningRepair> repairs;
  std::vector<LineOrigin> origins; ///< one for each line of a text that was built anew
  std::int64_t totalLines = 0;
  std::int64_t repairedLines = 0;
};

/// Cleans a text: line ends, then lines one by one, then repeats of bookkeeping properties. A text
/// is read once where nothing has to be repaired, and a second time to write what was.
/// @param simpleLines receives the lines that the reader may take as they are, when nothing had to
///                    be repaired, and stays empty otherwise
[[nodiscard]] Cleaning clean(TextView text, SimpleLines* simpleLines = nullptr);

/// Makes places in the cleaned text places in the text that was cleaned.
/// @param offsets ascending
void translateToOriginal(const Cleaning& cleaning, TextView original,
                         std::span<std::size_t> offsets);

} // namespace cardwright
