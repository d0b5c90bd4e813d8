#include "serve/answers.h"

#include "json/json_text.h"
#include "report/repair_cards.h"
#include "serve/comparison.h"
#include "serve/listing.h"
#include "text/printable.h"
#include "view/card_view.h"

#include <cardwright/check.h>
#include <cardwright/codes.h>
#include <cardwright/face.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace cardwright::tool {

namespace {

// What a browser can show without stumbling.
constexpr std::size_t kMostItems = 10'000;
constexpr std::size_t kMostRows = 500;   ///< of a card
constexpr std::size_t kMostUnits = 4000; ///< of a text

std::string_view wordsFor(CleaningRepairKind kind) {
  switch (kind) {
  case CleaningRepairKind::separators:
    return "Line ends were written twice, all over the file";
  case CleaningRepairKind::softBreak:
    return "A line was torn in two; it is one again";
  case CleaningRepairKind::memberEntities:
    return "Members of a group stood on one line";
  case CleaningRepairKind::noteExtraction:
    return "Something else was stuck to the end of a note";
  case CleaningRepairKind::noteEntities:
    return "Line breaks in a note were written as codes";
  case CleaningRepairKind::mergedProperties:
    return "Several entries stood on one line";
  case CleaningRepairKind::danglingFragment:
    return "A torn-off piece of another entry stood at the end";
  case CleaningRepairKind::duplicate:
    return "An entry stood there twice";
  }
  return "Something was damaged";
}

/// A text with line ends, in which nothing can hide.
Text shownText(TextView text) {
  Text shown;
  bool isFirst = true;
  for (const TextView line : linesOf(text)) {
    shown.append(isFirst ? u"" : u"\n").append(printable(line));
    isFirst = false;
  }
  const bool isEnded = text.ends_with(u'\n') || text.ends_with(u'\r');
  return isEnded ? shown.append(u"\n") : shown;
}

Text shortText(TextView text) {
  return shownText(beginningOf(text, kMostUnits));
}

void writeExcerpt(JsonText& json, std::string_view name, const Excerpt& excerpt) {
  json.key(name);
  json.writer().StartObject();
  json.text("lead", shownText(excerpt.lead));
  json.text("changed", shownText(excerpt.changed));
  json.text("trail", shownText(excerpt.trail));
  json.writer().EndObject();
}

void writeRepairs(JsonText& json, const std::vector<CleaningRepair>& repairs,
                  const std::vector<std::size_t>& cards) {
  Listing listing(json, "repairs", kMostItems);
  for (std::size_t at = 0; at < repairs.size(); ++at) {
    if (!listing.takes()) {
      continue;
    }
    const CleaningRepair& repair = repairs[at];
    Text after;
    for (const Text& line : repair.replacement) {
      after.append(after.empty() ? u"" : u"\n").append(line);
    }
    const Comparison comparison = compared(repair.originalLine, after);
    json.writer().StartObject();
    json.string("code", codeOf(repair.kind));
    json.string("what", wordsFor(repair.kind));
    json.number("card", cards[at]);
    json.number("line", repair.place.line);
    writeExcerpt(json, "before", comparison.before);
    writeExcerpt(json, "after", comparison.after);
    json.writer().EndObject();
  }
}

void writeCleaning(JsonText& json, std::string_view bytes) {
  CleanReport report;
  static_cast<void>(cleanText(bytes, &report));
  json.string("encoding", report.decoding.encoding);
  json.number("droppedBytes", report.decoding.droppedBytes);
  if (report.foreignLine) {
    json.key("foreignLine");
    json.writer().StartObject();
    json.number("line", report.foreignLine->place.line);
    json.text("text", shortText(textFromUtf8(report.foreignLine->text)));
    json.writer().EndObject();
  }
  writeRepairs(json, report.repairs,
               cardsOfRepairs(bytes, report.decoding.encoding, report.repairs));
}

void writeRow(JsonText& json, const CardRow& row) {
  json.writer().StartObject();
  json.text("label", shortText(row.label));
  json.text("value", shortText(row.value));
  json.key("remarks");
  json.writer().StartArray();
  for (const Text& remark : row.remarks) {
    json.element(shortText(remark));
  }
  json.writer().EndArray();
  json.key("isBookkeeping");
  json.writer().Bool(row.isBookkeeping);
  json.writer().EndObject();
}

void writeViews(JsonText& json, const VCardList& cards) {
  CardNames names(cards);
  Listing listing(json, "cards", kMostItems);
  for (const auto& card : cards) {
    if (!listing.takes()) {
      continue;
    }
    const CardView view = viewOfCard(*card, names);
    json.writer().StartObject();
    json.text("name", shortText(view.name));
    json.text("species", shortText(view.species));
    {
      Listing rows(json, "rows", kMostRows);
      for (const CardRow& row : view.rows) {
        if (rows.takes()) {
          writeRow(json, row);
        }
      }
    }
    json.writer().EndObject();
  }
}

void writeReading(JsonText& json, std::string_view bytes) {
  ReadReport report;
  const VCardList cards = readCards(bytes, &report);
  writeViews(json, cards);
  Listing listing(json, "unusedLines", kMostItems);
  for (const DroppedLine& line : report.droppedLines) {
    if (listing.takes()) {
      json.writer().StartObject();
      json.number("line", line.place.line);
      json.string("reason", dropReasonText(line.reason));
      json.text("text", shortText(textFromUtf8(line.text)));
      json.writer().EndObject();
    }
  }
}

void writeFindings(JsonText& json, std::string_view bytes) {
  Listing listing(json, "findings", kMostItems);
  for (const Finding& finding : checkText(bytes)) {
    if (listing.takes()) {
      json.writer().StartObject();
      json.number("line", finding.place.line);
      json.number("column", finding.column);
      json.string("severity", finding.severity == Severity::error ? "error" : "warning");
      json.string("code", finding.code);
      json.text("text", shortText(textFromUtf8(finding.text)));
      json.number("count", finding.count);
      json.writer().EndObject();
    }
  }
}

/// What became of one card.
struct ConvertedCard {
  std::size_t number = 0; ///< counted from 1
  std::string bytes;
  ConversionReport conversion;
  WriteReport writing;
};

/// Converts card by card and lets each go then, so that no more than one is there twice.
void forEachConverted(VCardList cards, VersionCode version,
                      const std::function<void(const ConvertedCard&)>& use) {
  std::size_t number = 0;
  for (std::shared_ptr<VCard>& card : cards) {
    ConvertedCard converted{++number, {}, {}, {}};
    converted.bytes = writeCards(convertCards({card}, version, &converted.conversion),
                                 &converted.writing, {version});
    use(converted);
    card.reset();
  }
}

std::string_view wordsFor(ConversionKind kind) {
  switch (kind) {
  case ConversionKind::renamed:
    return "Under another name now";
  case ConversionKind::reencoded:
    return "Written in the way of this version";
  case ConversionKind::parked:
    return "Kept under a name that begins with X-, from where converting back returns it";
  case ConversionKind::restored:
    return "Brought back from where an earlier conversion had kept it";
  case ConversionKind::dropped:
    return "Left out, for this version has no place for it";
  case ConversionKind::added:
    return "Added, for this version asks for it";
  case ConversionKind::broken:
    return "Damaged, and so left as it is";
  }
  return "Changed";
}

/// What conversions and writing have to tell alike.
struct Change {
  std::string_view code;
  std::string_view what;
  bool isLoss;
  const std::string& property;
  const std::string& text;
};

void beginChange(JsonText& json, std::size_t card, const Change& change) {
  json.writer().StartObject();
  json.number("card", card);
  json.string("code", change.code);
  json.string("what", change.what);
  json.key("isLoss");
  json.writer().Bool(change.isLoss);
  json.text("property", shortText(textFromUtf8(change.property)));
  json.text("text", shortText(textFromUtf8(change.text)));
}

bool isLoss(const ConversionChange& change) {
  return change.kind == ConversionKind::dropped || change.kind == ConversionKind::broken;
}

bool isLoss(const WriteChange& change) {
  return change.kind != WriteChangeKind::encodingLeftOut &&
         change.kind != WriteChangeKind::valueStated &&
         change.kind != WriteChangeKind::repeatLeftOut;
}

void writeConversion(JsonText& json, std::size_t card, const ConversionChange& change) {
  beginChange(
      json, card,
      {codeOf(change.kind), wordsFor(change.kind), isLoss(change), change.property, change.text});
  json.text("part", shortText(textFromUtf8(change.part)));
  json.text("target", shortText(textFromUtf8(change.target)));
  json.writer().EndObject();
}

void writeWriting(JsonText& json, std::size_t card, const WriteChange& change) {
  std::string what(isLoss(change) ? "Cannot be written as it is: "
                                  : "Written so that it reads the same: ");
  what.append(writeChangeText(change.kind));
  beginChange(json, card,
              {codeOf(change.kind), what, isLoss(change), change.property, change.text});
  json.writer().EndObject();
}

/// @returns how much cannot come along as it is
std::size_t writeChanges(JsonText& json, VCardList cards, VersionCode version) {
  std::size_t losses = 0;
  Listing listing(json, "changes", kMostItems);
  forEachConverted(std::move(cards), version, [&](const ConvertedCard& card) {
    for (const ConversionChange& change : card.conversion.changes) {
      losses += isLoss(change) ? 1 : 0;
      if (listing.takes()) {
        writeConversion(json, card.number, change);
      }
    }
    for (const WriteChange& change : card.writing.changes) {
      losses += isLoss(change) ? 1 : 0;
      if (listing.takes()) {
        writeWriting(json, card.number, change);
      }
    }
  });
  return losses;
}

} // namespace

std::string lookAnswer(std::string_view bytes) {
  JsonText json;
  json.writer().StartObject();
  writeCleaning(json, bytes);
  writeReading(json, bytes);
  writeFindings(json, bytes);
  json.writer().EndObject();
  return json.line();
}

std::string changesAnswer(std::string_view bytes, VersionCode version) {
  JsonText json;
  json.writer().StartObject();
  ReadReport reading;
  VCardList cards = readCards(bytes, &reading);
  const std::size_t losses = writeChanges(json, std::move(cards), version);
  json.number("losses", losses);
  json.number("unusedLines", reading.droppedLines.size());
  json.writer().EndObject();
  return json.line();
}

std::string resultAnswer(std::string_view bytes, std::optional<VersionCode> version) {
  std::string result;
  if (version) {
    forEachConverted(readCards(bytes), *version,
                     [&](const ConvertedCard& card) { result.append(card.bytes); });
    return result;
  }
  const std::optional<std::string> cleaned = cleanText(bytes);
  result = cleaned ? *cleaned : std::string(bytes);
  if (cleaned && !result.ends_with('\n')) {
    result.append("\r\n");
  }
  return result;
}

} // namespace cardwright::tool
