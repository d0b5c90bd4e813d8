#include "command_options.h"
#include "commands.h"
#include "io/input.h"
#include "io/repair_notes.h"
#include "io/replacement.h"
#include "output_options.h"
#include "reading_options.h"
#include "report/repair_cards.h"
#include "report/report_json.h"
#include "text/unified_diff.h"

#include <cardwright/face.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

struct CleanOptions {
  ReadingOptions reading; ///< cleaned in any case
  OutputOptions output;
  std::optional<std::string> backupSuffix; ///< present for --in-place
  bool isDiff = false;
  bool isCheck = false;

  [[nodiscard]] bool isWriting() const noexcept { return !isDiff && !isCheck; }
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright clean contacts.vcf > repaired.vcf\n"
    "  cardwright clean --diff contacts.vcf       what would be changed\n"
    "  cardwright clean --in-place=.bak *.vcf     repair files, keep the old ones\n"
    "  cardwright clean --check contacts.vcf      only tell; status 3 when damaged\n"
    "\n"
    "A file that needs nothing is left byte for byte alone. Every repair is told on\n"
    "standard error.";

/// A file before and after.
struct CleanedFile {
  std::string path;
  std::string bytes;
  std::optional<std::string> cleaned;
  CleanReport report;
  ReadReport reading; ///< of what it holds afterwards, where that is asked for
};

/// Adds up what became of the files, where anybody wants to know.
class CleanSums {
 public:
  explicit CleanSums(const CleanOptions& options)
      : m_wantsSums(!options.output.isQuiet && options.isWriting()),
        m_wantsReport(!options.output.reportFile.empty()) {}

  [[nodiscard]] bool isCounting() const noexcept { return m_wantsSums || m_wantsReport; }

  void add(const CleanedFile& file, Progress& progress) {
    if (!isCounting()) {
      return;
    }
    progress.begin("counting");
    const CleanReport& report = file.report;
    const std::vector<std::size_t> cards =
        cardsOfRepairs(file.bytes, report.decoding.encoding, report.repairs);
    HeldCounts after;
    after.add(file.reading);
    const HeldCounts before =
        file.cleaned ? countHeld(file.bytes, report.decoding.encoding) : after;
    m_sums.addCleaning(before, after, report.repairs);
    m_sums.cardsRepaired += distinctCards(cards);
    if (m_wantsReport) {
      m_json.addCleaning(file.path, report, cards);
    }
    progress.end();
  }

  [[nodiscard]] const Sums& sums() const noexcept { return m_sums; }
  [[nodiscard]] std::string report() { return m_json.finish(m_sums); }

 private:
  bool m_wantsSums;
  bool m_wantsReport;
  Sums m_sums;
  ReportJson m_json;
};

/// @param isCounting whether it is to be told how much the file holds
std::optional<CleanedFile> cleanFile(const std::string& path, const CleanOptions& options,
                                     bool isCounting, Diagnostics& diagnostics) {
  std::optional<std::string> bytes = readFile(path, diagnostics);
  if (!bytes) {
    return std::nullopt;
  }
  diagnostics.progress().begin("repairing");
  CleanedFile file{path, std::move(*bytes), std::nullopt, {}, {}};
  file.cleaned = cleanText(file.bytes, &file.report, options.reading.read.encoding,
                           isCounting ? &file.reading : nullptr);
  if (file.cleaned && !file.cleaned->ends_with('\n')) {
    file.cleaned->append("\r\n");
  }
  diagnostics.progress().end();
  noteRepairs(path, file.report, diagnostics);
  if (file.cleaned && options.isCheck) {
    diagnostics.found();
  }
  return file;
}

/// Whether another text that follows would be glued to the last line.
/// @param text not empty
bool isOpenEnded(std::string_view text) {
  return text.back() != '\n' && text.back() != '\r';
}

/// Writes the cleaned files one after the other, or what would change in them.
void cleanTo(Output& output, const CleanOptions& options, CleanSums& sums,
             Diagnostics& diagnostics) {
  bool isOpen = false;
  for (const std::string& path : options.reading.inputs()) {
    const std::optional<CleanedFile> file =
        cleanFile(path, options, sums.isCounting(), diagnostics);
    if (!file) {
      continue;
    }
    if (options.isDiff && file->cleaned) {
      output.write(unifiedDiff(file->bytes, *file->cleaned, displayName(path)));
    }
    if (options.isWriting()) {
      const std::string& text = file->cleaned ? *file->cleaned : file->bytes;
      if (!text.empty()) {
        diagnostics.progress().begin("writing");
        output.write(isOpen ? "\r\n" : "");
        output.write(text);
        isOpen = isOpenEnded(text);
        diagnostics.progress().end();
      }
      if (!output.isOpen()) {
        return;
      }
    }
    sums.add(*file, diagnostics.progress());
  }
}

/// A file that cannot be replaced counts as little as one that cannot be read.
void cleanInPlace(const CleanOptions& options, CleanSums& sums, Diagnostics& diagnostics) {
  for (const std::string& path : options.reading.inputs()) {
    const std::optional<CleanedFile> file =
        cleanFile(path, options, sums.isCounting(), diagnostics);
    if (!file) {
      continue;
    }
    const std::string& suffix = *options.backupSuffix;
    if (!file->cleaned ||
        replaceFile(path, *file->cleaned, diagnostics, {suffix.empty() ? suffix : path + suffix})) {
      sums.add(*file, diagnostics.progress());
    }
  }
}

void clean(const CleanOptions& options, const Session& session) {
  const std::vector<std::string>& inputs = options.reading.inputs();
  if (options.backupSuffix &&
      std::find(inputs.begin(), inputs.end(), kStandardInput) != inputs.end()) {
    throw WrongUsage("--in-place", "standard input cannot be repaired in place");
  }
  CleanSums sums(options);
  if (options.backupSuffix) {
    cleanInPlace(options, sums, session.diagnostics);
  } else if (!writeOutput(options.output, session, [&](Output& output) {
               cleanTo(output, options, sums, session.diagnostics);
             })) {
    return;
  }
  OutputOptions told = options.output;
  told.isQuiet = told.isQuiet || !options.isWriting();
  tellSums(told, session, sums.report(), sums.sums().line());
}

} // namespace

void addCleanCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<CleanOptions>();
  Command command = app.addCommand("clean", "Repair files without reading their cards", kExamples);
  addFiles(command, options->reading.files);
  addEncodingOption(command, options->reading.read.encoding);
  const auto repairInPlace = [options](const std::string& suffix) {
    options->backupSuffix = suffix;
  };
  Option inPlace = command
                       .addOption("--in-place", "SUFFIX", repairInPlace,
                                  "Repair the files themselves; SUFFIX keeps the old")
                       .valueOptional();
  const Option diff =
      command.addFlag("--diff", options->isDiff, "Print what would be changed instead");
  Option check = command.addFlag("--check", options->isCheck,
                                 "Only tell what would be repaired; exit status 3");
  const Option output = addOutputFile(command, options->output);
  addReportOptions(command, options->output, session);
  inPlace.excludes(output).excludes(diff).excludes(check);
  check.excludes(diff).excludes(output);
  command.setAction([options, session] { clean(*options, session); });
}

} // namespace cardwright::tool
