#include "serve/guard.h"
#include "serve/token.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <set>

namespace cardwright::tool {
namespace {

constexpr std::array kRoutes{Route{"GET", ""}, Route{"GET", "page.js"}, Route{"POST", "look"}};
const std::string kToken = "0123456789abcdef0123456789abcdef";

std::string joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) {
    text.append(piece);
  }
  return text;
}

Guard guard() {
  return {8080, kToken, kRoutes};
}

RequestHead head(std::string method, std::string_view name) {
  return {std::move(method), joined({"/", kToken, "/", name}), {"127.0.0.1:8080"}, {}, {}};
}

TEST(Guard, letsWhatThePageNeedsThrough) {
  EXPECT_EQ(guard().judge(head("GET", "")), Verdict::allowed);
  EXPECT_EQ(guard().judge(head("GET", "page.js")), Verdict::allowed);
  EXPECT_EQ(guard().judge(head("POST", "look")), Verdict::allowed);
  EXPECT_EQ(guard().nameIn(head("GET", "page.js").path), "page.js");
}

TEST(Guard, knowsItsOwnNamesOnly) {
  struct Row {
    std::vector<std::string> hosts;
    Verdict verdict;
  };
  const Row rows[] = {
      {{"127.0.0.1:8080"}, Verdict::allowed},
      {{"localhost:8080"}, Verdict::allowed},
      {{}, Verdict::foreignHost},
      {{""}, Verdict::foreignHost},
      {{"127.0.0.1"}, Verdict::foreignHost},
      {{"localhost"}, Verdict::foreignHost},
      {{"127.0.0.1:8081"}, Verdict::foreignHost},
      {{"127.0.0.1:80800"}, Verdict::foreignHost},
      {{"127.0.0.1:8080."}, Verdict::foreignHost},
      {{"evil.example:8080"}, Verdict::foreignHost},
      {{"localhost.evil.example:8080"}, Verdict::foreignHost},
      {{"[::1]:8080"}, Verdict::foreignHost},
      {{"127.0.0.1:8080", "127.0.0.1:8080"}, Verdict::foreignHost},
      {{"127.0.0.1:8080", "evil.example"}, Verdict::foreignHost},
  };
  for (const Row& row : rows) {
    RequestHead request = head("GET", "");
    request.hosts = row.hosts;
    EXPECT_EQ(guard().judge(request), row.verdict)
        << (row.hosts.empty() ? "no host" : row.hosts.front());
  }
}

TEST(Guard, letsNoOtherPageAsk) {
  struct Row {
    std::string method;
    std::vector<std::string> origins;
    std::vector<std::string> sites;
    Verdict verdict;
  };
  const Row rows[] = {
      {"POST", {"http://127.0.0.1:8080"}, {"same-origin"}, Verdict::allowed},
      {"POST", {"http://127.0.0.1:8080"}, {}, Verdict::allowed},
      {"POST", {}, {}, Verdict::allowed},
      {"POST", {"https://127.0.0.1:8080"}, {}, Verdict::foreignPage},
      {"POST", {"http://localhost:8080"}, {}, Verdict::foreignPage},
      {"POST", {"http://127.0.0.1:8081"}, {}, Verdict::foreignPage},
      {"POST", {"http://127.0.0.1:8080.evil.example"}, {}, Verdict::foreignPage},
      {"POST", {"https://evil.example"}, {}, Verdict::foreignPage},
      {"POST", {"null"}, {}, Verdict::foreignPage},
      {"POST", {""}, {}, Verdict::foreignPage},
      {"POST", {"http://127.0.0.1:8080", "https://evil.example"}, {}, Verdict::foreignPage},
      {"POST", {}, {"cross-site"}, Verdict::foreignPage},
      {"POST", {}, {"same-site"}, Verdict::foreignPage},
      {"POST", {}, {"none"}, Verdict::foreignPage},
      {"GET", {}, {"none"}, Verdict::allowed},
      {"GET", {}, {"same-origin"}, Verdict::allowed},
      {"GET", {}, {"cross-site"}, Verdict::foreignPage},
      {"GET", {}, {"same-site"}, Verdict::foreignPage},
      {"GET", {"https://evil.example"}, {}, Verdict::foreignPage},
  };
  for (const Row& row : rows) {
    RequestHead request = head(row.method, row.method == "GET" ? "" : "look");
    request.origins = row.origins;
    request.fetchSites = row.sites;
    EXPECT_EQ(guard().judge(request), row.verdict)
        << row.method << " " << (row.origins.empty() ? "-" : row.origins.front()) << " "
        << (row.sites.empty() ? "-" : row.sites.front());
  }
}

TEST(Guard, asksForTheTokenBeforeItTellsAnything) {
  const std::string almost = joined({kToken.substr(0, kToken.size() - 1), "0"});
  const std::string paths[] = {"/",
                               "",
                               "/page.js",
                               "/favicon.ico",
                               joined({"/", kToken}),
                               joined({kToken, "/"}),
                               joined({"//", kToken, "/"}),
                               joined({"/", almost, "/"}),
                               joined({"/", kToken, "0/"}),
                               joined({"/", kToken.substr(1), "/"}),
                               joined({"/../", kToken, "/"}),
                               std::string(9000, '/')};
  for (const std::string& path : paths) {
    RequestHead request = head("GET", "");
    request.path = path;
    EXPECT_EQ(guard().judge(request), Verdict::wrongToken) << path;
  }
}

TEST(Guard, refusesWhatIsNotThere) {
  EXPECT_EQ(guard().judge(head("GET", "other")), Verdict::unknownName);
  EXPECT_EQ(guard().judge(head("GET", "page.js/")), Verdict::unknownName);
  EXPECT_EQ(guard().judge(head("GET", "../page.js")), Verdict::unknownName);
  EXPECT_EQ(guard().judge(head("GET", "look")), Verdict::wrongMethod);
  EXPECT_EQ(guard().judge(head("POST", "")), Verdict::wrongMethod);
  EXPECT_EQ(guard().judge(head("get", "")), Verdict::wrongMethod);
  for (const char* const method : {"HEAD", "PUT", "DELETE", "OPTIONS", "PATCH", "TRACE", ""}) {
    EXPECT_EQ(guard().judge(head(method, "look")), Verdict::wrongMethod) << method;
  }
}

TEST(Secret, isTheSameOnlyWhenAllOfItIs) {
  EXPECT_TRUE(isSameSecret("", ""));
  EXPECT_TRUE(isSameSecret("abc", "abc"));
  EXPECT_FALSE(isSameSecret("abc", "abd"));
  EXPECT_FALSE(isSameSecret("abc", "xbc"));
  EXPECT_FALSE(isSameSecret("abc", "ab"));
  EXPECT_FALSE(isSameSecret("a\x80", std::string_view("a\0", 2)));
}

TEST(Token, has128BitsThatAreNeverTheSame) {
  std::set<std::string> tokens;
  for (int round = 0; round < 1000; ++round) {
    const std::string token = randomToken();
    EXPECT_EQ(token.size(), 32U);
    EXPECT_EQ(token.find_first_not_of("0123456789abcdef"), std::string::npos);
    tokens.insert(token);
  }
  EXPECT_EQ(tokens.size(), 1000U);
}

} // namespace
} // namespace cardwright::tool
