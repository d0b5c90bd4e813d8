#include "reader/card_reader.h"

#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vocabulary.h"
#include "reader/content_line.h"
#include "reader/line_scanner.h"
#include "reader/merged_lines.h"
#include "reader/numeric_entities.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace cardwright {

namespace {

VersionCode versionCode(std::uint64_t stated) noexcept {
  return static_cast<VersionCode>(
      std::min<std::uint64_t>(stated, std::numeric_limits<VersionCode>::max()));
}

/// What is known of a card while its lines are read.
class CardAssembly {
 public:
  explicit CardAssembly(ReadRecorder& recorder)
      : m_formatter("en_US_POSIX"), m_recorder(recorder) {}

  /// Takes one content line; true when it ends the card.
  bool take(TextView line, std::size_t offset) {
    const TextView bare = trimWhitespace(line);
    if (m_card == nullptr) {
      if (equalIgnoringCase(bare, cVCardComponent_BEGINVCARD)) {
        m_card = std::make_shared<VCard>();
        return false;
      }
      if (bare.empty() || line.find(u':') == TextView::npos) {
        m_recorder.lineDropped(DropReason::outsideCard, offset, line);
        return false;
      }
      m_card = std::make_shared<VCard>();
    }
    if (equalIgnoringCase(bare, cVCardComponent_ENDVCARD)) {
      return true;
    }
    auto property = std::make_shared<VCardProperty>();
    const DropReason reason = ContentLineParser(m_version, &m_formatter).parse(line, *property);
    if (reason != DropReason::none) {
      m_recorder.lineDropped(reason, offset, line);
      return false;
    }
    if (m_version == 0) {
      m_version = versionCode(property->versionValue());
    }
    m_card->addProperty(std::move(property));
    m_recorder.propertyRead();
    return false;
  }

  /// The finished card, or null when none was begun.
  std::shared_ptr<VCard> finish() {
    if (m_card != nullptr) {
      if (m_version == 0) {
        m_card->addProperty(VCardProperty::propertyForVersion(3));
      }
      m_recorder.cardRead();
    }
    return m_card;
  }

 private:
  std::shared_ptr<VCard> m_card;
  VersionCode m_version = 0;
  DateFormatter m_formatter;
  ReadRecorder& m_recorder;
};

} // namespace

std::shared_ptr<VCard> readCard(TextView text, std::size_t& location, ReadingParties parties) {
  const std::size_t start = location;
  while (location < text.size() && isWhitespaceOrNewline(text[location])) {
    ++location;
  }
  CardAssembly assembly(*parties.recorder);
  LineScanner lines(text, location);
  LogicalLine line{};
  std::vector<TextView> candidates;
  bool isFinished = false;
  while (!isFinished && lines.next(line)) {
    const std::optional<Text> decoded = decodedNumericEntities(line.text);
    cutMergedLine(decoded ? TextView(*decoded) : line.text, candidates);
    for (const TextView candidate : candidates) {
      if (isFinished) {
        parties.recorder->lineDropped(DropReason::afterEnd, line.begin, candidate);
      } else {
        isFinished = assembly.take(candidate, line.begin);
      }
    }
  }
  location = lines.location();
  std::shared_ptr<VCard> card = assembly.finish();
  if (parties.contactsParser != nullptr && location > start && location <= text.size()) {
    VCard::updateVCardUsingCNContactSerializer(card, text.substr(start, location - start),
                                               parties.contactsParser);
  }
  return card;
}

VCardList readAllCards(TextView text, ReadingParties parties) {
  VCardList cards;
  std::size_t location = 0;
  while (location < text.size()) {
    const std::size_t before = location;
    if (std::shared_ptr<VCard> card = readCard(text, location, parties)) {
      cards.push_back(std::move(card));
    }
    if (location == before) {
      ++location;
    }
  }
  return cards;
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
