#include "reader/read_recorder.h"

#include "cardwright/utf8.h"

namespace cardwright {

void ReadRecorder::lineDropped(DropReason reason, std::size_t offset, TextView text) {
  if (m_report != nullptr) {
    m_report->droppedLines.push_back({reason, {offset, 0}, utf8FromText(text)});
  }
}

std::string_view dropReasonText(DropReason reason) {
  switch (reason) {
  case DropReason::none:
    return "not dropped";
  case DropReason::outsideCard:
    return "text outside a card";
  case DropReason::missingName:
    return "no property name";
  case DropReason::missingColon:
    return "no colon before a value";
  case DropReason::emptyParameterName:
    return "a parameter without a name";
  case DropReason::emptyParameterValue:
    return "a parameter without a value";
  case DropReason::versionWithoutText:
    return "a version that is no text";
  case DropReason::afterEnd:
    return "text behind the end of a card";
  }
  return "unknown";
}

} // namespace cardwright
