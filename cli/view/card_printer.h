#pragma once

#include "io/output.h"
#include "text/display_width.h"
#include "text/wrap.h"
#include "view/card_view.h"

#include <cstddef>
#include <string_view>

namespace cardwright::tool {

/// Writes cards as tables. Whatever a card holds, nothing of it can steer the terminal.
class CardPrinter {
 public:
  struct Style {
    bool hasColor = false;
    std::size_t columns = 80; ///< of the terminal
  };

  CardPrinter(Output& output, Style style) noexcept : m_output(output), m_style(style) {}

  /// The name of the file that the following cards come from.
  void printFileName(std::string_view name);
  void print(const CardView& card);

 private:
  enum class Ink;

  void beginBlock();
  void printRow(const CardRow& row, std::size_t labelColumns);
  void printText(TextView text, Ink ink);
  void printBlanks(std::size_t count);

  Output& m_output;
  Style m_style;
  DisplayWidth m_width;
  LineWrapper m_wrapper{m_width};
  bool m_isFirst = true;
};

} // namespace cardwright::tool
