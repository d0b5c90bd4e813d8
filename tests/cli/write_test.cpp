#include "cli/process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nTEL;TYPE=HOME:1\r\nFN:Ada\\; B\r\nEND:VCARD\r\n";
constexpr std::string_view kWritten3 =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\\; B\r\nTEL;TYPE=HOME:1\r\nEND:VCARD\r\n";
constexpr std::string_view kWritten2 =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada; B\r\nTEL;HOME:1\r\nEND:VCARD\r\n";

TEST(WriteCommand, writesInTheSyntaxOfTheVersionAndChangesNoVersion) {
  const std::string input(kCard);
  EXPECT_EQ(runTool({{"write", "--to", "3.0"}, input}).output, kWritten3);
  EXPECT_EQ(runTool({{"write", "--to=2.1"}, input}).output, kWritten2);
}

TEST(WriteCommand, wantsAVersionItKnows) {
  EXPECT_EQ(runTool({{"write"}, std::string(kCard)}).status, 2);
  const Outcome outcome = runTool({{"write", "--to", "5.0"}, std::string(kCard)});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("'5.0' is not 2.1, 3.0 or 4.0"), std::string::npos);
}

TEST(WriteCommand, replacesAFileItReadFromAndKeepsItsMode) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  ::chmod(file.c_str(), 0640);
  const Outcome outcome = runTool({{"write", "--to", "3.0", "-o", file, file}, ""});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(fileContent(file), kWritten3);
  struct stat status {};
  ASSERT_EQ(::stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(WriteCommand, followsLinks) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  const std::string link = folder.path() + "/link.vcf";
  std::filesystem::create_symlink("a.vcf", link);
  EXPECT_EQ(runTool({{"write", "--to", "3.0", "-o", link, file}, ""}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(fileContent(file), kWritten3);
}

TEST(WriteCommand, leavesTheTargetAloneWhenAFileCannotBeRead) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  const Outcome outcome =
      runTool({{"write", "--to", "3.0", "-o", file, file, folder.path() + "/missing"}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(fileContent(file), kCard);
  EXPECT_NE(outcome.errors.find("left as it was"), std::string::npos);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(WriteCommand, tellsWhenItCannotWrite) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  const std::string nowhere = folder.path() + "/no/such/b.vcf";
  const Outcome outcome = runTool({{"write", "--to", "3.0", "-o", nowhere, file}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "cardwright: " + nowhere + ": No such file or directory\n");
  EXPECT_EQ(runTool({{"write", "--to", "3.0", "-o", folder.path(), file}, ""}).status, 1);
}

} // namespace
} // namespace cardwright::tool
