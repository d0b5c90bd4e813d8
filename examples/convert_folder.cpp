// Converts every .vcf of a folder to version 4.0, and tells which properties that version does not
// have: they are dropped, or parked under an extension, from where converting back returns them.

#include <cardwright/cardwright.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

using namespace cardwright;
namespace fs = std::filesystem;

namespace {

bool convertFile(const fs::path& from, const fs::path& to) {
  std::ifstream input(from, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(input), {});

  ReadReport read;
  ConversionReport converted;
  std::ofstream output(to, std::ios::binary);
  output << writeCards(convertCards(readCards(bytes, &read), 4, &converted));
  output.close();

  std::cout << from.filename().string() << ": cards " << converted.cards << ", repairs "
            << read.repairs.size() << '\n';
  for (const ConversionChange& change : converted.changes) {
    const bool isLost = change.kind == ConversionKind::dropped;
    if (change.part.empty() && (isLost || change.kind == ConversionKind::parked)) {
      std::cout << "  card " << change.card + 1 << ": " << change.property << ' '
                << conversionKindText(change.kind) << '\n';
    }
  }
  return input && output;
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: convert_folder FROM TO\n";
    return 2;
  }
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(argv[1])) {
    if (entry.is_regular_file() && entry.path().extension() == ".vcf") {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());

  fs::create_directories(argv[2]);
  bool allWell = true;
  for (const fs::path& file : files) {
    allWell = convertFile(file, argv[2] / file.filename()) && allWell;
  }
  return allWell ? 0 : 1;
}
