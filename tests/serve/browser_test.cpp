#include "serve/served_tool.h"
#include "serve/webdriver.h"

#include <gtest/gtest.h>

#include <chrono>
#include <exception>
#include <filesystem>
#include <thread>

namespace cardwright::tool {
namespace {

/// Cards as people have them, damaged as programs do it, and one that would like to be a page.
constexpr const char* kFamily =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Jane Doe\r\nN:Doe;Jane;;;\r\n"
    "TEL;TYPE=CELL:+1 555 0100EMAIL:jane@example.com\r\nNOTE:Call me&#13;&#10;later\r\n"
    "ADR;TYPE=HOME:;;12 Garden Road;Oxford;;OX1 2AB;England\r\nBDAY:1985-04-12\r\n"
    "X-CREATED:20240203T101112Z\r\nX-CREATED:20240203T101112Z\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:<img src=x onerror=alert(1)>\r\n"
    "ORG:<script>document.title='taken'</script>\r\nNICKNAME:Bobby\r\nTZ:EST\r\n"
    "URL:https://elsewhere.example/\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCller;J=C3="
    "B6rg\r\n"
    "NOTE;ENCODING=QUOTED-PRINTABLE:a long note=\r\nthat goes on\r\nTEL;HOME;VOICE:+49 30 1234\r\n"
    "no colon here\r\nEND:VCARD\r\n";

std::string screenshot(const std::string& name) {
  return CARDWRIGHT_SCREENSHOTS "/" + name + ".png";
}

std::string count(Browser& browser, const std::string& css) {
  return browser.valueOf("document.querySelectorAll('" + css + "').length");
}

std::string text(Browser& browser, const std::string& css) {
  return browser.valueOf("document.querySelector('" + css + "').innerText");
}

/// The file, once all of it is there.
std::string downloaded(const std::string& path) {
  for (int round = 0; round < 400 && !std::filesystem::exists(path); ++round) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return fileContent(path);
}

/// Some containers have a browser that cannot start in them.
bool browserStarts() {
  static const bool starts = [] {
    const TemporaryFolder folder;
    try {
      const Browser browser(folder.path());
      return true;
    } catch (const std::exception&) {
      return false;
    }
  }();
  return starts;
}

class Page : public testing::Test {
 protected:
  void SetUp() override {
    if (!Browser::isThere()) {
      GTEST_SKIP() << "needs chromium and chromium-driver";
    }
    if (!browserStarts()) {
      GTEST_SKIP() << "chromium does not start here";
    }
  }

  /// Does something with the page, which then must have spoken with us only.
  void onPage(const std::function<void(Browser&)>& use) const {
    static_cast<void>(whileServing([&](const Served& served) {
      Browser browser(m_folder.path());
      browser.resize(1100, 900);
      browser.open("about:blank");
      static_cast<void>(browser.takeLog()); // of the page that the browser itself begins with
      browser.open(served.address);
      use(browser);
      const Browser::Log log = browser.takeLog();
      EXPECT_GE(log.requests.size(), 4U);
      const std::string origin =
          served.address.substr(0, served.address.size() - served.path.size());
      for (const std::string& request : log.requests) {
        EXPECT_TRUE(request.starts_with(served.address) ||
                    request.starts_with(std::string("blob:").append(origin)))
            << request;
      }
      EXPECT_EQ(log.problems, std::vector<std::string>());
    }));
  }

  [[nodiscard]] std::string write(std::string_view name, std::string_view bytes) const {
    return m_folder.write(name, bytes);
  }
  [[nodiscard]] std::string download(const std::string& name) const {
    return downloaded(m_folder.path() + "/downloads/" + name);
  }

