#include "allocations/counted_memory.h"
#include "cardwright/face.h"
#include "support/large_cards.h"
#include "support/written_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

namespace cardwright {
namespace {

using large_cards::card;
using large_cards::repeated;

struct File {
  std::string name;
  std::string bytes;
};

/// Files that make the most of each byte, and some that are only large.
std::vector<File> files() {
  constexpr std::size_t kCount = 50'000;
  std::vector<File> files = {
      {"empty values of a list", card(std::string("CATEGORIES:").append(repeated(kCount, ",")))},
      {"empty texts in a name", card(std::string("N:").append(repeated(kCount, ",")))},
      {"empty parts of an organisation", card(std::string("ORG:").append(repeated(kCount, ";")))},
      {"shortest properties", card(repeated(kCount, "A:\n"))},
      {"shortest properties with groups", card(repeated(kCount, "A.B:\n"))},
      {"shortest names", card(repeated(kCount, "N:\n"))},
      {"shortest addresses", card(repeated(kCount, "ADR:\n"))},
      {"shortest dates", card(repeated(kCount, "REV:\n"))},
      {"shortest parameters", card(std::string("A").append(repeated(kCount, ";B")).append(":"))},
      {"shortest cards", repeated(kCount, "BEGIN:VCARD\nEND:VCARD\n")},
      {"cards without a beginning", repeated(kCount, ":\n")},
      {"dropped lines", card(repeated(kCount, "A\n"))},
      {"lines outside of cards", repeated(kCount, "A\n\n")},
  };
  for (const LargeCard& large : kLargeCards) {
    files.push_back({large.name, large.make(kCount)});
  }
  for (const LargeCard& large : kBoundlessCards) {
    files.push_back({large.name, large.make(large.size / 5)});
  }
  return files;
}

/// The most memory that `work` has at once for each byte of a file.
template <typename Work>
double peakBytesPerByte(const File& file, Work work) {
  const std::size_t before = bytesInUse();
  static_cast<void>(takePeakBytes());
  work();
  return static_cast<double>(takePeakBytes() - before) / static_cast<double>(file.bytes.size());
}

TEST(ReadingMemory, isABoundedMultipleOfTheFile) {
  constexpr double kLimit = 128;
  double worst = 0;
  std::string worstName;
  for (const File& file : files()) {
    const double each = peakBytesPerByte(file, [&] {
      ReadReport report;
      static_cast<void>(readCards(file.bytes, &report));
    });
    EXPECT_LT(each, kLimit) << file.name;
    if (each > worst) {
      worst = each;
      worstName = file.name;
    }
  }
  std::cout << "most of all for " << worstName << ": " << worst << " bytes for each byte\n";
}

TEST(WritingMemory, isASmallMultipleOfWhatIsWritten) {
  constexpr double kLimit = 12;
  double worst = 0;
  for (const File& file : files()) {
    const VCardList cards = readCards(file.bytes);
    if (cards.empty()) {
      continue;
    }
    const std::size_t written = writtenBytes(cards).size();
    const double each = peakBytesPerByte(file, [&] { static_cast<void>(writtenBytes(cards)); });
    const double ofOutput =
        each * static_cast<double>(file.bytes.size()) / static_cast<double>(written);
    EXPECT_LT(ofOutput, kLimit) << file.name;
    worst = std::max(worst, ofOutput);
  }
  std::cout << "at most " << worst << " bytes for each byte written\n";
}

} // namespace
} // namespace cardwright
