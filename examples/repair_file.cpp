// Repairs a file and tells each repair: where, what the line was, and what it is now.

#include <cardwright/cardwright.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

using namespace cardwright;

namespace {

void print(const CleaningRepair& repair) {
  std::cout << "line " << repair.place.line << ": " << codeOf(repair.kind) << '\n'
            << "  - " << utf8FromText(repair.originalLine) << '\n';
  for (const Text& line : repair.replacement) {
    std::cout << "  + " << utf8FromText(line) << '\n';
  }
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: repair_file FILE REPAIRED\n";
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  if (!file) {
    std::cerr << "cannot read " << argv[1] << '\n';
    return 1;
  }
  const std::string bytes(std::istreambuf_iterator<char>(file), {});

  CleanReport report;
  const auto repaired = cleanText(bytes, &report);
  for (const CleaningRepair& repair : report.repairs) {
    print(repair);
  }
  if (report.foreignLine) {
    std::cout << "left alone because of line " << report.foreignLine->place.line << ": "
              << report.foreignLine->text << '\n';
  }

  // Absent means that the file needs nothing, and is best kept byte for byte.
  std::ofstream output(argv[2], std::ios::binary);
  output << repaired.value_or(bytes);
  output.close();
  return output ? 0 : 1;
}
