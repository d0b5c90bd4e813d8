#include "conformance/case_error.h"
#include "conformance/dumps/model_dump.h"
#include "conformance/dumps/value_dump.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::conformance {
namespace {

[[nodiscard]] JsonDocument parsed(const std::string& text) {
  JsonDocument document;
  document.Parse(text.data(), text.size());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

[[nodiscard]] std::string valueDump(const std::string& className, const std::string& type,
                                    const std::string& fields) {
  return R"({"class":")" + className + R"(","type":)" + type +
         R"(,"qp":true,"charset":"x","value":)" + fields + '}';
}

TEST(ValueDumps, areReadBackForEveryClass) {
  const std::string comps =
      R"({"comps":{"year":-1,"month":2,"day":null,"hour":4,"minute":5,"second":6,"zone":)";
  for (const std::string& dump : {
           valueDump("VCardTextValue", R"("text")", R"({"text":null})"),
           valueDump("VCardTextValue", R"("text")", R"({"text":"%uD800"})"),
           valueDump("VCardURIValue", R"("uri")", R"({"text":"a:b"})"),
           valueDump("VCardXValue", R"("x-foo")", R"({"text":""})"),
           valueDump("VCardMultiValue", R"("uri")",
                     R"({"element":"uri","values":[["VCardURIValue",{"text":"a"}]]})"),
           valueDump("VCardMultiValue", R"("date")", R"({"element":"date","values":[]})"),
           valueDump("VCardNValue", R"("N")", R"({"slots":[["1"],["2",""],[],null,["5"]]})"),
           valueDump("VCardAddressValue", R"("Address")",
                     R"({"slots":[["1"],["2"],["3"],["4"],["5"],["6"],["7"]]})"),
           valueDump("VCardOrgValue", R"("Org")", R"({"parts":["a",""]})"),
           valueDump("VCardGenderValue", R"("Gender")", R"({"sex":null,"identity":"x"})"),
           valueDump("VCardCustomValue", "null", R"({"label":null,"value":"x"})"),
           valueDump("VCardGeoValue", R"("Geo3.0")", R"({"lat":"-1.500000","lon":"2.000001"})"),
           valueDump("VCardDateTimeValue", R"("Date")", comps + "null}}"),
           valueDump("VCardDateTimeValue", "null", comps + R"("Z"}})"),
           valueDump("VCardDateTimeValue", R"("time")", comps + "0}}"),
           valueDump("VCardUTCOffsetValue", R"("utc-offset")", R"({"offset":-3600})"),
       }) {
    EXPECT_EQ(textOfJson(valueToJson(*valueFromJson(parsed(dump)))), dump);
  }
}

TEST(ValueDumps, rejectFieldsOfAnotherKind) {
  for (const std::string& dump : {
           valueDump("VCardValue", "null", "{}"),
           valueDump("VCardTextValue", "null", R"({"text":1})"),
           valueDump("VCardNValue", "null", R"({"slots":[]})"),
           valueDump("VCardGeoValue", "null", R"({"lat":"x","lon":"1"})"),
           valueDump("VCardDateTimeValue", "null", R"({"comps":{"zone":99999}})"),
           valueDump("VCardMultiValue", R"("x")", R"({"element":"x","values":[["VCardXValue"]]})"),
       }) {
    EXPECT_THROW((void)valueFromJson(parsed(dump)), CaseError) << dump;
  }
}

constexpr const char* kTextValue =
    R"("class":"VCardTextValue","type":"text","qp":false,"charset":null,"value":{"text":"1"}})";

TEST(PropertyDumps, areReadBackWithTheirKeys) {
  const std::string dump = std::string(R"({"key":"TEL","group":"a","name":"tel","params":[)"
                                       R"({"key":"TYPE","name":"type","values":["x","y"]},)"
                                       R"({"key":"X-A","name":"X-A","values":[]}],)") +
                           kTextValue;
  EXPECT_EQ(textOfJson(propertyToJson(propertyFromJson(parsed(dump)))), dump);
}

TEST(PropertyDumps, addParametersInTheOrderGiven) {
  const std::string dump =
      std::string(R"({"group":null,"name":"TEL","params":[{"name":"b","values":["1"]},)"
                  R"({"name":"A","values":["2"]},{"name":"B","values":["3"]}],)") +
      kTextValue;
  EXPECT_EQ(textOfJson(propertyToJson(propertyFromJson(parsed(dump)))),
            std::string(R"({"key":"TEL","group":null,"name":"TEL","params":[)"
                        R"({"key":"A","name":"A","values":["2"]},)"
                        R"({"key":"B","name":"b","values":["1","3"]}],)") +
                kTextValue);
}

TEST(PropertyDumps, showAPropertyWithoutValue) {
  EXPECT_EQ(textOfJson(propertyToJson(std::make_shared<VCardProperty>())),
            R"({"key":"","group":null,"name":"","params":[],"class":null,"type":null,"qp":false,)"
            R"("charset":null,"value":null})");
}

TEST(CardDumps, orderPropertiesByKeyAndThenAsStored) {
  const auto property = [](const char* name) {
    return std::string(R"({"group":null,"name":")") + name + R"(","params":[],)" + kTextValue;
  };
  const std::string dump =
      R"({"properties":[)" + property("UID") + ',' + property("TEL") + ',' + property("tel") + "]}";
  const auto dumped = [](const char* key, const char* name) {
    return std::string(R"({"key":")") + key + R"(","group":null,"name":")" + name +
           R"(","params":[],)" + kTextValue;
  };
  EXPECT_EQ(textOfJson(cardToJson(cardFromJson(parsed(dump)))),
            R"({"properties":[)" + dumped("TEL", "TEL") + ',' + dumped("TEL", "tel") + ',' +
                dumped("UID", "UID") + R"(],"version":0,"kind":0,"uid":"1"})");
}

TEST(CardDumps, areNullForNoCard) {
  EXPECT_TRUE(cardToJson(nullptr).IsNull());
}

} // namespace
} // namespace cardwright::conformance