 private:
  TemporaryFolder m_folder;
};

TEST_F(Page, showsRepairsFindingsAndCardsAndSavesThem) {
  const std::string path = write("family.vcf", kFamily);
  onPage([&](Browser& browser) {
    browser.saveScreenshot(screenshot("empty"));
    browser.chooseFile("#file", path);
    browser.waitUntil("!document.querySelector('#result').hidden");
    EXPECT_EQ(text(browser, "#name"), "family.vcf");
    EXPECT_EQ(browser.valueOf("document.activeElement.id"), "name");

    EXPECT_EQ(count(browser, ".card"), "3");
    EXPECT_EQ(text(browser, ".card h3"), "Jane Doe");
    EXPECT_NE(text(browser, "#cards").find("+49 30 1234"), std::string::npos);
    EXPECT_NE(text(browser, "#cards").find("12 Garden Road"), std::string::npos);

    // What wants to be a part of the page is text.
    EXPECT_EQ(count(browser, "#result img, #result script, #cards a"), "0");
    EXPECT_NE(text(browser, "#cards").find("<img src=x onerror=alert(1)>"), std::string::npos);
    EXPECT_EQ(browser.valueOf("document.title"), "Cardwright");

    EXPECT_EQ(text(browser, ".repair h3"), "Several entries stood on one line card 1, line 5");
    EXPECT_EQ(text(browser, ".repair .before pre"),
              "TEL;TYPE=CELL:+1 555 0100EMAIL:jane@example.com");
    EXPECT_EQ(text(browser, ".repair .after pre"),
              "TEL;TYPE=CELL:+1 555 0100↵\nEMAIL:jane@example.com");
    EXPECT_EQ(text(browser, ".repair .after mark"), "↵\n");
    EXPECT_EQ(count(browser, ".repair"), "4");
    EXPECT_NE(text(browser, "#repairs summary").find("1 line could not be used"),
              std::string::npos);

    EXPECT_NE(text(browser, "#findings").find("line 5, column"), std::string::npos);
    EXPECT_NE(text(browser, "#findings").find("merged-properties"), std::string::npos);

    browser.saveScreenshot(screenshot("wide-light"));
    browser.preferColors("dark");
    browser.saveScreenshot(screenshot("wide-dark"));
    browser.resize(390, 844);
    browser.saveScreenshot(screenshot("narrow-dark"));
    EXPECT_EQ(browser.valueOf("document.documentElement.scrollWidth <= 390"), "true");
    browser.preferColors("light");
    browser.resize(1100, 900);

    browser.click("button[type=submit]");
    EXPECT_EQ(download("family-repaired.vcf"), runTool({{"clean", path}, ""}).output);
    EXPECT_TRUE(text(browser, "#saved").starts_with("family-repaired.vcf is saved"));
    browser.click("input[value='2.1']");
    browser.waitUntil("document.querySelectorAll('#changes details').length > 0");
    EXPECT_NE(text(browser, "#changes").find("X-"), std::string::npos);
    EXPECT_EQ(text(browser, "#changes p"), "1 line that could not be used is left out.");
    browser.click("#changes summary");
    browser.saveScreenshot(screenshot("changes"));
    browser.click("input[value='4.0']");
    browser.click("button[type=submit]");
    EXPECT_EQ(download("family-4.0.vcf"), runTool({{"convert", "--to", "4.0", path}, ""}).output);
  });
}

TEST_F(Page, tellsWhatAVersionCannotCarry) {
  const std::string path = write("one.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:a\r\nN:a;;;;\r\n"
                                            "TEL;X-A=\"b&#9;c\":1\r\nBDAY;VALUE=date:someday\r\n"
                                            "PHOTO;ENCODING=b:AAA\r\nEND:VCARD\r\n");
  onPage([&](Browser& browser) {
    browser.chooseFile("#file", path);
    browser.waitUntil("!document.querySelector('#result').hidden");
    browser.click("input[value='4.0']");
    browser.waitUntil("document.querySelectorAll('#changes .loss').length > 0");
    EXPECT_TRUE(text(browser, "#changes p").ends_with("they are.") ||
                text(browser, "#changes p").ends_with("it is."));
    EXPECT_NE(text(browser, "#changes summary").find("Damaged, and so left as it is"),
              std::string::npos);
  });
}

TEST_F(Page, saysWhenNobodyAnswers) {
  const std::string path = write("one.vcf", "BEGIN:VCARD\r\nEND:VCARD\r\n");
  const TemporaryFolder folder;
  std::unique_ptr<Browser> browser;
  static_cast<void>(whileServing([&](const Served& served) {
    browser = std::make_unique<Browser>(folder.path());
    browser->open(served.address);
  }));
  ASSERT_TRUE(browser);
  browser->chooseFile("#file", path);
  browser->waitUntil("!document.querySelector('#problem').hidden");
  EXPECT_TRUE(text(*browser, "#problem").starts_with("Nobody answers."));
}

TEST_F(Page, takesFilesThatAreDroppedOnIt) {
  onPage([&](Browser& browser) {
    EXPECT_EQ(browser.valueOf("(() => { const data = new DataTransfer();"
                              "data.items.add(new File(['BEGIN:VCARD\\nVERSION:4.0\\nFN:Ada\\n"
                              "END:VCARD\\n'], 'dropped.vcf'));"
                              "document.querySelector('#drop').dispatchEvent(new DragEvent('drop',"
                              "{bubbles: true, cancelable: true, dataTransfer: data}));"
                              "return 'dropped'; })()"),
              "dropped");
    browser.waitUntil("!document.querySelector('#result').hidden");
    EXPECT_EQ(text(browser, "#name"), "dropped.vcf");
    EXPECT_EQ(text(browser, ".card h3"), "Ada");
    EXPECT_EQ(text(browser, "#repairs"), "Nothing had to be repaired.");
    EXPECT_EQ(text(browser, "#findings"), "Nothing is wrong with it.");
    browser.click("input[value='3.0']");
    browser.waitUntil("document.querySelector('#changes p')");
    EXPECT_EQ(text(browser, "#changes p"), "Nothing is lost by this.");
  });
}

TEST_F(Page, showsEachKindOfRepairAndWhatIsWrong) {
  const std::string path = sourcePath("examples/mistakes.vcf");
  onPage([&](Browser& browser) {
    browser.chooseFile("#file", path);
    browser.waitUntil("!document.querySelector('#result').hidden");
    EXPECT_EQ(count(browser, ".repair"), "8");
    const std::string lines = runTool({{"check", path}, ""}).output;
    EXPECT_EQ(count(browser, "#findings tbody tr"),
              std::to_string(std::count(lines.begin(), lines.end(), '\n')));
    EXPECT_NE(text(browser, "#repairs").find("1 byte left out"), std::string::npos);
    browser.type("#filter", "Main Street");
    browser.waitUntil("document.querySelectorAll('.card').length === 1");
    EXPECT_NE(text(browser, ".card").find("Main Street"), std::string::npos);
  });
}

TEST_F(Page, showsLongListsPieceByPiece) {
  std::string cards;
  for (int number = 0; number < 450; ++number) {
    cards +=
        "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Number " + std::to_string(number) + "\r\nEND:VCARD\r\n";
  }
  const std::string path = write("many.vcf", cards);
  onPage([&](Browser& browser) {
    browser.chooseFile("#file", path);
    browser.waitUntil("!document.querySelector('#result').hidden");
    EXPECT_EQ(count(browser, ".card"), "200");
    browser.click("#cards > button");
    browser.click("#cards > button");
    EXPECT_EQ(count(browser, ".card"), "450");
    EXPECT_EQ(count(browser, "#cards > button"), "0");
  });
}

} // namespace
} // namespace cardwright::tool
