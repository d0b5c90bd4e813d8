#include "serve/webdriver.h"

#include "serve/json_answer.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <httplib.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace cardwright::tool {

namespace {

using Json = rapidjson::Document;

constexpr const char* kDriver = "/usr/bin/chromedriver";
constexpr const char* kBrowser = "/usr/bin/chromium";
constexpr std::chrono::seconds kPatience{60};

std::string quoted(const std::string& text) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  return buffer.GetString();
}

std::string textOf(const rapidjson::Value& value) {
  if (value.IsString()) {
    return {value.GetString(), value.GetStringLength()};
  }
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return buffer.GetString();
}

std::string decodedBase64(const std::string& text) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  unsigned bits = 0;
  unsigned count = 0;
  for (const char digit : text) {
    const std::size_t value = kDigits.find(digit);
    if (value == std::string_view::npos) {
      continue;
    }
    bits = bits << 6U | static_cast<unsigned>(value);
    count += 6;
    if (count >= 8) {
      count -= 8;
      bytes.push_back(static_cast<char>(bits >> count & 0xFFU));
    }
  }
  return bytes;
}

} // namespace

/// chromedriver, and one session with it.
class Browser::Driver {
 public:
  explicit Driver(const std::string& folder) {
    start(folder + "/driver.txt");
    const std::string root = ::geteuid() == 0 ? R"("--no-sandbox",)" : "";
    const Json answer = ask("POST", "/session",
                            R"({"capabilities":{"alwaysMatch":{"browserName":"chrome",
            "goog:loggingPrefs":{"performance":"ALL","browser":"ALL"},
            "goog:chromeOptions":{"binary":)" +
                                quoted(kBrowser) + R"(,"args":["--headless=new",)" + root +
                                R"("--disable-gpu","--disable-dev-shm-usage","--no-first-run",
               "--disable-background-networking","--disable-component-update","--disable-sync",
               "--hide-scrollbars",)" +
                                quoted("--user-data-dir=" + folder + "/profile") +
                                R"(],"prefs":{"download.default_directory":)" +
                                quoted(folder + "/downloads") + "}}}}}");
    m_session = "/session/" + textOf(answer["value"]["sessionId"]);
  }
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;
  ~Driver() {
    if (!m_session.empty()) {
      static_cast<void>(client().Delete(m_session));
    }
    ::kill(m_process, SIGTERM);
    ::waitpid(m_process, nullptr, 0);
  }

  Json post(const std::string& path, const std::string& body) {
    return ask("POST", m_session + path, body);
  }

  Json command(const std::string& name, const std::string& parameters) {
    return post("/goog/cdp/execute",
                R"({"cmd":)" + quoted(name) + R"(,"params":)" + parameters + "}");
  }

  std::string element(const std::string& css) {
    const Json answer =
        post("/execute/sync", R"({"args":[)" + quoted(css) + R"(],"script":)" +
                                  quoted("return document.querySelector(arguments[0])") + "}");
    return "/element/" + textOf(answer["value"].MemberBegin()->value);
  }

 private:
  /// It says on which port it listens.
  void start(const std::string& outputPath) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    std::string program = kDriver;
    std::string port = "--port=0";
    char* const arguments[] = {program.data(), port.data(), nullptr};
    const int error = ::posix_spawn(&m_process, kDriver, &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
      throw std::runtime_error("chromedriver cannot be started");
    }
    constexpr std::string_view kSign = "started successfully on port ";
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < deadline) {
      std::ifstream file(outputPath);
      const std::string said{std::istreambuf_iterator<char>(file), {}};
      const std::size_t at = said.find(kSign);
      if (at != std::string::npos && said.find('\n', at) != std::string::npos) {
        m_port = std::stoi(said.substr(at + kSign.size()));
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    throw std::runtime_error("chromedriver does not start");
  }

  [[nodiscard]] httplib::Client client() const {
    httplib::Client made("127.0.0.1", m_port);
    made.set_read_timeout(kPatience);
    return made;
  }

  Json ask(const std::string& method, const std::string& path, const std::string& body) const {
    httplib::Client speaking = client();
    const httplib::Result result =
        method == "POST" ? speaking.Post(path, body, "application/json") : speaking.Get(path);
    if (!result) {
      throw std::runtime_error(path + ": " + httplib::to_string(result.error()));
    }
    if (result->status != 200) {
      throw std::runtime_error(path + ": " + result->body.substr(0, 500));
    }
    return jsonFrom(result->body);
  }

  pid_t m_process = -1;
  int m_port = 0;
  std::string m_session;
};

bool Browser::isThere() {
  return std::filesystem::exists(kDriver) && std::filesystem::exists(kBrowser);
}

Browser::Browser(const std::string& folder) : m_driver(std::make_unique<Driver>(folder)) {}
Browser::~Browser() = default;

void Browser::open(const std::string& address) {
  m_driver->post("/url", R"({"url":)" + quoted(address) + "}");
}

void Browser::resize(int width, int height) {
  m_driver->command("Emulation.setDeviceMetricsOverride",
                    R"({"mobile":false,"deviceScaleFactor":1,"width":)" + std::to_string(width) +
                        R"(,"height":)" + std::to_string(height) + "}");
}

void Browser::preferColors(const std::string& scheme) {
  m_driver->command("Emulation.setEmulatedMedia",
                    R"({"features":[{"name":"prefers-color-scheme","value":)" + quoted(scheme) +
                        "}]}");
}

void Browser::chooseFile(const std::string& css, const std::string& path) {
  type(css, path);
}

void Browser::click(const std::string& css) {
  m_driver->post(m_driver->element(css) + "/click", "{}");
}

void Browser::type(const std::string& css, const std::string& text) {
  m_driver->post(m_driver->element(css) + "/value", R"({"text":)" + quoted(text) + "}");
}

std::string Browser::valueOf(const std::string& expression) {
  const Json answer = m_driver->post("/execute/sync", R"({"args":[],"script":)" +
                                                          quoted("return " + expression) + "}");
  return textOf(answer["value"]);
}

void Browser::waitUntil(const std::string& expression) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (valueOf("Boolean(" + expression + ")") != "true") {
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error("waited in vain: " + expression);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

void Browser::saveScreenshot(const std::string& path) {
  const Json answer = m_driver->command("Page.captureScreenshot",
                                        R"({"format":"png","captureBeyondViewport":true})");
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << decodedBase64(textOf(answer["value"]["data"]));
}

Browser::Log Browser::takeLog() {
  Log log;
  const Json events = m_driver->post("/se/log", R"({"type":"performance"})");
  for (const auto& entry : events["value"].GetArray()) {
    const Json event = jsonFrom(textOf(entry["message"]));
    const auto& message = event["message"];
    if (textOf(message["method"]) == "Network.requestWillBeSent") {
      log.requests.push_back(textOf(message["params"]["request"]["url"]));
    }
  }
  const Json lines = m_driver->post("/se/log", R"({"type":"browser"})");
  for (const auto& entry : lines["value"].GetArray()) {
    log.problems.push_back(textOf(entry["message"]));
  }
  return log;
}

} // namespace cardwright::tool
