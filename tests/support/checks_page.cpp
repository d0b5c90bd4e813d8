#include "face/checking/check_table.h"
#include "support/pages.h"

#include <string>

namespace cardwright {

namespace {

constexpr const char* kIntroduction =
    R"(# What the check finds

`checkText` and `cardwright check FILE…` tell what is wrong with cards, one finding a line, as
compilers do:

```
contacts.vcf:12:14: error: several properties on one line [merged-properties]
```

Line and column are those of the very spot in the original file: the name, the parameter, the value or
the sign that is wrong, on the physical line of a folded one where it stands; what is missing in a card
is told where the card begins. A column counts characters. A mistake that is made again is told once, with its count; `--all` tells it each time. `--json` writes
the same for programs. The exit status is 3 when there is a finding.

An *error* loses something, or makes the card none of its version; a *warning* may make readers
stumble. The codes are stable. Each example is a card by itself; lines that only frame it are left
out. This page is made from the table that the check reads, and every example is run as a test.
)";

bool isShown(unsigned char byte) noexcept {
  return byte >= 0x20 && byte < 0x80;
}

/// The lines of an example; bytes that cannot be shown are spelled.
void appendExample(std::string& page, std::string_view example) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  page.append("```\n");
  for (const char byte : example) {
    const auto unit = static_cast<unsigned char>(byte);
    if (byte == '\n' || isShown(unit)) {
      page.push_back(byte);
    } else {
      page.append("\\x").append({kDigits[unit >> 4U], kDigits[unit & 15U]});
    }
  }
  page.append("\n```\n");
}

} // namespace

std::string checksPage() {
  std::string page = kIntroduction;
  for (const CheckRow& row : checkTable()) {
    page.append("\n## ").append(row.code).append("\n\n");
    page.append(row.severity == Severity::error ? "Error: " : "Warning: ");
    page.append(row.text).append(".\n\n");
    appendExample(page, row.example);
  }
  return page;
}

} // namespace cardwright
