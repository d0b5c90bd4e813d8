#include "commands.h"
#include "io/input.h"
#include "io/repair_notes.h"
#include "io/replacement.h"
#include "reading_options.h"
#include "report/repair_cards.h"
#include "report/report_json.h"
#include "text/unified_diff.h"

#include <cardwright/face.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

struct CleanOptions {
  std::vector<std::string> files;
  std::optional<std::string> encoding;
  std::string outputFile;
  std::optional<std::string> backupSuffix; ///< present for --in-place
  std::string reportFile;
  bool isDiff = false;
  bool isCheck = false;
  bool isQuiet = false;

  [[nodiscard]] bool isWriting() const noexcept { return !isDiff && !isCheck; }
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright clean contacts.vcf > repaired.vcf\n"
    "  cardwright clean --diff contacts.vcf       what would be changed\n"
    "  cardwright clean --in-place=.bak *.vcf     repair files, keep the old ones\n"
    "  cardwright clean --check contacts.vcf      only tell; exit status 3 when damaged\n"
    "\n"
    "A file that needs nothing is left byte for byte alone. Every repair is told on standard "
    "error.";

/// A file before and after.
struct CleanedFile {
  std::string path;
  std::string bytes;
  std::optional<std::string> cleaned;
  CleanReport report;
};

/// Adds up what became of the files, where anybody wants to know.
class CleanSums {
 public:
  explicit CleanSums(const CleanOptions& options)
      : m_tellsSums(!options.isQuiet && options.isWriting()), m_reportFile(options.reportFile) {}

  /// @param file is let go piece by piece, for it is counted by reading it
  void add(CleanedFile file) {
    if (!m_tellsSums && m_reportFile.empty()) {
      return;
    }
    const CleanReport& report = file.report;
    const std::vector<std::size_t> cards =
        cardsOfRepairs(file.bytes, report.decoding.encoding, report.repairs);
    const HeldCounts before = countHeld(file.bytes, report.decoding.encoding, !file.cleaned);
    file.bytes = {};
    const HeldCounts after = file.cleaned ? countHeld(*file.cleaned, "UTF-8", true) : before;
    m_sums.addCleaning(before, after, report.repairs);
    m_sums.cardsRepaired += distinctCards(cards);
    if (!m_reportFile.empty()) {
      m_json.addCleaning(file.path, report, cards);
    }
  }

  void tell(const Session& session) {
    if (!m_reportFile.empty()) {
      replaceFile(m_reportFile, m_json.finish(m_sums), session.diagnostics);
    }
    if (m_tellsSums) {
      session.output.flush();
      session.diagnostics.note(m_sums.line());
    }
  }

