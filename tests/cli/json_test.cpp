#include "cli/process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <stdexcept>
#include <string>

namespace cardwright::tool {
namespace {

const rapidjson::Value& member(const rapidjson::Value& object, const char* name) {
  const auto found = object.FindMember(name);
  if (found == object.MemberEnd()) {
    throw std::runtime_error(std::string("no member ") + name);
  }
  return found->value;
}

std::string json(const std::string& text) {
  const Outcome outcome = runTool({{"json"}, text});
  EXPECT_EQ(outcome.status, 0);
  return outcome.output;
}

/// The JSON of the only property besides VERSION of a card of version 4.0.
std::string propertyJson(std::string_view line, std::string_view version = "4.0") {
  const std::string output = json(std::string("BEGIN:VCARD\r\nVERSION:")
                                      .append(version)
                                      .append("\r\n")
                                      .append(line)
                                      .append("\r\nEND:VCARD\r\n"));
  const std::size_t start = output.find("},{") + 2;
  return output.substr(start, output.rfind("]}],\"repairs\"") - start);
}

std::string valueJson(std::string_view line, std::string_view version = "4.0") {
  const std::string property = propertyJson(line, version);
  const std::size_t start = property.find("\"type\":");
  return property.substr(start, property.size() - 1 - start);
}

TEST(Json, writesOneObject) {
  EXPECT_EQ(json(""), "{\"cards\":[],\"repairs\":[]}\n");
  EXPECT_EQ(json("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:7\r\nEND:VCARD\r\n"),
            R"({"cards":[{"file":"-","version":3,"kind":"individual","uid":"7","properties":[)"
            R"({"group":null,"name":"VERSION","parameters":{},"type":"text","value":"3.0"},)"
            R"({"group":null,"name":"UID","parameters":{},"type":"text","value":"7"})"
            R"(]}],"repairs":[]})"
            "\n");
}

TEST(Json, indentsWhenAsked) {
  EXPECT_EQ(runTool({{"json", "--pretty"}, "BEGIN:VCARD\r\nVERSION:2.1\r\nEND:VCARD\r\n"}).output,
            R"({
    "cards": [
        {
            "file": "-",
            "version": 2,
            "kind": "individual",
            "uid": null,
            "properties": [
                {
                    "group": null,
                    "name": "VERSION",
                    "parameters": {},
                    "type": "text",
                    "value": "2.1"
                }
            ]
        }
    ],
    "repairs": []
}
)");
}

TEST(Json, writesGroupsAndParameters) {
  EXPECT_EQ(propertyJson("item1.tel;VALUE=text;TYPE=CELL;x-b=\"1;2\";type=pref:+1 555 0100"),
            R"({"group":"item1","name":"TEL","parameters":{"TYPE":["CELL","pref"],)"
            R"("VALUE":["text"],"X-B":["1;2"]},"type":"text","value":"+1 555 0100"})");
}

TEST(Json, writesEachKindOfCard) {
  constexpr std::pair<const char*, const char*> kKinds[] = {
      {"individual", "individual"}, {"ORG", "org"},       {"group", "group"},
      {"location", "location"},     {"device", "device"}, {"application", "application"},
      {"robot", "other"},
  };
  for (const auto& [text, name] : kKinds) {
    const std::string output =
        json(std::string("BEGIN:VCARD\r\nKIND:") + text + "\r\nEND:VCARD\r\n");
    EXPECT_NE(output.find(std::string("\"kind\":\"") + name + "\""), std::string::npos) << text;
  }
}

TEST(Json, writesPropertiesInTheOrderOfTheWriter) {
  const std::string output =
      json("BEGIN:VCARD\r\nX-FOO:1\r\nEMAIL:b\r\nEMAIL:a\r\nN:x\r\nNOTE:2\r\n"
           "VERSION:3.0\r\nFN:y\r\nEND:VCARD\r\n");
  std::string names;
  constexpr std::string_view kKey = R"("name":")";
  for (std::size_t at = output.find(kKey); at != std::string::npos;
       at = output.find(kKey, at + 1)) {
    const std::size_t start = at + kKey.size();
    names += output.substr(start, output.find('"', start) - start) + " ";
  }
  EXPECT_EQ(names, "VERSION FN N EMAIL EMAIL NOTE X-FOO ");
  EXPECT_LT(output.find("\"value\":\"b\""), output.find("\"value\":\"a\""));
}

