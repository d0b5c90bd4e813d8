#include "reader/card_reader.h"

#include "base/case.h"
#include "base/large_memory.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vocabulary.h"
#include "model/stated_version.h"
#include "reader/content_line.h"
#include "reader/line_scanner.h"
#include "reader/merged_lines.h"
#include "reader/numeric_entities.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace cardwright {

namespace {

VersionCode versionCode(std::uint64_t stated) noexcept {
  return static_cast<VersionCode>(
      std::min<std::uint64_t>(stated, std::numeric_limits<VersionCode>::max()));
}

bool isPartOf(TextView part, TextView text) noexcept {
  return std::greater_equal<>()(part.data(), text.data()) &&
         std::less<>()(part.data(), text.data() + text.size());
}

/// Whether the line is the boundary, blanks around it aside. No letter beyond ASCII folds to one
/// of a boundary.
bool isBoundary(TextView line, TextView boundary) {
  if (line.size() < boundary.size() ||
      (asciiUpper(line.front()) != boundary.front() && !isWhitespace(line.front()))) {
    return false;
  }
  const TextView bare = trimWhitespace(line);
  return bare.size() == boundary.size() && equalIgnoringCase(bare, boundary);
}

/// The version of a line that is nothing but the name and a plain text, as nearly all are.
std::optional<std::uint64_t> plainlyStatedVersion(TextView line) {
  constexpr TextView kHeader = u"VERSION:";
  if (!line.starts_with(kHeader) || line.find(u'\\') != TextView::npos) {
    return std::nullopt;
  }
  const TextView text = line.substr(kHeader.size());
  const bool isOrdinary = text.size() == 3 && isAsciiDigit(text[0]) && text[1] == u'.';
  return isOrdinary ? static_cast<std::uint64_t>(text[0] - u'0') : versionStatedBy(text);
}

} // namespace

/// What is known of a card while its lines are read.
class CardAssembly {
 public:
  /// @param store null where no card is wanted
  CardAssembly(const std::shared_ptr<detail::LineStore>& store, ReadRecorder& recorder)
      : m_store(store), m_first(store != nullptr ? store->lines.size() : 0), m_recorder(recorder) {}

  /// Takes one content line; true when it ends the card.
  bool take(TextView line, std::size_t offset) {
    if (!m_hasCard) {
      m_hasCard = isBoundary(line, cVCardComponent_BEGINVCARD);
      if (m_hasCard) {
        return false;
      }
      if (trimWhitespace(line).empty() || line.find(u':') == TextView::npos) {
        m_recorder.lineDropped(DropReason::outsideCard, offset, line);
        return false;
      }
      m_hasCard = true;
    }
    if (isBoundary(line, cVCardComponent_ENDVCARD)) {
      return true;
    }
    ContentLineCheck check = checkContentLine(line);
    std::uint64_t version = 0;
    if (check.reason == DropReason::none && check.isVersion) {
      check.reason = readVersion(line, version);
    }
    if (check.reason != DropReason::none) {
      m_recorder.lineDropped(check.reason, offset, line);
      return false;
    }
    keepProperty(line, version);
    return false;
  }

  /// The same for a line of which it is known what it is.
  bool take(const SimpleLine& simple, TextView line) {
    if (simple.kind() == SimpleLine::Kind::property && m_hasCard) {
      keepProperty(line, 0);
      return false;
    }
    if (simple.kind() == SimpleLine::Kind::cardBegin && !m_hasCard) {
      m_hasCard = true;
      return false;
    }
    if (simple.kind() == SimpleLine::Kind::cardEnd && m_hasCard) {
      return true;
    }
    return take(line, simple.begin());
  }

  /// The finished card, or null when none was begun or is wanted.
  std::shared_ptr<VCard> finish() {
    if (!m_hasCard) {
      return nullptr;
    }
    m_recorder.cardRead();
    if (m_store == nullptr) {
      return nullptr;
    }
    auto card = std::make_shared<VCard>();
    card->m_lines = {.store = m_store,
                     .first = m_first,
                     .count = m_count,
                     .countBeforeVersion = m_countBeforeVersion,
                     .version = m_version,
                     .changes = &m_store->changes.add(),
                     .arena = nullptr};
    card->m_isUnread.store(true, std::memory_order_relaxed);
    return card;
  }

 private:
  DropReason readVersion(TextView line, std::uint64_t& version) const {
    if (const std::optional<std::uint64_t> stated = plainlyStatedVersion(line)) {
      version = *stated;
      return DropReason::none;
    }
    VCardProperty property;
    DateFormatter formatter("en_US_POSIX");
    const DropReason reason = ContentLineParser(m_version, &formatter).parse(line, property);
    version = property.versionValue();
    return reason;
  }

