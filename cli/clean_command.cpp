#include "commands.h"
#include "io/input.h"
#include "io/repair_notes.h"
#include "io/replacement.h"
#include "reading_options.h"
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
  bool isDiff = false;
  bool isCheck = false;
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
};

/// Says why nothing was repaired where that is not because nothing is broken.
void noteForeignLine(std::string_view file, const CleanReport& report, Diagnostics& diagnostics) {
  if (report.foreignLine) {
    diagnostics.note(file, "nothing was repaired, for line " +
                               std::to_string(report.foreignLine->place.line) +
                               " stands outside the cards: " + report.foreignLine->text);
  }
}

std::optional<CleanedFile> cleanFile(const std::string& path, const CleanOptions& options,
                                     Diagnostics& diagnostics) {
  std::optional<std::string> bytes = readFile(path, diagnostics);
  if (!bytes) {
    return std::nullopt;
  }
  CleanReport report;
  CleanedFile file{path, std::move(*bytes), std::nullopt};
  file.cleaned = cleanText(file.bytes, &report, options.encoding);
  if (file.cleaned && !file.cleaned->ends_with('\n')) {
    file.cleaned->append("\r\n");
  }
  for (const std::string& repair : repairNotes(report.decoding, report.summaries)) {
    diagnostics.note(displayName(path), repair);
  }
  noteForeignLine(displayName(path), report, diagnostics);
  if (file.cleaned && options.isCheck) {
    diagnostics.found();
  }
  return file;
}

/// Ends a text that another follows, so that no two cards are glued together.
void separate(std::string_view text, Output& output) {
  if (!text.empty() && text.back() != '\n' && text.back() != '\r') {
    output.write("\r\n");
  }
}

/// Writes the cleaned files one after the other, or what would change in them.
void cleanTo(Output& output, const CleanOptions& options, Diagnostics& diagnostics) {
  std::optional<CleanedFile> before;
  for (const std::string& path : options.files) {
    std::optional<CleanedFile> file = cleanFile(path, options, diagnostics);
    if (!file || options.isCheck) {
      continue;
    }
    if (options.isDiff) {
      if (file->cleaned) {
        output.write(unifiedDiff(file->bytes, *file->cleaned, displayName(path)));
      }
      continue;
    }
    if (before) {
      separate(before->cleaned ? *before->cleaned : before->bytes, output);
    }
    output.write(file->cleaned ? *file->cleaned : file->bytes);
    before = std::move(file);
    if (!output.isOpen()) {
      return;
    }
  }
}

void cleanToFile(const CleanOptions& options, Diagnostics& diagnostics) {
  Replacement replacement(options.outputFile, diagnostics);
  if (!replacement.isOpen()) {
    return;
  }
  Output output(replacement.descriptor());
  cleanTo(output, options, diagnostics);
  output.flush();
  if (!output.isOpen()) {
    diagnostics.error(options.outputFile, systemMessage(output.error()));
  } else if (diagnostics.status() != ExitStatus::done) {
    diagnostics.note(options.outputFile, "left as it was, since not everything was read");
  } else {
    replacement.commit();
  }
}

void cleanInPlace(const CleanOptions& options, Diagnostics& diagnostics) {
  for (const std::string& path : options.files) {
    const std::optional<CleanedFile> file = cleanFile(path, options, diagnostics);
    if (file && file->cleaned) {
      const std::string& suffix = *options.backupSuffix;
      replaceFile(path, *file->cleaned, diagnostics, suffix.empty() ? suffix : path + suffix);
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
  if (options.backupSuffix) {
    cleanInPlace(options, session.diagnostics);
  } else if (options.outputFile.empty() || options.outputFile == "-") {
    cleanTo(session.output, options, session.diagnostics);
  } else {
    cleanToFile(options, session.diagnostics);
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
