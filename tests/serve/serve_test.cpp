#include "serve/json_answer.h"
#include "serve/served_tool.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <csignal>
#include <filesystem>
#include <future>
#include <httplib.h>
#include <netinet/in.h>
#include <optional>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>

namespace cardwright::tool {
namespace {

constexpr const char* kBytes = "application/octet-stream";
constexpr const char* kCard = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nEND:VCARD\r\n";

httplib::Client clientOf(const Served& served) {
  httplib::Client client("127.0.0.1", served.port);
  client.set_read_timeout(120);
  client.set_write_timeout(60);
  return client;
}

/// The answer to a whole request; fails the test when there is none.
httplib::Response asked(const Served& served, const std::string& method, const std::string& path,
                        const httplib::Headers& headers = {}, const std::string& body = {}) {
  httplib::Client client = clientOf(served);
  httplib::Request request;
  request.method = method;
  request.path = path;
  request.headers = headers;
  request.body = body;
  const httplib::Result result = client.send(request);
  if (!result) {
    ADD_FAILURE() << method << " " << path << ": " << httplib::to_string(result.error());
    return {};
  }
  return *result;
}

httplib::Response posted(const Served& served, const std::string& question,
                         const std::string& file) {
  return asked(served, "POST", served.path + question, {{"Content-Type", kBytes}}, file);
}

/// A connection on which anything can be said.
class Line {
 public:
  explicit Line(int port) : m_socket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<in_port_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_isOpen = ::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), // NOLINT: sockets
                         sizeof address) == 0;
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;
  ~Line() { ::close(m_socket); }

  [[nodiscard]] bool isOpen() const { return m_isOpen; }
  void say(const std::string& text) const {
    static_cast<void>(::send(m_socket, text.data(), text.size(), MSG_NOSIGNAL));
  }
  /// All that is said until the other side closes.
  [[nodiscard]] std::string heard() const {
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::recv(m_socket, buffer, sizeof buffer, 0)) > 0;) {
      text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
  }

 private:
  int m_socket;
  bool m_isOpen = false;
};

std::string uploadHead(const Served& served, const std::string& length) {
  return "POST " + served.path + "look HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(served.port) +
         "\r\nContent-Type: " + kBytes + "\r\n" + length + "\r\n";
}

TEST(Serve, endsBySignalAndSaysNothingElse) {
  const Outcome outcome = whileServing([](const Served&) {});
  EXPECT_EQ(outcome.status, -SIGINT);
  EXPECT_EQ(outcome.errors, "cardwright: open this address in a browser; Ctrl-C ends it\n");
}

TEST(Serve, printsNothingButTheAddressWhenQuiet) {
  const Outcome outcome = whileServing([](const Served&) {}, {{"serve", "-q"}, ""});
  EXPECT_EQ(outcome.errors, "");
}

TEST(Serve, isNeverAtTheSameAddress) {
  std::string first;
  static_cast<void>(whileServing([&](const Served& served) { first = served.path; }));
  static_cast<void>(whileServing([&](const Served& served) { EXPECT_NE(served.path, first); }));
}

TEST(Serve, listensToThisMachineOnly) {
  static_cast<void>(whileServing([](const Served& served) {
    std::istringstream connections(fileContent("/proc/net/tcp") + fileContent("/proc/net/tcp6"));
    std::ostringstream place;
    place << "0100007F:" << std::hex << std::uppercase << served.port;
    std::vector<std::string> listening;
    for (std::string line; std::getline(connections, line);) {
      std::istringstream words(line);
      std::string number;
      std::string local;
      std::string remote;
      std::string state;
      words >> number >> local >> remote >> state;
      if (state == "0A" && local.ends_with(place.str().substr(8))) {
        listening.push_back(local);
      }
    }
    EXPECT_EQ(listening, std::vector<std::string>{place.str()});
  }));
}

TEST(Serve, tellsWhenItsPortIsTaken) {
  static_cast<void>(whileServing([](const Served& served) {
    const std::string port = std::to_string(served.port);
    const Outcome outcome = runTool({{"serve", "--port", port}, ""});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              std::string("cardwright: port ").append(port).append(": Address already in use\n"));
  }));
  EXPECT_EQ(runTool({{"serve", "--port", "70000"}, ""}).status, 2);
  EXPECT_EQ(runTool({{"serve", "--port", "some"}, ""}).status, 2);
}

