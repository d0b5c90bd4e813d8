#include "cli/process.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kAda = "BEGIN:VCARD\r\nFN:Ada\r\nEND:VCARD\r\n";
constexpr std::string_view kBea = "BEGIN:VCARD\r\nFN:Bea\r\nEND:VCARD\r\n";

TEST(JoinCommand, makesLineEndsAndEncodingsAlike) {
  const TemporaryFolder folder;
  const std::string unix = folder.write("unix.vcf", "BEGIN:VCARD\nFN:Ada\nEND:VCARD");
  const std::string mac = folder.write("mac.vcf", "BEGIN:VCARD\rFN:Bea\rEND:VCARD\r");
  std::string wide = "\xFF\xFE";
  for (const char byte : std::string("\r\n  BEGIN:VCARD\r\nFN:Ada\r\nEND:VCARD\r\n\r\n")) {
    wide.append({byte, '\0'});
  }
  const std::string utf16 = folder.write("utf16.vcf", wide);
  const std::string legacy = folder.write("legacy.vcf", "BEGIN:VCARD\nFN:J\xFCrgen\nEND:VCARD\n");
  const std::string marked = folder.write("marked.vcf", "\xEF\xBB\xBF" + std::string(kBea));
  const Outcome outcome = runTool({{"join", unix, mac, utf16, legacy, marked}, ""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, std::string(kAda) + std::string(kBea) + std::string(kAda) +
                                "BEGIN:VCARD\r\nFN:Jürgen\r\nEND:VCARD\r\n" + std::string(kBea));
  EXPECT_EQ(outcome.errors,
            "cardwright: 5 cards in, 5 out, 0 repaired; 5 properties in, 5 out, 0 dropped\n");
}

TEST(JoinCommand, losesNothing) {
  const TemporaryFolder folder;
  const std::string odd = folder.write(
      "odd.vcf", "hello\nBEGIN:VCARD\nno colon\nNOTE;X=:y\nfn:Ada\n\n  folded\nEND:VCARD\nbye");
  const std::string other = folder.write("other.vcf", kBea);
  EXPECT_EQ(runTool({{"join", "-q", odd, other}, ""}).output,
            "hello\r\nBEGIN:VCARD\r\nno colon\r\nNOTE;X=:y\r\nfn:Ada\r\n\r\n  folded\r\n"
            "END:VCARD\r\nbye\r\n" +
                std::string(kBea));
}

TEST(JoinCommand, endsTheLastCardOfEachFile) {
  const TemporaryFolder folder;
  const std::string open = folder.write("open.vcf", "BEGIN:VCARD\r\nFN:Ada");
  const std::string folded = folder.write("folded.vcf", " \t" + std::string(kBea));
  const Outcome outcome = runTool({{"join", open, folded, open}, ""});
  EXPECT_EQ(outcome.output, std::string(kAda) + std::string(kBea) + std::string(kAda));
  EXPECT_NE(outcome.errors.find("3 cards in, 3 out"), std::string::npos);
}

TEST(JoinCommand, repairsEachFileByItself) {
  const TemporaryFolder folder;
  const std::string foreign = folder.write("foreign.vcf", "hello\n" + std::string(kAda));
  const std::string broken =
      folder.write("broken.vcf", "BEGIN:VCARD\r\nTEL:1EMAIL:x\r\nEND:VCARD\r\n");
  const std::string first = "hello\r\n" + std::string(kAda) + "BEGIN:VCARD\r\n";
  EXPECT_EQ(runTool({{"join", foreign, broken}, ""}).output,
            first + "TEL:1\r\nEMAIL:x\r\nEND:VCARD\r\n");
  EXPECT_EQ(runTool({{"join", "--no-clean", foreign, broken}, ""}).output,
            first + "TEL:1EMAIL:x\r\nEND:VCARD\r\n");
}

TEST(JoinCommand, mayReplaceOneOfItsFiles) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kAda);
  const std::string other = folder.write("b.vcf", kBea);
  EXPECT_EQ(runTool({{"join", "-o", file, file, other, file}, ""}).status, 0);
  EXPECT_EQ(fileContent(file), std::string(kAda) + std::string(kBea) + std::string(kAda));

  const Outcome failed = runTool({{"join", "-o", other, other, folder.path() + "/missing"}, ""});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(fileContent(other), kBea);
}

} // namespace
} // namespace cardwright::tool