 private:
  bool m_tellsSums;
  const std::string& m_reportFile;
  Sums m_sums;
  ReportJson m_json;
};

std::optional<CleanedFile> cleanFile(const std::string& path, const CleanOptions& options,
                                     Diagnostics& diagnostics) {
  std::optional<std::string> bytes = readFile(path, diagnostics);
  if (!bytes) {
    return std::nullopt;
  }
  CleanedFile file{path, std::move(*bytes), std::nullopt, {}};
  file.cleaned = cleanText(file.bytes, &file.report, options.encoding);
  if (file.cleaned && !file.cleaned->ends_with('\n')) {
    file.cleaned->append("\r\n");
  }
  for (const std::string& repair : repairNotes(file.report.decoding, file.report.summaries)) {
    diagnostics.note(displayName(path), repair);
  }
  if (file.report.foreignLine) {
    diagnostics.note(displayName(path), foreignLineNote(*file.report.foreignLine));
  }
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
  for (const std::string& path : options.files) {
    std::optional<CleanedFile> file = cleanFile(path, options, diagnostics);
    if (!file) {
      continue;
    }
    if (options.isDiff && file->cleaned) {
      output.write(unifiedDiff(file->bytes, *file->cleaned, displayName(path)));
    }
    if (options.isWriting()) {
      const std::string& text = file->cleaned ? *file->cleaned : file->bytes;
      if (!text.empty()) {
        output.write(isOpen ? "\r\n" : "");
        output.write(text);
        isOpen = isOpenEnded(text);
      }
      if (!output.isOpen()) {
        return;
      }
    }
    sums.add(std::move(*file));
  }
}

void cleanToFile(const CleanOptions& options, CleanSums& sums, const Session& session) {
  Diagnostics& diagnostics = session.diagnostics;
  Replacement replacement(options.outputFile, diagnostics);
  if (!replacement.isOpen()) {
    return;
  }
  Output output(replacement.descriptor());
  cleanTo(output, options, sums, diagnostics);
  output.flush();
  if (!output.isOpen()) {
    diagnostics.error(options.outputFile, systemMessage(output.error()));
  } else if (diagnostics.status() != ExitStatus::done) {
    diagnostics.note(options.outputFile, "left as it was, since not everything was read");
  } else {
    replacement.commit();
  }
  sums.tell(session);
}

/// A file that cannot be replaced counts as little as one that cannot be read.
void cleanInPlace(const CleanOptions& options, CleanSums& sums, Diagnostics& diagnostics) {
  for (const std::string& path : options.files) {
    std::optional<CleanedFile> file = cleanFile(path, options, diagnostics);
    if (!file) {
      continue;
    }
    const std::string& suffix = *options.backupSuffix;
    if (!file->cleaned ||
        replaceFile(path, *file->cleaned, diagnostics, suffix.empty() ? suffix : path + suffix)) {
      sums.add(std::move(*file));
    }
  }
}

void clean(CleanOptions& options, const Session& session) {
  const bool readsStandardInput =
      options.files.empty() ||
      std::find(options.files.begin(), options.files.end(), kStandardInput) != options.files.end();
  if (options.backupSuffix && readsStandardInput) {
    throw CLI::ValidationError("--in-place", "standard input cannot be repaired in place");
  }
  if (options.files.empty()) {
    options.files.emplace_back(kStandardInput);
  }
  CleanSums sums(options);
  if (options.backupSuffix) {
    cleanInPlace(options, sums, session.diagnostics);
    sums.tell(session);
  } else if (options.outputFile.empty() || options.outputFile == "-") {
    cleanTo(session.output, options, sums, session.diagnostics);
    sums.tell(session);
  } else {
    cleanToFile(options, sums, session);
  }
}

} // namespace

void addCleanCommand(CLI::App& app, const Session& session) {
  const auto options = std::make_shared<CleanOptions>();
  CLI::App* const command = app.add_subcommand("clean", "Repair files without reading their cards");
  command->group(kCommandGroup);
  command->add_option("FILE", options->files, "Files to repair; '-' or none is standard input")
      ->type_name("");
  addEncodingOption(*command, options->encoding);
  CLI::Option* const output =
      command
          ->add_option("-o,--output", options->outputFile, "File to write; it is replaced at once")
          ->type_name("FILE");
  command->add_option("--report", options->reportFile, "File for all that was repaired, as JSON")
      ->type_name("FILE");
  command->add_flag("-q,--quiet", options->isQuiet, "Do not tell the sums at the end");
  CLI::Option* const inPlace =
      command
          ->add_option_function<std::string>(
              "--in-place",
              [options](const std::string& suffix) { options->backupSuffix = suffix; },
              "Repair the files themselves; the old ones are kept under the suffix, if one is "
              "given")
          ->type_name("SUFFIX")
          ->expected(0, 1)
          ->default_str("");
  CLI::Option* const diff =
      command->add_flag("--diff", options->isDiff, "Print what would be changed instead");
  CLI::Option* const check =
      command->add_flag("--check", options->isCheck, "Print nothing but what would be repaired");
  inPlace->excludes(output)->excludes(diff)->excludes(check);
  check->excludes(diff)->excludes(output);
  command->footer(kExamples);
  command->callback([options, session] { clean(*options, session); });
}

} // namespace cardwright::tool
