#include "serve/listing.h"

namespace cardwright::tool {

Listing::Listing(JsonText& json, std::string_view name, std::size_t mostItems)
    : m_json(json), m_mostItems(mostItems), m_begin(json.size()) {
  m_json.key(name);
  m_json.writer().StartObject();
  m_json.key("items");
  m_json.writer().StartArray();
}

Listing::~Listing() {
  m_json.writer().EndArray();
  m_json.number("count", m_count);
  m_json.writer().EndObject();
}

bool Listing::takes() {
  ++m_count;
  return m_count <= m_mostItems && m_json.size() - m_begin < kMostBytes;
}

} // namespace cardwright::tool
