// Reading with cleaning is reading what the cleaner makes of a text: the same cards, and told what
// the cleaner tells. A text is told to be repaired when, and only when, it was changed.

#include "demand.h"
#include "report_check.h"
#include "support/card_model.h"
#include "support/round_trip.h"

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace cardwright;

void demandEqual(const VCardList& expected, const VCardList& actual) {
  demand(expected.size() == actual.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const CardModel before = modelOf(*expected[i]);
    const CardModel after = modelOf(*actual[i]);
    if (before != after) {
      std::cerr << differences(before, after);
      std::abort();
    }
  }
}

/// Demands that what a report tells of cleaning is what the cleaner told.
void demandEqual(const VCardCleaner& cleaner, const ReadReport& report) {
  const TextList& summaries = cleaner.lastCleaningSummaries();
  demand(report.summaries.size() == summaries.size());
  for (std::size_t i = 0; i < summaries.size(); ++i) {
    demand(report.summaries[i] == utf8FromText(summaries[i]));
  }
  demand(report.repairs.size() == cleaner.lastRepairs().size());
  for (std::size_t i = 0; i < report.repairs.size(); ++i) {
    CleaningRepair repair = report.repairs[i];
    repair.place.line = cleaner.lastRepairs()[i].place.line; // The cleaner does not count lines.
    demand(repair == cleaner.lastRepairs()[i]);
  }
}

void demandEqual(const ReadReport& expected, const ReadReport& actual) {
  demand(expected.cards == actual.cards && expected.properties == actual.properties);
  demand(expected.droppedLines.size() == actual.droppedLines.size());
  for (std::size_t i = 0; i < expected.droppedLines.size(); ++i) {
    demand(expected.droppedLines[i].reason == actual.droppedLines[i].reason);
    demand(expected.droppedLines[i].text == actual.droppedLines[i].text);
  }
}

void readText(const Text& text) {
  VCardCleaner cleaner;
  const Text cleaned = cleaner.clean(text);
  const TextList before{u"not touched"};
  TextList summaries = before;
  const VCardList cards = VCard::vCardsFromString(text, &summaries).value();

  demand((cleaned != text) == cleaner.lastDidClean());
  demand(summaries == (cleaner.lastDidClean() ? cleaner.lastCleaningSummaries() : before));
  demandEqual(readUncleaned(cleaned), cards);
  const auto first = VCard::firstvCardFromString(text);
  demandEqual(first == nullptr ? VCardList{} : VCardList{first},
              cards.empty() ? VCardList{} : VCardList{cards.front()});
}

void readBytes(std::string_view bytes, const ReadOptions& options) {
  DecodingReport decoding;
  const Text text = decodeFile(bytes, options.encoding, &decoding).value();
  VCardCleaner cleaner;
  const Text cleaned = options.clean ? cleaner.clean(text) : text;

  ReadReport report;
  const VCardList cards = readCards(bytes, &report, options);
  checkReport(report, cards, options.clean);
  demand(report.decoding.encoding == decoding.encoding);
  demand(report.decoding.droppedBytes == decoding.droppedBytes);
  demandEqual(cleaner, report);
  demandEqual(readUncleaned(cleaned), cards);
  demandEqual(cards, readCards(bytes, nullptr, options));

  // The cleaned text as a file of its own. At the start of a file, U+FEFF is no text.
  const std::string utf8 = utf8FromText(cleaned);
  if (!cleaned.starts_with(u'\uFEFF')) {
    ReadReport again;
    demandEqual(cards, readCards(utf8, &again, {.encoding = "UTF-8", .clean = false}));
    demandEqual(report, again);
  }
  if (options.clean) {
    const std::optional<std::string> repaired = cleanText(bytes, nullptr, options.encoding);
    demand(repaired.has_value() == (cleaner.lastDidClean() || decoding.droppedBytes != 0));
    demand(!repaired || *repaired == utf8);
  }
}

/// Text in which halves of surrogate pairs stand for what is no UTF-8.
Text withLoneSurrogates(Text text) {
  bool isHigh = true;
  for (char16_t& unit : text) {
    if (unit == u'\uFFFD') {
      unit = isHigh ? u'\xD83D' : u'\xDE00';
      isHigh = !isHigh;
    }
  }
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Text text = textFromUtf8(bytes);
  readText(text);
  if (text.find(u'\uFFFD') != Text::npos) {
    readText(withLoneSurrogates(text));
  }
  demandEqual(VCard::vCardsFromString(text).value(), VCard::vCardsFromString(bytes));
  readBytes(bytes, {});
  readBytes(bytes, {.encoding = "windows-1252"});
  readBytes(bytes, {.encoding = std::nullopt, .clean = false});
  return 0;
}
