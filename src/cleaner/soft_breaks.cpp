#include "cleaner/soft_breaks.h"

#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/envelope.h"
#include "cleaner/line_name.h"
#include "cleaner/vocabulary.h"

namespace cardwright {

namespace {

/// Whether a line behind a soft break is a line of its own, whatever the break says.
bool isLineOfItsOwn(TextView line) {
  if (isCardBegin(line) || isCardEnd(line) || trimWhitespaceAndNewlines(line).empty()) {
    return true;
  }
  if (const LineName name(line); name.isPresent() && isPropertyName(name.view())) {
    return true;
  }
  if (VCardCleaner::lineLooksLikeStandaloneUriContinuation(line)) {
    return false;
  }
  return VCardCleaner::startsWithAnyHeader(line) || VCardCleaner::isPlausiblePropertyHeader(line);
}

} // namespace

bool SoftBreakMerger::isContinuedBy(TextView line, TextView next) {
  return VCardCleaner::lineHasQuotedPrintableSoftBreak(line) &&
         m_header.declaresQuotedPrintable(line) && !isLineOfItsOwn(next);
}

void SoftBreakMerger::merge(Text& line, TextView next) {
  line.resize(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(line).size());
  const std::size_t seam = line.size();
  line.append(next);
  m_header.seamAt(seam, line);
}

bool LogicalLines::next(UnfoldedLine& line) {
  if (m_hasAhead) {
    std::swap(m_buffer, m_aheadBuffer);
    line = m_ahead;
    line.text = m_ahead.isJoined ? TextView(m_buffer) : m_ahead.text;
    m_hasAhead = false;
  } else if (!m_unfolder.next(line, m_buffer)) {
    return false;
  }
  m_merger.startLine();
  m_wasMerged = false;
  // Only a line that ends in "=" needs a look at the next one.
  while (VCardCleaner::lineHasQuotedPrintableSoftBreak(line.text) &&
         m_unfolder.next(m_ahead, m_aheadBuffer)) {
    if (!m_merger.isContinuedBy(line.text, m_ahead.text)) {
      m_hasAhead = true;
      break;
    }
    if (!line.isJoined) {
      m_buffer.assign(line.text);
      line.isJoined = true;
    }
    m_merger.merge(m_buffer, m_ahead.text);
    line.text = m_buffer;
    line.end = m_ahead.end;
    m_wasMerged = true;
  }
  return true;
}

bool LogicalLines::passPlainLine(PlainLook& look) {
  if (m_hasAhead || !plainLineAt(m_unfolder.text(), m_unfolder.location(), look)) {
    return false;
  }
  m_unfolder.setLocation(look.next);
  return true;
}

TextList VCardCleaner::mergeQuotedPrintableSoftBreaks(const TextList& lines) {
  TextList result;
  SoftBreakMerger merger;
  for (const Text& line : lines) {
    if (!result.empty() && merger.isContinuedBy(result.back(), line)) {
      merger.merge(result.back(), line);
    } else {
      result.push_back(line);
      merger.startLine();
    }
  }
  return result;
}

} // namespace cardwright
