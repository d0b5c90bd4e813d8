#include "serve/server.h"

#include "serve/answers.h"
#include "serve/guard.h"
#include "serve/page_files.h"
#include "version_name.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <exception>
#include <httplib.h>
#include <mutex>
#include <optional>
#include <semaphore>
#include <string_view>
#include <utility>

namespace cardwright::tool {

namespace {

constexpr std::array kRoutes{
    Route{"GET", ""},         Route{"GET", "page.css"}, Route{"GET", "page.js"},
    Route{"GET", "icon.svg"}, Route{"POST", "look"},    Route{"POST", "changes"},
    Route{"POST", "result"},
};

constexpr const char* kAddress = "127.0.0.1";
constexpr const char* kBytesType = "application/octet-stream";
constexpr std::size_t kConnections = 16;     ///< that are spoken with at once
constexpr std::size_t kWaiting = 64;         ///< before the system lets others wait
constexpr std::ptrdiff_t kFilesAtOnce = 2;   ///< for one may need much memory
constexpr std::chrono::seconds kPatience{5}; ///< with a client that says nothing
constexpr std::chrono::seconds kUploadTime{60};

constexpr std::string_view kElsewhere = "Please use cardwright on the command line for it.";

/// What every answer says: no other site may show, read or keep anything of it, and the page can
/// reach nothing but us.
httplib::Headers commonHeaders() {
  return {
      {"Content-Security-Policy",
       "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
       "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'; "
       "require-trusted-types-for 'script'; trusted-types 'none'"},
      {"Cache-Control", "no-store"},
      {"X-Content-Type-Options", "nosniff"},
      {"X-Frame-Options", "DENY"},
      {"Referrer-Policy", "no-referrer"},
      {"Cross-Origin-Opener-Policy", "same-origin"},
      {"Cross-Origin-Resource-Policy", "same-origin"},
  };
}

/// Lets connections wait with the system when there are too many.
class BoundedPool final : public httplib::ThreadPool {
 public:
  BoundedPool() : ThreadPool(kConnections) {}

  void enqueue(std::function<void()> job) override {
    m_places.acquire();
    ThreadPool::enqueue([this, job = std::move(job)] {
      job();
      m_places.release();
    });
  }

