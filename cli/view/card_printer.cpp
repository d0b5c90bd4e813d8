#include "view/card_printer.h"

#include "text/printable.h"
#include "text/words.h"

#include <cardwright/utf8.h>

#include <algorithm>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kGap = 2;
constexpr std::size_t kLongestLabel = 28;
constexpr std::size_t kNarrowestValue = 20;

/// One line of text, whatever line ends were in it.
Text onOneLine(TextView text) {
  Text line;
  for (const TextView part : linesOf(text)) {
    appendJoined(line, u" ", trimmed(part));
  }
  return printable(line);
}

} // namespace

enum class CardPrinter::Ink { plain, name, label, faint };

void CardPrinter::printFileName(std::string_view name) {
  beginBlock();
  printText(concat({u"==> ", onOneLine(textFromUtf8(name)), u" <=="}), Ink::faint);
  m_output.put('\n');
}

void CardPrinter::print(const CardView& card) {
  beginBlock();
  const Text name = onOneLine(card.name);
  printText(name.empty() ? TextView(u"(no name)") : TextView(name), Ink::name);
  if (!card.species.empty()) {
    printText(concat({u" (", card.species, u")"}), Ink::faint);
  }
  m_output.put('\n');

  std::size_t labelColumns = 0;
  for (const CardRow& row : card.rows) {
    const std::size_t columns = m_width.columns(onOneLine(row.label));
    if (columns <= kLongestLabel) {
      labelColumns = std::max(labelColumns, columns);
    }
  }
  for (const CardRow& row : card.rows) {
    printRow(row, labelColumns);
  }
}

void CardPrinter::beginBlock() {
  if (!m_isFirst) {
    m_output.put('\n');
  }
  m_isFirst = false;
}

void CardPrinter::printRow(const CardRow& row, std::size_t labelColumns) {
  const std::size_t valueColumn = kIndent + labelColumns + kGap;
  const std::size_t room =
      std::max(kNarrowestValue, m_style.columns - std::min(m_style.columns, valueColumn));

  const Text label = onOneLine(row.label);
  const std::size_t columns = m_width.columns(label);
  printBlanks(kIndent);
  printText(label, row.isBookkeeping ? Ink::faint : Ink::label);
  if (columns > labelColumns) {
    m_output.put('\n');
    printBlanks(valueColumn);
  } else {
    printBlanks(labelColumns - columns + kGap);
  }

  bool isFirst = true;
  for (const TextView line : linesOf(row.value)) {
    const Text shown = printable(line);
    const auto pieces = row.wraps ? m_wrapper.wrap(shown, room) : std::vector<TextView>{shown};
    for (const TextView piece : pieces) {
      if (!isFirst) {
        m_output.put('\n');
        printBlanks(piece.empty() ? 0 : valueColumn);
      }
      printText(piece, row.isBookkeeping ? Ink::faint : Ink::plain);
      if (isFirst && !row.remarks.empty()) {
        printText(concat({u" (", onOneLine(joined(row.remarks, u", ")), u")"}), Ink::faint);
      }
      isFirst = false;
    }
  }
  m_output.put('\n');
}

void CardPrinter::printText(TextView text, Ink ink) {
  std::string_view colour;
  switch (ink) {
  case Ink::plain:
    break;
  case Ink::name:
    colour = "\x1B[1m";
    break;
  case Ink::label:
    colour = "\x1B[36m";
    break;
  case Ink::faint:
    colour = "\x1B[2m";
    break;
  }
  const bool isColoured = m_style.hasColor && !colour.empty();
  if (isColoured) {
    m_output.write(colour);
  }
  m_output.write(utf8FromText(text));
  if (isColoured) {
    m_output.write("\x1B[0m");
  }
}

void CardPrinter::printBlanks(std::size_t count) {
  constexpr std::string_view kBlanks = "                                ";
  while (count > 0) {
    const std::size_t part = std::min(count, kBlanks.size());
    m_output.write(kBlanks.substr(0, part));
    count -= part;
  }
}

} // namespace cardwright::tool