TEST(Json, writesTextualValues) {
  EXPECT_EQ(valueJson("NOTE:a\\, b\\nc"), R"("type":"text","value":"a, b\nc")");
  EXPECT_EQ(valueJson("NOTE:"), R"("type":"text","value":"")");
  EXPECT_EQ(valueJson("URL:http://example.org/"), R"("type":"uri","value":"http://example.org/")");
  EXPECT_EQ(valueJson("X-A;VALUE=boolean:TRUE"), R"("type":"boolean","value":"TRUE")");
  EXPECT_EQ(valueJson("NICKNAME:a\\,b,c"), R"("type":"text","value":["a,b","c"])");
}

TEST(Json, writesStructuredValues) {
  EXPECT_EQ(valueJson("N:Lovelace;Ada;King,Noel;;"),
            R"("type":"N","value":{"last":["Lovelace"],"first":["Ada"],)"
            R"("middle":["King","Noel"],"prefix":null,"suffix":null})");
  EXPECT_EQ(valueJson("ADR:;;Street 1;Town;;123;"),
            R"("type":"Address","value":{"poBox":null,"extended":null,"street":["Street 1"],)"
            R"("locality":["Town"],"region":null,"postalCode":["123"],"country":null})");
  EXPECT_EQ(valueJson("ORG:Engines;;Research"),
            R"("type":"Org","value":["Engines","","Research"])");
  EXPECT_EQ(valueJson("GENDER:F"), R"("type":"Gender","value":{"sex":"F","identity":null})");
  EXPECT_EQ(valueJson("GENDER:;x"), R"("type":"Gender","value":{"sex":"","identity":"x"})");
  EXPECT_EQ(valueJson("X-CUSTOM:Desk-=+=-12"),
            R"("type":null,"value":{"label":"Desk","value":"12"})");
  EXPECT_EQ(valueJson("X-CUSTOM:12"), R"("type":null,"value":{"label":null,"value":"12"})");
}

TEST(Json, writesNumbers) {
  EXPECT_EQ(valueJson("GEO:48.2082;-16.5", "3.0"),
            R"("type":"Geo3.0","value":{"latitude":48.2082,"longitude":-16.5})");
  EXPECT_EQ(valueJson("GEO:1e999;0", "3.0"),
            R"("type":"Geo3.0","value":{"latitude":null,"longitude":0.0})");
  EXPECT_EQ(valueJson("TZ:-05:30", "3.0"), R"("type":"utc-offset","value":-19800)");
}

TEST(Json, writesDatesField) {
  EXPECT_EQ(valueJson("BDAY:--0412"),
            R"("type":"date-and-or-time","value":{"year":null,"month":4,"day":12,"hour":null,)"
            R"("minute":null,"second":null,"zone":null})");
  EXPECT_EQ(valueJson("REV:20240318T091500Z"),
            R"("type":"timestamp","value":{"year":2024,"month":3,"day":18,"hour":9,"minute":15,)"
            R"("second":0,"zone":"Z"})");
  EXPECT_EQ(valueJson("REV:20240318T091500-0530"),
            R"("type":"timestamp","value":{"year":2024,"month":3,"day":18,"hour":9,"minute":15,)"
            R"("second":0,"zone":-19800})");
}

TEST(Json, escapesWhatWouldSteerATerminal) {
  EXPECT_EQ(valueJson("NOTE:\x1B[31m\"\xC2\x9B\x7F\\\\"),
            R"("type":"text","value":"\u001B[31m\u0022\u009B\u007F\u005C")");
  EXPECT_EQ(valueJson("NOTE:\x1B[31m"), R"("type":"text","value":"\u001B[31m")");
  EXPECT_EQ(
      propertyJson("X-A;\x7F=1:2"),
      R"({"group":null,"name":"X-A","parameters":{"\u007F":["1"]},"type":"text","value":"2"})");
}

TEST(Json, replacesLoneSurrogates) {
  EXPECT_EQ(valueJson("NOTE:a&#xD800;b"), "\"type\":\"text\",\"value\":\"a\xEF\xBF\xBD"
                                          "b\"");
}

TEST(Json, staysWholeWhenAFileCannotBeRead) {
  const Outcome outcome =
      runTool({{"json", "/does/not/exist", "-"}, "BEGIN:VCARD\r\nFN:x\r\nEND:VCARD\r\n"});
  EXPECT_EQ(outcome.status, 1);
  rapidjson::Document document;
  document.Parse(outcome.output.c_str());
  ASSERT_FALSE(document.HasParseError());
  EXPECT_EQ(member(document, "cards").Size(), 1U);
}

TEST(Json, namesTheFileOfEachCard) {
  const TemporaryFolder folder;
  const std::string first = folder.write("a\xFF\x1B.vcf", "BEGIN:VCARD\r\nFN:x\r\nEND:VCARD\r\n");
  const std::string second = folder.write("b.vcf", "BEGIN:VCARD\r\nFN:y\r\nEND:VCARD\r\n");
  const Outcome outcome = runTool({{"json", first, second}, ""});
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(outcome.output.c_str());
  ASSERT_FALSE(document.HasParseError());
  EXPECT_EQ(member(member(document, "cards")[0], "file").GetString(),
            folder.path() + "/a\xEF\xBF\xBD\x1B.vcf");
  EXPECT_EQ(member(member(document, "cards")[1], "file").GetString(), second);
}

TEST(Json, tellsWhatWasRepaired) {
  const std::string text =
      "BEGIN:VCARD\r\nTEL:+1 555 0100EMAIL:x\r\nNOTE:a&#13;&#10;b\r\nEND:VCARD\r\n";
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", "BEGIN:VCARD\r\nNOTE:a&#10;b\r\nEND:VCARD\r\n");
  const auto repairs = [](const Invocation& invocation) {
    const std::string output = runTool(invocation).output;
    return output.substr(output.find("\"repairs\""));
  };
  EXPECT_EQ(repairs({{"json", "-", file}, text}),
            "\"repairs\":["
            R"({"file":"-","summary":"Split merged properties starting at TEL"},)"
            R"({"file":"-","summary":"NOTE: decoded numeric entities"},)"
            R"({"file":")" +
                file + R"(","summary":"NOTE: decoded numeric entities"}]})" + "\n");
  EXPECT_EQ(repairs({{"json", "--no-clean"}, text}), "\"repairs\":[]}\n");
}