 private:
  std::counting_semaphore<> m_places{kConnections + kWaiting};
};

std::vector<std::string> headersNamed(const httplib::Request& request, const char* name) {
  std::vector<std::string> values;
  const auto [begin, end] = request.headers.equal_range(name);
  for (auto header = begin; header != end; ++header) {
    values.push_back(header->second);
  }
  return values;
}

void refuse(httplib::Response& response, int status, const std::string& message) {
  response.status = status;
  response.set_content(message + "\n", "text/plain; charset=utf-8");
}

/// @returns whether the request may go on
bool isAllowed(Verdict verdict, httplib::Response& response) {
  switch (verdict) {
  case Verdict::allowed:
    return true;
  case Verdict::foreignHost:
    refuse(response, 403, "This is not the address that cardwright serve printed.");
    break;
  case Verdict::foreignPage:
    refuse(response, 403, "Other pages cannot reach this one.");
    break;
  case Verdict::wrongToken:
    refuse(response, 403,
           "This address is over, or not complete. Please use the one that cardwright serve "
           "printed last.");
    break;
  case Verdict::unknownName:
    refuse(response, 404, "There is nothing of this name.");
    break;
  case Verdict::wrongMethod:
    refuse(response, 405, "This cannot be done here.");
    break;
  }
  return false;
}

/// Lines cost memory each, however short they are; usual files of the largest size have fewer.
constexpr std::ptrdiff_t kMostLines = 3'000'000;

bool hasTooManyLines(std::string_view bytes) {
  return std::count(bytes.begin(), bytes.end(), '\n') > kMostLines ||
         std::count(bytes.begin(), bytes.end(), '\r') > kMostLines;
}

std::string tooLarge() {
  return "This file is larger than " + std::to_string(kMostBytes / 1024 / 1024) + " MB. " +
         std::string(kElsewhere);
}

/// What is said about the body in front of it.
bool isFitBody(const httplib::Request& request, httplib::Response& response) {
  // No page of another site can send this type without asking first, and nobody answers that.
  if (request.get_header_value("Content-Type") != kBytesType) {
    refuse(response, 415, "Files are taken as application/octet-stream only.");
    return false;
  }
  if (request.has_header("Content-Encoding") || request.has_header("Transfer-Encoding")) {
    refuse(response, 415, "Files are taken as they are only.");
    return false;
  }
  const std::string length = request.get_header_value("Content-Length");
  std::size_t size = 0;
  const auto [end, error] = std::from_chars(length.data(), length.data() + length.size(), size);
  if (error == std::errc::invalid_argument || end != length.data() + length.size()) {
    refuse(response, 411, "The length of the file has to be told first.");
    return false;
  }
  if (error != std::errc() || size > kMostBytes) {
    refuse(response, 413, tooLarge());
    return false;
  }
  return true;
}

/// Takes a file.
/// @returns absent when it did not come, which is then said
std::optional<std::string> receive(const httplib::ContentReader& read,
                                   httplib::Response& response) {
  const auto deadline = std::chrono::steady_clock::now() + kUploadTime;
  bool isLate = false;
  std::string bytes;
  const bool isWhole = read([&](const char* data, std::size_t size) {
    isLate = std::chrono::steady_clock::now() > deadline;
    if (isLate || size > kMostBytes - bytes.size()) {
      return false;
    }
    bytes.append(data, size);
    return true;
  });
  if (isLate) {
    refuse(response, 408, "The file came too slowly.");
  } else if (!isWhole) {
    refuse(response, 400, "The file did not come as a whole.");
  }
  return isWhole ? std::optional(std::move(bytes)) : std::nullopt;
}

class PageServer {
 public:
  explicit PageServer(std::string token) : m_token(std::move(token)) {
    m_server.new_task_queue = [] { return new BoundedPool; }; // NOLINT: httplib deletes it
    m_server.set_address_family(AF_INET);
    m_server.set_socket_options([](socket_t socket) {
      const int yes = 1; // After an end, the same port can be had again at once; never shared.
      ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    m_server.set_keep_alive_max_count(1);
    m_server.set_read_timeout(kPatience);
    m_server.set_write_timeout(kPatience);
    m_server.set_default_headers(commonHeaders());
    m_server.set_pre_routing_handler([this](const auto& request, auto& response) {
      return answerWithoutBody(request, response);
    });
    // Only what was let through so far comes here.
    m_server.Post(
        ".*", [this](const httplib::Request& request, httplib::Response& response,
                     const httplib::ContentReader& read) { answerFile(request, response, read); });
    m_server.set_exception_handler(
        [](const auto& /*request*/, auto& response, const std::exception_ptr& /*problem*/) {
          refuse(response, 500, "There was not enough memory for this file.");
        });
  }

  /// @returns the port, or a negative number
  int bind(int port) {
    errno = 0;
    const int bound = port == 0                               ? m_server.bind_to_any_port(kAddress)
                      : m_server.bind_to_port(kAddress, port) ? port
                                                              : -1;
    m_guard.emplace(bound, m_token, kRoutes);
    return bound;
  }

  void listen() { m_server.listen_after_bind(); }

 private:
  using Handled = httplib::Server::HandlerResponse;

  Handled answerWithoutBody(const httplib::Request& request, httplib::Response& response) {
    const RequestHead head{request.method, request.path, headersNamed(request, "Host"),
                           headersNamed(request, "Origin"),
                           headersNamed(request, "Sec-Fetch-Site")};
    if (!isAllowed(m_guard->judge(head), response)) {
      return Handled::Handled;
    }
    if (request.method == "POST") {
      return isFitBody(request, response) ? Handled::Unhandled : Handled::Handled;
    }
    const PageFile* const file = pageFile(m_guard->nameIn(request.path));
    response.set_content(file->content.data(), file->content.size(), std::string(file->type));
    return Handled::Handled;
  }

  void answerFile(const httplib::Request& request, httplib::Response& response,
                  const httplib::ContentReader& read) {
    const std::string_view name = m_guard->nameIn(request.path);
    const std::string wanted = request.get_param_value("to");
    const std::optional<VersionCode> version = versionNamed(wanted);
    if (!version && (name == "changes" || !wanted.empty())) {
      refuse(response, 400, "The version has to be 2.1, 3.0 or 4.0.");
      return;
    }
    m_files.acquire();
    const std::unique_ptr<std::counting_semaphore<>, void (*)(std::counting_semaphore<>*)> place(
        &m_files, [](auto* files) { files->release(); });
    const std::optional<std::string> bytes = receive(read, response);
    if (!bytes) {
      return;
    }
    if (hasTooManyLines(*bytes)) {
      refuse(response, 413, "This file has more than 3 million lines. " + std::string(kElsewhere));
      return;
    }
    if (name == "result") {
      response.set_content(resultAnswer(*bytes, version), kBytesType);
    } else {
      response.set_content(name == "look" ? lookAnswer(*bytes) : changesAnswer(*bytes, *version),
                           "application/json; charset=utf-8");
    }
  }

  std::string m_token;
  std::optional<Guard> m_guard; ///< from when the port is known
  std::counting_semaphore<> m_files{kFilesAtOnce};
  httplib::Server m_server;
};

} // namespace

int serve(int port, const std::string& token,
          const std::function<bool(const std::string& address)>& isReady) {
  PageServer server(token);
  const int bound = server.bind(port);
  if (bound < 0) {
    return errno == 0 ? EADDRINUSE : errno;
  }
  if (isReady("http://" + std::string(kAddress) + ":" + std::to_string(bound) + "/" + token +
              "/")) {
    server.listen();
  }
  return 0;
}

} // namespace cardwright::tool