TEST(Serve, givesThePageToBrowsersThatKeepItToThemselves) {
  static_cast<void>(whileServing([](const Served& served) {
    const std::pair<const char*, const char*> files[] = {
        {"", "text/html; charset=utf-8"},
        {"page.css", "text/css; charset=utf-8"},
        {"page.js", "text/javascript; charset=utf-8"},
        {"icon.svg", "image/svg+xml; charset=utf-8"}};
    for (const auto& [name, type] : files) {
      const httplib::Response response = asked(served, "GET", served.path + name);
      EXPECT_EQ(response.status, 200) << name;
      EXPECT_EQ(response.get_header_value("Content-Type"), type);
      const std::string source = *name == 0 ? "index.html" : name;
      EXPECT_EQ(response.body,
                fileContent(sourcePath(std::string("cli/serve/page/").append(source))));
    }
    for (const std::string& path : {served.path, served.path + "other", std::string("/")}) {
      const httplib::Response response = asked(served, "GET", path);
      const std::string policy = response.get_header_value("Content-Security-Policy");
      EXPECT_TRUE(policy.starts_with("default-src 'none'; script-src 'self'; style-src 'self'; "))
          << policy;
      EXPECT_EQ(policy.find("unsafe"), std::string::npos);
      EXPECT_NE(policy.find("frame-ancestors 'none'"), std::string::npos);
      EXPECT_EQ(response.get_header_value("Cache-Control"), "no-store");
      EXPECT_EQ(response.get_header_value("X-Content-Type-Options"), "nosniff");
      EXPECT_EQ(response.get_header_value("Referrer-Policy"), "no-referrer");
      EXPECT_EQ(response.get_header_value("Cross-Origin-Resource-Policy"), "same-origin");
      EXPECT_FALSE(response.has_header("Access-Control-Allow-Origin"));
    }
  }));
}

TEST(Serve, keepsOthersOut) {
  static_cast<void>(whileServing([](const Served& served) {
    const std::string port = std::to_string(served.port);
    const std::string own = std::string("127.0.0.1:").append(port);
    const std::string ownPage = std::string("http://").append(own);
    const std::string look = served.path + "look";
    struct Row {
      std::string method;
      std::string path;
      httplib::Headers headers;
      int status;
    };
    const httplib::Headers::value_type bytes{"Content-Type", kBytes};
    const Row rows[] = {
        {"GET", served.path, {}, 200},
        {"GET", served.path, {{"Host", std::string("localhost:").append(port)}}, 200},
        {"GET", served.path, {{"Host", std::string("evil.example:").append(port)}}, 403},
        {"GET", served.path, {{"Host", "127.0.0.1"}}, 403},
        {"GET", served.path, {{"Host", own}, {"Host", "evil.example"}}, 403},
        {"GET", served.path, {{"Sec-Fetch-Site", "cross-site"}}, 403},
        {"GET", "/", {}, 403},
        {"GET", "/favicon.ico", {}, 403},
        {"GET", "/0123456789abcdef0123456789abcdef/", {}, 403},
        {"GET", served.path + "../", {}, 404},
        {"GET", served.path + "%2e%2e/%2e%2e/etc/passwd", {}, 404},
        {"GET", served.path + "look", {}, 405},
        {"HEAD", served.path, {}, 405},
        {"PUT", look, {bytes}, 405},
        {"DELETE", look, {}, 405},
        {"OPTIONS", look, {{"Access-Control-Request-Method", "POST"}}, 405},
        {"POST", served.path, {bytes}, 405},
        {"POST", look, {bytes}, 200},
        {"POST", look, {bytes, {"Origin", ownPage}}, 200},
        {"POST", look, {bytes, {"Origin", "http://evil.example"}}, 403},
        {"POST", look, {bytes, {"Origin", "null"}}, 403},
        {"POST", look, {bytes, {"Sec-Fetch-Site", "same-site"}}, 403},
        {"POST", "/0123456789abcdef0123456789abcdef/look", {bytes}, 403},
        {"POST", "/look", {bytes}, 403},
        {"POST", look, {{"Content-Type", "text/plain"}}, 415},
        {"POST", look, {{"Content-Type", "multipart/form-data; boundary=a"}}, 415},
        {"POST", look, {bytes, {"Content-Encoding", "gzip"}}, 415},
        {"POST", served.path + "changes", {bytes}, 400},
        {"POST", served.path + "changes?to=5.0", {bytes}, 400},
        {"POST", served.path + "result?to=5.0", {bytes}, 400},
    };
    for (const Row& row : rows) {
      const bool hasBody = row.method == "POST" || row.method == "PUT";
      const httplib::Response response =
          asked(served, row.method, row.path, row.headers, hasBody ? kCard : "");
      EXPECT_EQ(response.status, row.status) << row.method << " " << row.path;
      if (response.status != 200) {
        EXPECT_EQ(response.body.find(served.path), std::string::npos);
      }
    }
  }));
}

