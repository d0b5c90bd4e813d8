#include "report/report_json.h"

#include <cardwright/codes.h>
#include <cardwright/utf8.h>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace cardwright::tool {

class ReportJson::Writer {
 public:
  Writer() : m_json(m_buffer) {
    m_json.StartObject();
    key("changes");
    m_json.StartArray();
  }

  void begin(std::string_view file, std::string_view step, std::string_view code) {
    m_json.StartObject();
    string("file", file);
    string("step", step);
    string("code", code);
  }
  void end() { m_json.EndObject(); }

  void key(std::string_view name) {
    m_json.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
  }
  void string(std::string_view name, std::string_view value) {
    key(name);
    // Sound UTF-8 is what RapidJSON asks for.
    const std::string text = utf8FromText(textFromUtf8(value));
    m_json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  }
  void number(std::string_view name, std::size_t value) {
    key(name);
    m_json.Uint64(value);
  }
  void place(const TextPlace& place) {
    number("line", place.line);
    number("offset", place.offset);
  }

  std::string finish(const Sums& sums) {
    m_json.EndArray();
    key("sums");
    m_json.StartObject();
    number("cardsIn", sums.cardsIn);
    number("cardsOut", sums.cardsOut);
    number("cardsRepaired", sums.cardsRepaired);
    number("propertiesIn", sums.propertiesIn);
    number("propertiesAdded", sums.propertiesAdded);
    number("propertiesOut", sums.propertiesOut);
    number("propertiesMerged", sums.propertiesMerged);
    number("propertiesDropped", sums.propertiesDropped);
    m_json.EndObject();
    m_json.EndObject();
    return std::string(m_buffer.GetString(), m_buffer.GetSize()) + "\n";
  }

 private:
  rapidjson::StringBuffer m_buffer;
  rapidjson::Writer<rapidjson::StringBuffer> m_json;
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

void ReportJson::addCleaning(std::string_view file, const CleanReport& report,
                             const std::vector<std::size_t>& cardsOfRepairs) {
  addRepairs(file, report.decoding, report.repairs, cardsOfRepairs);
}

void ReportJson::addReading(std::string_view file, const ReadReport& report,
                            const std::vector<std::size_t>& cardsOfRepairs) {
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
