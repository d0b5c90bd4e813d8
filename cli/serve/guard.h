#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// Something that can be asked for, by its name behind the token.
struct Route {
  std::string_view method;
  std::string_view name;
};

/// What a request says about itself before its body. Of headers, each one of the name.
struct RequestHead {
  std::string method;
  std::string path;
  std::vector<std::string> hosts;
  std::vector<std::string> origins;
  std::vector<std::string> fetchSites;
};

enum class Verdict {
  allowed,
  foreignHost, ///< meant for another name, as when that name leads here by deceit
  foreignPage, ///< sent by a page that is not ours
  wrongToken,
  unknownName,
  wrongMethod,
};

/// Decides who may ask for what: only our own page, and whoever was told the token.
class Guard {
 public:
  /// @param routes outlives the guard
  Guard(int port, std::string token, std::span<const Route> routes);

  [[nodiscard]] Verdict judge(const RequestHead& head) const;

  /// What an allowed request asks for.
  [[nodiscard]] std::string_view nameIn(std::string_view path) const;

 private:
  [[nodiscard]] bool isOurHost(std::string_view host) const;
  [[nodiscard]] bool comesFromUs(const RequestHead& head) const;
  [[nodiscard]] bool hasToken(std::string_view path) const;

  std::vector<std::string> m_hosts;
  std::string m_token;
  std::span<const Route> m_routes;
};

/// Compares in a time that tells nothing but the length.
[[nodiscard]] bool isSameSecret(std::string_view left, std::string_view right);

} // namespace cardwright::tool