  /// @param version what a VERSION property states, otherwise 0
  void keepProperty(TextView line, std::uint64_t version) {
    ++m_count;
    if (m_store != nullptr) {
      const bool isPart = isPartOf(line, m_store->text);
      m_store->lines.push_back(isPart ? line : m_store->copies.emplace_front(line));
    }
    if (m_version == 0) {
      m_version = versionCode(version);
      m_countBeforeVersion = m_count;
    }
    m_recorder.propertyRead();
  }

  const std::shared_ptr<detail::LineStore>& m_store;
  std::size_t m_first;
  std::size_t m_count = 0; ///< of the properties
  bool m_hasCard = false;
  VersionCode m_version = 0;
  std::size_t m_countBeforeVersion = 0;
  ReadRecorder& m_recorder;
};

namespace {

/// Moves behind a simple line, without a look at the text where the next one is simple, too.
/// @returns false where the line goes on
bool stepOver(const SimpleLine& line, const SimpleLineCursor& simpleLines, LineScanner& lines) {
  if (simpleLines.isNextBehindLineEnd()) {
    lines.setLocation(simpleLines.beginOfNext());
    return true;
  }
  return lines.stepOver(line.end());
}

/// Reads the next card line by line into the store.
/// @param text  what the lines are scanned from
/// @param store null where no card is wanted
std::shared_ptr<VCard> readLines(LineScanner& lines, TextView text, SimpleLineCursor& simpleLines,
                                 const std::shared_ptr<detail::LineStore>& store,
                                 ReadRecorder& recorder) {
  CardAssembly assembly(store, recorder);
  LogicalLine line{};
  std::vector<TextView> candidates;
  bool isFinished = false;
  while (!isFinished) {
    const SimpleLine* const simple = simpleLines.at(lines.location());
    if (simple != nullptr && stepOver(*simple, simpleLines, lines)) {
      isFinished = assembly.take(*simple, text.substr(simple->begin(), simple->size()));
      continue;
    }
    if (!lines.next(line)) {
      break;
    }
    const std::optional<Text> decoded =
        line.hasAmpersand ? decodedNumericEntities(line.text) : std::nullopt;
    cutMergedLine(decoded ? TextView(*decoded) : line.text, candidates);
    for (const TextView candidate : candidates) {
      if (isFinished) {
        recorder.lineDropped(DropReason::afterEnd, line.begin, candidate);
      } else {
        isFinished = assembly.take(candidate, line.begin);
      }
    }
  }
  return assembly.finish();
}

std::size_t skipBlanks(TextView text, std::size_t location) noexcept {
  while (location < text.size() && isWhitespaceOrNewline(text[location])) {
    ++location;
  }
  return location;
}

} // namespace

std::shared_ptr<VCard> readCard(TextView text, std::size_t& location, ReadingParties parties) {
  const std::size_t start = location;
  LineScanner lines(text, skipBlanks(text, start));
  SimpleLineCursor none({});
  std::shared_ptr<VCard> card =
      readLines(lines, text, none, std::make_shared<detail::LineStore>(), *parties.recorder);
  location = lines.location();
  if (parties.contactsParser != nullptr && location > start && location <= text.size()) {
    VCard::updateVCardUsingCNContactSerializer(card, text.substr(start, location - start),
                                               parties.contactsParser);
  }
  return card;
}

VCardList readAllCards(const std::shared_ptr<detail::LineStore>& store, ReadingParties parties,
                       const SimpleLines& simpleLines) {
  VCardList cards;
  reserveLarge(store->lines, simpleLines.lines().size());
  SimpleLineCursor known(simpleLines.lines());
  const std::size_t size = store->text.size();
  std::size_t location = 0;
  while (location < size) {
    const std::size_t before = location;
    std::shared_ptr<VCard> card;
    if (parties.contactsParser == nullptr) {
      LineScanner lines = LineScanner::inPlace(store->text, skipBlanks(store->text, location));
      card = readLines(lines, store->text, known, store, *parties.recorder);
      location = lines.location();
    } else {
      // The other parser sees the card's text as it is.
      card = readCard(store->text, location, parties);
    }
    if (card != nullptr) {
      cards.push_back(std::move(card));
    }
    if (location == before) {
      ++location;
    }
  }
  return cards;
}

void countAllCards(Text& text, ReadRecorder& recorder, const SimpleLines& simpleLines) {
  SimpleLineCursor known(simpleLines.lines());
  for (std::size_t location = 0; location < text.size();) {
    const std::size_t before = location;
    LineScanner lines = LineScanner::inPlace(text, skipBlanks(text, location));
    static_cast<void>(readLines(lines, text, known, nullptr, recorder));
    location = std::max(lines.location(), before + 1);
  }
}

std::shared_ptr<VCard> VCard::vCardFromScanner(TextScanner* scanner,
                                               ContactsParser* contactsParser) {
  if (scanner == nullptr) {
    return nullptr;
  }
  ReadRecorder recorder(nullptr);
  std::size_t location = scanner->scanLocation();
  std::shared_ptr<VCard> card = readCard(scanner->string(), location, {&recorder, contactsParser});
  scanner->setScanLocation(location);
  return card;
}

} // namespace cardwright
