#include "serve/guard.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace cardwright::tool {

namespace {

constexpr std::string_view kScheme = "http://";

} // namespace

bool isSameSecret(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) {
    return false;
  }
  volatile unsigned difference = 0; // so that no compiler stops at the first
  for (std::size_t at = 0; at < left.size(); ++at) {
    difference = difference | (static_cast<unsigned char>(left[at]) ^
                               static_cast<unsigned>(static_cast<unsigned char>(right[at])));
  }
  return difference == 0;
}

Guard::Guard(int port, std::string token, std::span<const Route> routes)
    : m_hosts{"127.0.0.1:" + std::to_string(port), "localhost:" + std::to_string(port)},
      m_token(std::move(token)),
      m_routes(routes) {}

bool Guard::isOurHost(std::string_view host) const {
  return std::find(m_hosts.begin(), m_hosts.end(), host) != m_hosts.end();
}

/// Browsers name the page that sends a request in Origin, and say in Sec-Fetch-Site how it is
/// related to us; "none" is somebody who opens the address. Other programs say nothing.
bool Guard::comesFromUs(const RequestHead& head) const {
  const std::string own = std::string(kScheme).append(head.hosts.front());
  const bool isOpened = head.method == "GET";
  return std::all_of(head.origins.begin(), head.origins.end(),
                     [&](const std::string& origin) { return origin == own; }) &&
         std::all_of(head.fetchSites.begin(), head.fetchSites.end(), [&](const std::string& site) {
           return site == "same-origin" || (site == "none" && isOpened);
         });
}

bool Guard::hasToken(std::string_view path) const {
  return path.size() > m_token.size() + 1 && path.front() == '/' &&
         path[m_token.size() + 1] == '/' && isSameSecret(path.substr(1, m_token.size()), m_token);
}

std::string_view Guard::nameIn(std::string_view path) const {
  return path.substr(m_token.size() + 2);
}

Verdict Guard::judge(const RequestHead& head) const {
  if (head.hosts.size() != 1 || !isOurHost(head.hosts.front())) {
    return Verdict::foreignHost;
  }
  if (!comesFromUs(head)) {
    return Verdict::foreignPage;
  }
  if (!hasToken(head.path)) {
    return Verdict::wrongToken;
  }
  const std::string_view name = nameIn(head.path);
  bool isKnown = false;
  for (const Route& route : m_routes) {
    if (route.name == name) {
      isKnown = true;
      if (route.method == head.method) {
        return Verdict::allowed;
      }
    }
  }
  return isKnown ? Verdict::wrongMethod : Verdict::unknownName;
}

} // namespace cardwright::tool
