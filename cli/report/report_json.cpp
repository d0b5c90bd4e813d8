#include "report/report_json.h"

#include "json/json_text.h"

#include <cardwright/codes.h>
#include <cardwright/utf8.h>

namespace cardwright::tool {

class ReportJson::Writer : public JsonText {
 public:
  Writer() {
    writer().StartObject();
    key("changes");
    writer().StartArray();
  }

  void begin(std::string_view file, std::string_view step, std::string_view code) {
    writer().StartObject();
    string("file", file);
    string("step", step);
    string("code", code);
  }
  void end() { writer().EndObject(); }

  void place(const TextPlace& place) {
    number("line", place.line);
    number("offset", place.offset);
  }

  std::string finish(const Sums& sums) {
    writer().EndArray();
    key("sums");
    writer().StartObject();
    number("cardsIn", sums.cardsIn);
    number("cardsOut", sums.cardsOut);
    number("cardsRepaired", sums.cardsRepaired);
    number("propertiesIn", sums.propertiesIn);
    number("propertiesAdded", sums.propertiesAdded);
    number("propertiesOut", sums.propertiesOut);
    number("propertiesMerged", sums.propertiesMerged);
    number("propertiesDropped", sums.propertiesDropped);
    writer().EndObject();
    writer().EndObject();
    return line();
  }
};

ReportJson::ReportJson() : m_writer(std::make_unique<Writer>()) {}
ReportJson::~ReportJson() = default;

void ReportJson::addRepairs(std::string_view file, const DecodingReport& decoding,
                            const std::vector<CleaningRepair>& repairs,
                            const std::vector<std::size_t>& cardsOfRepairs) {
  if (decoding.droppedBytes != 0) {
    m_writer->begin(file, "decode", "dropped-bytes");
    m_writer->number("count", decoding.droppedBytes);
    m_writer->string("encoding", decoding.encoding);
    m_writer->end();
  }
  for (std::size_t i = 0; i < repairs.size(); ++i) {
    m_writer->begin(file, "repair", codeOf(repairs[i].kind));
    m_writer->number("card", cardsOfRepairs[i]);
    m_writer->place(repairs[i].place);
    m_writer->string("text", utf8FromText(repairs[i].originalLine));
    m_writer->end();
  }
}

void ReportJson::addForeignLine(std::string_view file, const std::optional<ForeignLine>& line) {
  if (line) {
    m_writer->begin(file, "clean", "foreign-line");
    m_writer->place(line->place);
    m_writer->string("text", line->text);
    m_writer->end();
  }
}

void ReportJson::addCleaning(std::string_view file, const CleanReport& report,
                             const std::vector<std::size_t>& cardsOfRepairs) {
  addForeignLine(file, report.foreignLine);
  addRepairs(file, report.decoding, report.repairs, cardsOfRepairs);
}

void ReportJson::addReading(std::string_view file, const ReadReport& report,
                            const std::vector<std::size_t>& cardsOfRepairs) {
  addForeignLine(file, report.foreignLine);
  addRepairs(file, report.decoding, report.repairs, cardsOfRepairs);
  for (const DroppedLine& line : report.droppedLines) {
    m_writer->begin(file, "read", codeOf(line.reason));
    m_writer->place(line.place);
    m_writer->string("text", line.text);
    m_writer->end();
  }
}

void ReportJson::addConversion(std::string_view file, std::size_t firstCard,
                               const ConversionReport& report) {
  for (const ConversionChange& change : report.changes) {
    m_writer->begin(file, "convert", codeOf(change.kind));
    m_writer->number("card", firstCard + change.card);
    m_writer->string("property", change.property);
    m_writer->string("part", change.part);
    m_writer->string("target", change.target);
    m_writer->string("text", change.text);
    m_writer->end();
  }
}

void ReportJson::addWriting(std::string_view file, std::size_t firstCard,
                            const WriteReport& report) {
  for (const WriteChange& change : report.changes) {
    m_writer->begin(file, "write", codeOf(change.kind));
    m_writer->number("card", firstCard + change.card);
    m_writer->string("property", change.property);
    m_writer->string("text", change.text);
    m_writer->end();
  }
}

std::string ReportJson::finish(const Sums& sums) {
  return m_writer->finish(sums);
}

} // namespace cardwright::tool