TEST(Json, countsDroppedBytesAmongTheRepairs) {
  const Outcome outcome =
      runTool({{"json"}, "BEGIN:VCARD\r\nFN:Zo\xC3\xAB \xE9\x99\xB3\xFF\r\nEND:VCARD\r\n"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "cardwright: standard input: 1 byte dropped that is not UTF-8\n");
  EXPECT_NE(outcome.output.find(
                R"("repairs":[{"file":"-","summary":"1 byte dropped that is not UTF-8"}]})"),
            std::string::npos)
      << outcome.output;
}

TEST(Json, holdsTheWholeExampleAddressBook) {
  for (const std::string option : {"--pretty", "--"}) {
    const Outcome outcome = runTool({{"json", option, sourcePath("examples/contacts.vcf")}, ""});
    EXPECT_EQ(outcome.status, 0);
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag>(outcome.output.c_str());
    ASSERT_FALSE(document.HasParseError());
    ASSERT_EQ(member(document, "cards").Size(), 40U);
    unsigned versions[5] = {};
    for (const auto& card : member(document, "cards").GetArray()) {
      const auto version = member(card, "version").GetUint();
      ASSERT_LT(version, std::size(versions));
      ++versions[version];
    }
    EXPECT_GT(versions[2], 2U);
    EXPECT_GT(versions[3], 10U);
    EXPECT_GT(versions[4], 10U);
    EXPECT_EQ(versions[2] + versions[3] + versions[4], 40U);
  }
}

} // namespace
} // namespace cardwright::tool
