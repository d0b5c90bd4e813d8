#include "io/text_source.h"

#include "io/input.h"
#include "io/repair_notes.h"
#include "report/repair_cards.h"
#include "text/card_pieces.h"

#include <cardwright/utf8.h>

#include <utility>

namespace cardwright::tool {

namespace {

constexpr const char* kUtf8 = "UTF-8";

/// The bytes as sound UTF-8. What is that already is not copied.
std::string decoded(std::string bytes, const std::optional<std::string>& encoding,
                    DecodingReport& report) {
  const std::optional<Text> text = decodeFile(bytes, encoding, &report);
  const bool isSound = report.encoding == kUtf8 && report.droppedBytes == 0 &&
                       report.tornCharacters == 0 && !bytes.starts_with("\xEF\xBB\xBF");
  return isSound ? std::move(bytes) : utf8FromText(text.value_or(Text()));
}

TextFile textFile(const std::string& path, std::string bytes, const ReadOptions& options) {
  TextFile file{path, {}, {}, {}, {}};
  CleanReport& report = file.report;
  std::optional<std::string> cleaned;
  if (options.clean) {
    cleaned = cleanText(bytes, &report, options.encoding);
  }
  if (!cleaned) {
    file.text = decoded(std::move(bytes), options.encoding, report.decoding);
    return file;
  }
  file.before = countHeld(bytes, report.decoding.encoding);
  file.cardsOfRepairs = cardsOfRepairs(bytes, report.decoding.encoding, report.repairs);
  file.text = std::move(*cleaned);
  return file;
}

} // namespace

void forEachTextFile(const ReadingOptions& options, Diagnostics& diagnostics,
                     const std::function<bool(TextFile&)>& use) {
  for (const std::string& path : options.inputs()) {
    std::optional<std::string> bytes = readFile(path, diagnostics);
    if (!bytes) {
      continue;
    }
    diagnostics.progress().begin(options.read.clean ? "repairing" : "reading");
    TextFile file = textFile(path, std::move(*bytes), options.read);
    diagnostics.progress().end();
    noteRepairs(path, file.report, diagnostics);
    if (!use(file)) {
      return;
    }
  }
}

bool forEachPiece(const TextFile& file, std::string_view doing, Progress& progress,
                  const std::function<bool(const TextPiece&)>& use) {
  ReadOptions asItIs;
  asItIs.encoding = kUtf8;
  asItIs.clean = false;
  progress.begin(doing, file.text.size());
  CardPieces pieces(file.text);
  std::string_view piece;
  bool goesOn = true;
  while (goesOn && pieces.next(piece)) {
    TextPiece made{withAlikeLineEnds(piece), {}, 0};
    HeldCounts held;
    ReadReport report;
    made.cards = readCards(made.text, &report, asItIs);
    held.add(report);
    made.properties = held.properties;
    if (!made.cards.empty() && !pieces.endsCard()) {
      made.text += "END:VCARD\r\n"; // Else it would swallow what follows.
    }
    goesOn = use(made);
    progress.show(pieces.position());
  }
  progress.end();
  return goesOn;
}

} // namespace cardwright::tool
