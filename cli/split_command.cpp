#include "command_options.h"
#include "commands.h"
#include "io/input.h"
#include "io/replacement.h"
#include "io/text_source.h"
#include "output_options.h"
#include "reading_options.h"
#include "report/piece_sums.h"
#include "text/file_names.h"
#include "text/words.h"
#include "view/card_names.h"

#include <cardwright/utf8.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace cardwright::tool {

namespace {

struct SplitOptions {
  ReadingOptions reading;
  OutputOptions output; ///< of which no file is asked for
  std::string folder;
  bool replaces = false;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright split -d people contacts.vcf\n"
    "  cardwright split -d people --force family.vcf friends.vcf\n"
    "  cardwright show people/'Ada Lovelace.vcf'\n"
    "\n"
    "Files are called after the name on the card, a number behind it where others\n"
    "are called so too: 'Ada Lovelace 2.vcf'. Cards without any name are\n"
    "'card-7.vcf'. Each card is written as it stands in the repaired file, in UTF-8\n"
    "and with line ends alike. Where a file is there already, nothing of that input\n"
    "is written, unless --force is given.";

bool isThere(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

std::string firstLineOf(std::string_view text) {
  return utf8FromText(shortened(textFromUtf8(text.substr(0, text.find("\r\n")))));
}

class Splitting {
 public:
  Splitting(const SplitOptions& options, Diagnostics& diagnostics)
      : m_options(options), m_diagnostics(diagnostics) {}

  /// @returns whether to go on
  bool split(const TextFile& file) {
    std::vector<std::string> paths;
    if (!nameCards(file, paths)) {
      return false;
    }
    auto path = paths.cbegin();
    const auto write = [&](const TextPiece& piece) {
      if (piece.cards.size() == 1) {
        m_sums.add(piece);
        return writeFile(*path++, piece.text);
      }
      if (piece.cards.empty()) {
        m_diagnostics.note(displayName(file.path),
                           "left out, for no card follows: " + firstLineOf(piece.text));
        return true;
      }
      m_sums.add(piece);
      for (const auto& card : piece.cards) { // One of them ends within a line.
        if (!writeFile(*path++, writeCards({card}))) {
          return false;
        }
      }
      return true;
    };
    const bool goesOn = forEachPiece(file, "writing", m_diagnostics.progress(), write);
    m_sums.addFile(file, !m_options.output.reportFile.empty());
    return goesOn;
  }

  [[nodiscard]] PieceSums& sums() noexcept { return m_sums; }

 private:
  /// Finds the names of all files before the first is written.
  /// @returns whether all may be written
  bool nameCards(const TextFile& file, std::vector<std::string>& paths) {
    const auto name = [&](const TextPiece& piece) {
      for (const auto& card : piece.cards) {
        ++m_cards;
        std::string stem = safeFileName(cardName(*card));
        if (stem.empty()) {
          stem = "card-" + std::to_string(m_cards);
        }
        std::string path = m_options.folder + "/" + m_names.give(stem, ".vcf");
        if (!m_options.replaces && isThere(path)) {
          m_diagnostics.error(path, systemMessage(EEXIST) + "; --force replaces it");
          return false;
        }
        paths.push_back(std::move(path));
      }
      return true;
    };
    return forEachPiece(file, "naming", m_diagnostics.progress(), name);
  }

  bool writeFile(const std::string& path, const std::string& bytes) {
    return replaceFile(path, bytes, m_diagnostics, {{}, m_options.replaces, false, false});
  }

  const SplitOptions& m_options;
  Diagnostics& m_diagnostics;
  FileNames m_names;
  std::size_t m_cards = 0;
  PieceSums m_sums;
};

void split(const SplitOptions& options, const Session& session) {
  std::error_code error;
  std::filesystem::create_directories(options.folder, error);
  if (error) {
    session.diagnostics.error(options.folder, systemMessage(error.value()));
    return;
  }
  bool isWritten = true;
  Splitting splitting(options, session.diagnostics);
  forEachTextFile(options.reading, session.diagnostics, [&](const TextFile& file) {
    isWritten = splitting.split(file);
    return isWritten;
  });
  syncFolderContent(options.folder);
  if (isWritten) {
    PieceSums& sums = splitting.sums();
    tellSums(options.output, session, sums.report(), sums.sums().line());
  }
}

} // namespace

void addSplitCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<SplitOptions>();
  Command command = app.addCommand("split", "Write each card to a file of its own", kExamples);
  addReadingOptions(command, options->reading);
  command.addOption("-d,--directory", "DIR", options->folder, "Folder for the files; it is made")
      .required();
  command.addFlag("--force", options->replaces, "Replace files that are there already");
  addReportOptions(command, options->output, session);
  command.setAction([options, session] { split(*options, session); });
}

} // namespace cardwright::tool
