// TOOL: what time and memory the usual operations take for each of the address books, and the tool
// of that name from file to file.

#include "books.h"
#include "cardwright/face.h"
#include "child.h"
#include "content.h"
#include "support/written_bytes.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace cardwright {
namespace {

constexpr std::size_t kBytes = 10 << 20;
constexpr double kMega = 1e6;

class BookWork : public Work {
 public:
  explicit BookWork(Book book) : m_book(book) {}

  std::size_t prepare() override { return bytes().size(); }

 protected:
  [[nodiscard]] const std::string& bytes() const { return bookOf(m_book, kBytes); }

 private:
  Book m_book;
};

class Opening : public BookWork {
 public:
  using BookWork::BookWork;

  void run() override { static_cast<void>(readCards(bytes())); }
};

class ReadingEverything : public BookWork {
 public:
  using BookWork::BookWork;

  void run() override { static_cast<void>(contentOf(readCards(bytes()))); }
};

class Cleaning : public BookWork {
 public:
  using BookWork::BookWork;

  void run() override { static_cast<void>(cleanText(bytes())); }
};

class Writing : public BookWork {
 public:
  using BookWork::BookWork;

  std::size_t prepare() override {
    m_cards = readCards(bytes());
    static_cast<void>(contentOf(m_cards));
    return bytes().size();
  }
  void run() override { static_cast<void>(writtenBytes(m_cards)); }

 private:
  VCardList m_cards;
};

/// Leaves a book in a file. What a process holds counts for those that it starts, so it is made in
/// one that ends.
class Saving : public BookWork {
 public:
  Saving(Book book, const std::string& path, bool isDamaged)
      : BookWork(book), m_path(path), m_isDamaged(isDamaged) {}

  void run() override {
    std::ofstream(m_path, std::ios::binary) << (m_isDamaged ? damaged(bytes()) : bytes());
  }

 private:
  const std::string& m_path;
  bool m_isDamaged;
};

template <typename AWork>
std::optional<Cost> cost(Book book) {
  AWork work(book);
  return costInChild(work);
}

struct Operation {
  const char* name;
  std::optional<Cost> (*cost)(Book book);
};

constexpr Operation kOperations[] = {
    {"clean and open", cost<Opening>},
    {"clean and read everything", cost<ReadingEverything>},
    {"clean", cost<Cleaning>},
    {"write", cost<Writing>},
};

bool print(Book book, const char* operation, const std::optional<Cost>& cost) {
  if (!cost) {
    std::printf("| %s | %s | broke |\n", nameOf(book), operation);
    return false;
  }
  const auto length = static_cast<double>(cost->inputBytes);
  const auto peak = static_cast<double>(cost->peakBytes);
  std::printf("| %s | %s | %.1f | %.1f | %.1f | %.1f |\n", nameOf(book), operation,
              cost->seconds * 1e3, length / kMega / cost->seconds, peak / kMega, peak / length);
  std::fflush(stdout);
  return true;
}

/// The tool, from file to file.
class Tool {
 public:
  Tool(std::string program, const std::filesystem::path& folder)
      : m_program(std::move(program)), m_input(folder / "in.vcf"), m_output(folder / "out.vcf") {}

  bool measure(Book book) const {
    bool isSound = measureClean(book, "`cardwright clean`", false);
    isSound = measureClean(book, "`cardwright clean`, every third card damaged", true) && isSound;
    save(book, false);
    return print(book, "`cardwright write --to 3.0`",
                 run({m_program, "write", "--to", "3.0", "-o", m_output, m_input})) &&
           isSound;
  }

 private:
  void save(Book book, bool isDamaged) const {
    Saving saving(book, m_input, isDamaged);
    static_cast<void>(costInChild(saving));
  }

  bool measureClean(Book book, const char* name, bool isDamaged) const {
    save(book, isDamaged);
    return print(book, name, run({m_program, "clean", "-o", m_output, m_input}));
  }

  [[nodiscard]] std::optional<Cost> run(const std::vector<std::string>& words) const {
    std::optional<Cost> cost = costOfCommand(words);
    if (cost) {
      cost->inputBytes = std::filesystem::file_size(m_input);
    }
    return cost;
  }

  std::string m_program;
  std::string m_input;
  std::string m_output;
};

bool measureAll(const char* program) {
  std::string folder = std::filesystem::temp_directory_path() / "cardwright-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) {
    return false;
  }
  const Tool tool(program, folder);
  std::puts(
      "| book | operation | CPU ms | MB/s | peak, MB | peak/file |\n|---|---|---|---|---|---|");
  bool isSound = true;
  for (const Book book : kBooks) {
    for (const Operation& operation : kOperations) {
      isSound = print(book, operation.name, operation.cost(book)) && isSound;
    }
    isSound = tool.measure(book) && isSound;
  }
  std::filesystem::remove_all(folder);
  return isSound;
}

} // namespace
} // namespace cardwright

int main(int count, char** arguments) {
  return count == 2 && cardwright::measureAll(arguments[1]) ? 0 : 1;
}
