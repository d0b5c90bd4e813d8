#include "report/piece_sums.h"

#include "report/repair_cards.h"

namespace cardwright::tool {

void PieceSums::addFile(const TextFile& file, bool wantsReport) {
  m_sums.addCleaning(file.before.value_or(m_written), m_written, file.report.repairs);
  m_sums.cardsRepaired += distinctCards(file.cardsOfRepairs);
  if (wantsReport) {
    m_json.addCleaning(file.path, file.report, file.cardsOfRepairs);
  }
  m_written = {};
}

} // namespace cardwright::tool
