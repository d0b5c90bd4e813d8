#pragma once

#include <memory>
#include <string>
#include <vector>

namespace cardwright::tool {

/// Chromium without a window, steered by chromedriver. What fails is thrown.
class Browser {
 public:
  /// Whether both are installed.
  [[nodiscard]] static bool isThere();

  /// @param folder that is kept for the browser: its profile, and "downloads" in it
  explicit Browser(const std::string& folder);
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser();

  void open(const std::string& address);
  void resize(int width, int height);
  void preferColors(const std::string& scheme);
  // Elements are named as in CSS.

  /// Chooses a file in an input.
  void chooseFile(const std::string& css, const std::string& path);
  void click(const std::string& css);
  void type(const std::string& css, const std::string& text);

  /// What an expression of JavaScript is, as a string.
  [[nodiscard]] std::string valueOf(const std::string& expression);
  /// Waits until an expression is true.
  void waitUntil(const std::string& expression);

  /// All of the page as PNG.
  void saveScreenshot(const std::string& path);

  struct Log {
    std::vector<std::string> requests; ///< addresses that the page asked for
    std::vector<std::string> problems; ///< what stands in the console
  };
  /// Since the last call.
  [[nodiscard]] Log takeLog();

 private:
  class Driver;

  std::unique_ptr<Driver> m_driver;
};

} // namespace cardwright::tool