TEST(Serve, answersWithWhatTheCommandsSay) {
  static_cast<void>(whileServing([](const Served& served) {
    const std::string path = sourcePath("examples/mistakes.vcf");
    const std::string file = fileContent(path);
    const rapidjson::Document look = jsonFrom(posted(served, "look", file).body);
    EXPECT_EQ(countOf(look, "repairs"), 8U);
    EXPECT_EQ(posted(served, "result", file).body, runTool({{"clean", path}, ""}).output);
    EXPECT_EQ(posted(served, "result?to=4.0", file).body,
              runTool({{"convert", "--to", "4.0", path}, ""}).output);
    const rapidjson::Document changes = jsonFrom(posted(served, "changes?to=2.1", file).body);
    EXPECT_GT(countOf(changes, "changes"), 10U);
    EXPECT_EQ(countOf(jsonFrom(posted(served, "look", "").body), "cards"), 0U);
  }));
}

TEST(Serve, storesNothing) {
  const TemporaryFolder folder;
  Invocation invocation{{"serve"}, ""};
  invocation.environment = {{"TMPDIR", folder.path()}, {"HOME", folder.path()}};
  const auto isEmpty = [&] { return std::filesystem::is_empty(folder.path()); };
  const Outcome outcome = whileServing(
      [&](const Served& served) {
        const std::string large(20'000'000, 'a');
        EXPECT_EQ(posted(served, "look", kCard + large).status, 200);
        EXPECT_TRUE(isEmpty());
      },
      invocation);
  EXPECT_TRUE(isEmpty());
  EXPECT_EQ(outcome.errors, "cardwright: open this address in a browser; Ctrl-C ends it\n");
}

TEST(Serve, takesNoFileThatIsTooLarge) {
  static_cast<void>(whileServing([](const Served& served) {
    const std::pair<std::string, const char*> lengths[] = {
        {"Content-Length: 67108865\r\n", "HTTP/1.1 413 "},
        {"Content-Length: 99999999999999999999999\r\n", "HTTP/1.1 413 "},
        {"Content-Length: -1\r\n", "HTTP/1.1 411 "},
        {"Content-Length: 1x\r\n", "HTTP/1.1 411 "},
        {"Transfer-Encoding: chunked\r\n", "HTTP/1.1 41"},
        {"", "HTTP/1.1 411 "},
    };
    for (const auto& [length, status] : lengths) {
      const Line line(served.port);
      line.say(uploadHead(served, length));
      const std::string heard = line.heard();
      EXPECT_TRUE(heard.starts_with(status)) << length << heard.substr(0, 40);
    }
    const Line line(served.port);
    line.say(uploadHead(served, "Content-Length: 67108865\r\n"));
    EXPECT_NE(line.heard().find("This file is larger than 64 MB."), std::string::npos);
    EXPECT_EQ(posted(served, "look", std::string(std::size_t{64} * 1024 * 1024, 'a')).status, 200);
    EXPECT_EQ(posted(served, "look", std::string(3'000'001, '\n')).status, 413);
    EXPECT_EQ(posted(served, "result?to=4.0", std::string(3'000'001, '\r')).status, 413);
  }));
}

TEST(Serve, answersSeveralAtOnce) {
  static_cast<void>(whileServing([](const Served& served) {
    std::string file;
    while (file.size() < 2'000'000) {
      file += kCard;
    }
    std::vector<std::future<httplib::Response>> answers;
    for (int count = 0; count < 6; ++count) {
      answers.push_back(
          std::async(std::launch::async, [&] { return posted(served, "result?to=4.0", file); }));
    }
    const std::string expected = answers.front().get().body;
    EXPECT_GT(expected.size(), 2'000'000U);
    for (std::size_t at = 1; at < answers.size(); ++at) {
      const httplib::Response response = answers[at].get();
      EXPECT_EQ(response.status, 200);
      EXPECT_TRUE(response.body == expected);
    }
  }));
}

TEST(Serve, outlivesThoseWhoLeaveMidway) {
  static_cast<void>(whileServing([](const Served& served) {
    for (int count = 0; count < 5; ++count) {
      const Line upload(served.port);
      EXPECT_TRUE(upload.isOpen());
      upload.say(uploadHead(served, "Content-Length: 1000000\r\n") + kCard);
      const Line head(served.port);
      head.say(uploadHead(served, "").substr(0, 60));
      const Line nonsense(served.port);
      nonsense.say(std::string("\0\xFF\r\n\r\n", 6));
    }
    EXPECT_EQ(posted(served, "look", kCard).status, 200);
  }));
}

TEST(Serve, isNotHeldUpByTheSilent) {
  static_cast<void>(whileServing([](const Served& served) {
    std::vector<std::unique_ptr<Line>> silent;
    for (int count = 0; count < 20; ++count) {
      silent.push_back(std::make_unique<Line>(served.port));
    }
    EXPECT_EQ(posted(served, "look", kCard).status, 200);
    const Line slow(served.port);
    slow.say(uploadHead(served, "Content-Length: 1000\r\n") + kCard);
    EXPECT_EQ(silent.front()->heard(), "");
    EXPECT_TRUE(slow.heard().starts_with("HTTP/1.1 400 "));
  }));
}

} // namespace
} // namespace cardwright::tool
