#include "writer/unchanged/output.h"

#include "base/utf8_decoder.h"
#include "cardwright/utf8.h"
#include "writer/folding.h"

namespace cardwright {

void Utf8Output::append(std::string_view lines) {
  m_output.append(lines);
}

void Utf8Output::appendFolded(std::string_view line) {
  appendFoldedUtf8(m_output, line);
}

void Utf8Output::append(const VCardProperty& property, VersionCode version,
                        DateFormatter* formatter) {
  Text lines;
  property.generate(lines, version, formatter);
  appendUtf8(m_output, lines);
}

void TextOutput::append(std::string_view lines) {
  TextGatherer(m_output).appendSound(lines);
}

void TextOutput::appendFolded(std::string_view line) {
  std::string lines;
  appendFoldedUtf8(lines, line);
  append(lines);
}

void TextOutput::append(const VCardProperty& property, VersionCode version,
                        DateFormatter* formatter) {
  property.generate(m_output, version, formatter);
}

} // namespace cardwright
