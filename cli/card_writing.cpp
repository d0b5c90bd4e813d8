#include "card_writing.h"

#include "command_options.h"
#include "io/card_source.h"
#include "io/input.h"
#include "io/repair_notes.h"
#include "report/repair_cards.h"
#include "report/report_json.h"
#include "version_name.h"

#include <map>
#include <optional>

namespace cardwright::tool {

namespace {

/// Writes the cards of one file after the other, each by itself, so that none waits for all.
class CardWriting {
 public:
  CardWriting(const WritingOptions& options, Output& output, Diagnostics& diagnostics)
      : m_options(options), m_output(output), m_diagnostics(diagnostics) {}

  /// @returns whether to go on
  bool write(CardFile& file) {
    if (wantsReport()) {
      m_json.addReading(file.path, file.report, file.cardsOfRepairs);
    }
    if (file.report.foreignLine) {
      m_diagnostics.note(displayName(file.path), foreignLineNote(*file.report.foreignLine));
    }
    std::size_t held = 0;
    const auto writeNext = [&](const std::shared_ptr<VCard>& card, std::size_t number) {
      held += writeCard(card, number, file.path);
      return m_output.isOpen();
    };
    if (!takeCards(file, "writing", m_diagnostics.progress(), writeNext)) {
      return false;
    }
    m_sums.addReading(file.report, held);
    m_sums.cardsRepaired += distinctCards(file.cardsOfRepairs);
    tellNotes(file.path);
    return true;
  }

  [[nodiscard]] const Sums& sums() const noexcept { return m_sums; }
  [[nodiscard]] std::string report() { return m_json.finish(m_sums); }

 private:
  struct Note {
    std::size_t count = 0;
    std::size_t card = 0;
    std::string property;
  };

  static std::size_t heldProperties(const VCard& card) {
    std::size_t held = 0;
    for (const auto& entry : card.propertyDict()) {
      held += entry.second->size();
    }
    return held;
  }

  /// @returns how many properties the card holds
  std::size_t writeCard(const std::shared_ptr<VCard>& card, std::size_t number,
                        const std::string& path) {
    VCardList cards{card};
    std::size_t held = 0;
    if (m_options.converts) {
      held = heldProperties(*card);
      ConversionReport conversion;
      cards = convertCards(cards, m_options.version, &conversion);
      m_sums.addConversion(conversion);
      if (wantsReport()) {
        m_json.addConversion(path, number, conversion);
      }
      noteLosses(number, conversion);
    }
    WriteReport writing;
    m_output.write(writeCards(cards, &writing, {m_options.version}));
    m_sums.addWriting(writing);
    if (wantsReport()) {
      m_json.addWriting(path, number, writing);
    }
    for (const WriteChange& change : writing.changes) {
      note(number, change.property, writeChangeText(change.kind));
    }
    // To ask the card would have all its lines read.
    return m_options.converts ? held : writing.properties;
  }

  /// What else a conversion did comes back, and is told in the report.
  void noteLosses(std::size_t number, const ConversionReport& report) {
    for (const ConversionChange& change : report.changes) {
      if (change.kind == ConversionKind::broken ||
          (change.kind == ConversionKind::dropped && change.part.empty())) {
        note(number, change.property, conversionKindText(change.kind));
      }
    }
  }

  void note(std::size_t number, const std::string& property, std::string_view text) {
    const auto [noted, isNew] = m_notes.try_emplace(text, Note{0, number, property});
    ++noted->second.count;
  }

  /// Tells of each kind of change once, where it was made first.
  void tellNotes(const std::string& path) {
    for (const auto& [text, note] : m_notes) {
      std::string message(text);
      message += note.count == 1 ? ": " : ", " + std::to_string(note.count) + " times: first ";
      message += note.property + " of card " + std::to_string(note.card);
      m_diagnostics.note(displayName(path), message);
    }
    m_notes.clear();
  }

  [[nodiscard]] bool wantsReport() const noexcept { return !m_options.output.reportFile.empty(); }

  const WritingOptions& m_options;
  Output& m_output;
  Diagnostics& m_diagnostics;
  Sums m_sums;
  ReportJson m_json;
  std::map<std::string_view, Note> m_notes; ///< of the file that is being written
};

VersionCode wantedVersion(const std::string& name) {
  const std::optional<VersionCode> version = versionNamed(name);
  if (!version) {
    throw WrongUsage("--to", "'" + name + "' is not 2.1, 3.0 or 4.0");
  }
  return *version;
}

} // namespace

void addWritingOptions(Command& command, WritingOptions& options, const char* versionHelp,
                       const Session& session) {
  addReadingOptions(command, options.reading);
  const auto takeVersion = [&](const std::string& name) { options.version = wantedVersion(name); };
  command.addOption("--to", "VERSION", takeVersion, versionHelp).required();
  addOutputFile(command, options.output);
  addReportOptions(command, options.output, session);
}

void writeAllCards(const WritingOptions& options, const Session& session) {
  Sums sums;
  std::string report;
  const bool isWritten = writeOutput(options.output, session, [&](Output& output) {
    CardWriting writing(options, output, session.diagnostics);
    forEachCardFile(options.reading, session.diagnostics,
                    [&](CardFile& file) { return writing.write(file); });
    sums = writing.sums();
    report = writing.report();
  });
  if (isWritten) {
    tellSums(options.output, session, report, sums.line());
  }
}

} // namespace cardwright::tool
