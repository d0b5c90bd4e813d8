#include "support/address_book.h"

#include "support/address_book_regions.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace cardwright {

namespace {

constexpr std::size_t kLineBytes = 75;

using Strings = std::initializer_list<std::string_view>;

/// Whether 2.1 can carry a text only quoted-printable.
bool needsEncoding(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) >= 0x80 || c == '\n' || c == ';' || c == ',' || c == '\\';
  });
}

bool isPlainInQuotedPrintable(unsigned char byte) {
  return byte >= 0x20 && byte < 0x7F && byte != '=' && byte != ';' && byte != ',' && byte != '\\';
}

/// Writes the content lines of one card.
class CardLines {
 public:
  CardLines(std::string& output, int version) : m_output(output), m_version(version) {}

  [[nodiscard]] int version() const noexcept { return m_version; }

  /// The types of a property as its version writes them.
  [[nodiscard]] std::string typed(std::string_view name, Strings types) const {
    std::string header(name);
    for (const std::string_view type : types) {
      header.append(m_version == 2 ? ";" : ";TYPE=").append(type);
    }
    return header;
  }

  /// A value that needs no escapes.
  void raw(std::string_view header, std::string_view value) {
    m_line.assign(header).append(1, ':').append(value);
    fold();
  }

  void text(std::string_view header, std::string_view value) {
    property(header, {value}, m_version == 3);
  }

  void components(std::string_view header, Strings values) { property(header, values, true); }

  void blank() { m_output.append("\r\n"); }

 private:
  void property(std::string_view header, Strings values, bool escapesSemicolons) {
    m_line.assign(header);
    if (m_version == 2 && std::any_of(values.begin(), values.end(), needsEncoding)) {
      m_line.append(";CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:");
      encode(values);
      return;
    }
    m_line.push_back(':');
    bool isFirst = true;
    for (const std::string_view value : values) {
      if (!isFirst) {
        m_line.push_back(';');
      }
      isFirst = false;
      escape(value, escapesSemicolons);
    }
    fold();
  }

  void escape(std::string_view text, bool escapesSemicolons) {
    for (const char c : text) {
      if (c == '\n') {
        m_line.append("\\n");
        continue;
      }
      if (m_version != 2 && (c == ',' || c == '\\' || (c == ';' && escapesSemicolons))) {
        m_line.push_back('\\');
      }
      m_line.push_back(c);
    }
  }

  /// Quoted-printable with soft breaks before indented lines.
  void encode(Strings values) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    m_output.append(m_line);
    std::size_t column = m_line.size();
    const auto put = [&](std::string_view piece) {
      if (column + piece.size() >= kLineBytes) {
        m_output.append("=\r\n ");
        column = 1;
      }
      m_output.append(piece);
      column += piece.size();
    };
    bool isFirst = true;
    for (const std::string_view value : values) {
      if (!isFirst) {
        put(";");
      }
      isFirst = false;
      for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n') {
          put("=0D=0A");
        } else if (isPlainInQuotedPrintable(byte)) {
          put({&c, 1});
        } else {
          const std::array<char, 3> code = {'=', kHex[byte >> 4U], kHex[byte & 15U]};
          put({code.data(), code.size()});
        }
      }
    }
    m_output.append("\r\n");
  }

  /// Cuts between characters, as most programs do: a mark may go to the next line.
  void fold() {
    std::string_view rest = m_line;
    std::size_t limit = kLineBytes;
    while (rest.size() > limit) {
      std::size_t cut = limit;
      while ((static_cast<unsigned char>(rest[cut]) & 0xC0U) == 0x80U) {
        --cut;
      }
      m_output.append(rest.substr(0, cut)).append("\r\n ");
      rest.remove_prefix(cut);
      limit = kLineBytes - 1;
    }
    m_output.append(rest).append("\r\n");
  }

  std::string& m_output;
  int m_version;
  std::string m_line;
};

std::string digits(RandomSource& random, std::size_t count) {
  std::string text;
  for (; count > 0; --count) {
    text.push_back(static_cast<char>('0' + random.below(10)));
  }
  return text;
}

std::string twoDigits(std::size_t number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string uuid(RandomSource& random) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string text = "xxxxxxxx-xxxx-4xxx-axxx-xxxxxxxxxxxx";
  for (char& c : text) {
    if (c == 'x') {
      c = kHex[random.below(16)];
    }
  }
  return text;
}

/// Base64 of what begins like a JPEG picture.
std::string picture(RandomSource& random) {
  constexpr std::string_view kSigns =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string data = "/9j/4AAQSkZJRgABAQAA";
  const std::size_t size = 1024 + 4 * random.below(1024);
  data.reserve(size + 1);
  while (data.size() < size - 1) {
    data.push_back(kSigns[random.below(kSigns.size())]);
  }
  return data.append("=");
}

std::string domainFor(RandomSource& random) {
  constexpr std::array<std::string_view, 6> kDomains = {"example.com",      "example.org",
                                                        "example.net",      "mail.example.com",
                                                        "post.example.org", "works.example.net"};
  return std::string(random.oneOf(kDomains));
}

struct Person {
  const Region& region;
  const LocalName& given;
  const LocalName& family;
  std::string_view middle;
  std::string fullName;
};

Person inventPerson(RandomSource& random) {
  const Region& region = random.oneOf(regions());
  Person person{region, random.oneOf(region.givenNames), random.oneOf(region.familyNames), {}, {}};
  if (!region.familyNameFirst && random.oneIn(5)) {
    person.middle = random.oneOf(region.givenNames).native;
  }
  if (region.familyNameFirst) {
    person.fullName.append(person.family.native).append(" ").append(person.given.native);
    return person;
  }
  person.fullName.append(person.given.native).append(" ");
  if (!person.middle.empty()) {
    person.fullName.append(person.middle).append(" ");
  }
  person.fullName.append(person.family.native);
  return person;
}

std::string phoneNumber(RandomSource& random, const Region& region) {
  return std::string(region.phonePrefix)
      .append(" ")
      .append(digits(random, 3))
      .append(" 555 ")
      .append(digits(random, 4));
}

std::string address(RandomSource& random, const LocalName& given, const LocalName& family) {
  std::string mail(given.latin);
  mail.append(".").append(family.latin);
  if (random.oneIn(3)) {
    mail.append(digits(random, 2));
  }
  return mail.append("@").append(domainFor(random));
}

std::string date(RandomSource& random, int version, std::size_t firstYear, std::size_t years) {
  const std::string separator = version == 3 ? "-" : "";
  return std::to_string(firstYear + random.below(years)) + separator +
         twoDigits(1 + random.below(12)) + separator + twoDigits(1 + random.below(28));
}

std::string timestamp(RandomSource& random, int version) {
  const std::string separator = version == 3 ? ":" : "";
  return date(random, version, 2015, 10) + "T" + twoDigits(random.below(24)) + separator +
         twoDigits(random.below(60)) + separator + twoDigits(random.below(60)) + "Z";
}

/// Numbers the groups of a card and writes their labels.
class Groups {
 public:
  explicit Groups(CardLines& lines) : m_lines(lines) {}

  [[nodiscard]] std::string next(std::string_view header) {
    ++m_count;
    return current(header);
  }
  void label(std::string_view text) { m_lines.text(current("X-ABLabel"), text); }
  void addressFormat(std::string_view countryCode) {
    m_lines.text(current("X-ABADR"), countryCode);
  }

 private:
  [[nodiscard]] std::string current(std::string_view name) const {
    return std::string("item").append(std::to_string(m_count)).append(".").append(name);
  }

  CardLines& m_lines;
  int m_count = 0;
};

void writeHead(CardLines& lines, std::string_view fullName, Strings name) {
  constexpr std::array<std::string_view, 5> kVersions = {"", "", "2.1", "3.0", "4.0"};
  lines.raw("VERSION", kVersions[static_cast<std::size_t>(lines.version())]);
  if (lines.version() != 2) {
    lines.text("PRODID", "-//Example//Address Book 5.2//EN");
  }
  lines.components("N", name);
  lines.text("FN", fullName);
}

void writeFoot(CardLines& lines, RandomSource& random) {
  if (lines.version() == 4) {
    lines.raw("UID", "urn:uuid:" + uuid(random));
  } else {
    lines.text("UID", uuid(random));
  }
  lines.raw("REV", timestamp(random, lines.version()));
}

void writeMails(CardLines& lines, RandomSource& random, Groups& groups, const Person& person) {
  for (std::size_t count = random.below(3); count > 0; --count) {
    const std::string mail = address(random, person.given, person.family);
    if (lines.version() == 3 && random.oneIn(3)) {
      lines.text(groups.next("EMAIL;type=INTERNET"), mail);
      groups.label(random.oneIn(2) ? "_$!<Work>!$_" : random.oneOf(person.region.companies));
    } else if (lines.version() == 4) {
      lines.text(random.oneIn(2) ? "EMAIL;TYPE=work;PREF=1" : "EMAIL;TYPE=home", mail);
    } else {
      lines.text(lines.typed("EMAIL", {"INTERNET"}), mail);
    }
  }
}

void writePhones(CardLines& lines, RandomSource& random, Groups& groups, const Person& person) {
  for (std::size_t count = 1 + random.below(3); count > 0; --count) {
    const std::string number = phoneNumber(random, person.region);
    if (lines.version() == 4 && random.oneIn(3)) {
      std::string uri = "tel:" + number;
      uri.erase(std::remove(uri.begin(), uri.end(), ' '), uri.end());
      lines.raw("TEL;VALUE=uri;TYPE=\"voice,cell\"", uri);
    } else if (lines.version() == 3 && random.oneIn(5)) {
      lines.text(groups.next("TEL"), number);
      groups.label("_$!<Mobile>!$_");
    } else if (random.oneIn(2)) {
      lines.text(lines.typed("TEL", {"CELL", "VOICE"}), number);
    } else {
      lines.text(lines.typed("TEL", {random.oneIn(2) ? "HOME" : "WORK"}), number);
    }
  }
}

void writeAddress(CardLines& lines, RandomSource& random, Groups& groups, const Person& person) {
  const Region& region = person.region;
  const LocalCity& city = random.oneOf(region.cities);
  const bool isGrouped = lines.version() == 3 && random.oneIn(2);
  const std::string header = lines.typed("ADR", {random.oneIn(2) ? "HOME" : "WORK"});
  lines.components(
      isGrouped ? groups.next(header) : header,
      {"", "", random.oneOf(region.streets), city.name, "", city.postalCode, region.country});
  if (isGrouped) {
    groups.addressFormat(region.countryCode);
  }
  if (random.oneIn(6)) {
    std::string position(city.position);
    if (lines.version() == 4) {
      lines.raw("GEO", "geo:" + position);
    } else {
      std::replace(position.begin(), position.end(), ',', ';');
      lines.raw("GEO", position);
    }
    lines.raw("TZ", lines.version() == 4 ? region.timeZone : region.utcOffset);
  }
}

void writeNote(CardLines& lines, RandomSource& random, const Person& person,
               std::size_t sentences) {
  constexpr std::array<std::string_view, 5> kAsides = {"\U0001F389", "\u2764\uFE0F",
                                                       "\U0001F469\U0001F3FD\u200D\U0001F52C",
                                                       "\U0001F1EA\U0001F1FA", "(A/B; C, D)"};
  std::string note;
  for (std::size_t count = sentences; count > 0; --count) {
    note.append(random.oneOf(person.region.sentences));
    if (random.oneIn(6)) {
      note.append(" ").append(random.oneOf(kAsides));
    }
    if (count > 1) {
      note.append(random.oneIn(3) ? "\n" : " ");
    }
  }
  lines.text("NOTE", note);
}

void writeBirthday(CardLines& lines, RandomSource& random) {
  const std::string birthday = date(random, lines.version(), 1940, 70);
  if (lines.version() == 4 && random.oneIn(4)) {
    lines.raw("BDAY", "--" + birthday.substr(4));
  } else if (lines.version() == 3 && random.oneIn(4)) {
    lines.raw("BDAY;X-APPLE-OMIT-YEAR=1604", "1604" + birthday.substr(4));
  } else {
    lines.raw("BDAY", birthday);
  }
}

void writeExtras(CardLines& lines, RandomSource& random, Groups& groups, const Person& person) {
  const std::string account = std::string(person.given.latin) + digits(random, 3);
  if (random.oneIn(4)) {
    lines.text("URL", "https://www.example.com/~" + account +
                          "?page=1,2;lang=" + std::string(person.region.language));
  }
  if (lines.version() == 2) {
    return;
  }
  if (random.oneIn(5)) {
    lines.text("NICKNAME", random.oneOf(person.region.givenNames).native);
  }
  if (random.oneIn(5)) {
    lines.raw("CATEGORIES", random.oneIn(2) ? "Friends,Choir" : "Work");
  }
  if (random.oneIn(6)) {
    lines.text("IMPP;X-SERVICE-TYPE=Jabber;TYPE=HOME", "xmpp:" + account + "@example.net");
  }
  if (lines.version() == 3 && random.oneIn(8)) {
    lines.text("X-SOCIALPROFILE;type=twitter;x-user=" + account,
               "https://social.example.com/" + account);
  }
  if (lines.version() == 3 && random.oneIn(8)) {
    lines.text(groups.next("X-ABRELATEDNAMES"), random.oneOf(person.region.givenNames).native);
    groups.label("_$!<Spouse>!$_");
  }
  if (lines.version() == 3 && random.oneIn(10)) {
    lines.raw(groups.next("X-ABDATE"), date(random, 3, 1980, 40));
    groups.label("_$!<Anniversary>!$_");
  }
  if (lines.version() == 4 && random.oneIn(6)) {
    lines.raw("LANG;PREF=1", person.region.language);
    lines.raw("GENDER", random.oneIn(2) ? "F" : "M");
  }
  if (lines.version() == 4 && random.oneIn(8)) {
    lines.text("RELATED;TYPE=spouse;VALUE=text", random.oneOf(person.region.givenNames).native);
  }
}

void writePhoto(CardLines& lines, RandomSource& random) {
  const std::string data = picture(random);
  switch (lines.version()) {
  case 2:
    lines.raw("PHOTO;JPEG;ENCODING=BASE64", data);
    lines.blank();
    break;
  case 3:
    lines.raw("PHOTO;ENCODING=b;TYPE=JPEG", data);
    break;
  default:
    lines.raw("PHOTO", "data:image/jpeg;base64\\," + data);
  }
}

void writeCompany(CardLines& lines, RandomSource& random) {
  const Region& region = random.oneOf(regions());
  const std::string_view company = random.oneOf(region.companies);
  writeHead(lines, company, {"", "", "", "", ""});
  if (lines.version() == 4) {
    lines.raw("KIND", "org");
  }
  lines.components("ORG", {company});
  if (lines.version() == 3) {
    lines.raw("X-ABShowAs", "COMPANY");
  }
  lines.text(lines.typed("TEL", {"WORK"}), phoneNumber(random, region));
  writeFoot(lines, random);
}

void writeGroup(CardLines& lines, RandomSource& random) {
  constexpr std::array<std::string_view, 4> kNames = {"Choir", "Neighbours", "Sales, north",
                                                      "Familie"};
  const std::string_view name = random.oneOf(kNames);
  writeHead(lines, name, {name, "", "", "", ""});
  const bool isStandard = lines.version() == 4;
  lines.raw(isStandard ? "KIND" : "X-ADDRESSBOOKSERVER-KIND", "group");
  for (std::size_t count = 2 + random.below(12); count > 0; --count) {
    lines.raw(isStandard ? "MEMBER" : "X-ADDRESSBOOKSERVER-MEMBER", "urn:uuid:" + uuid(random));
  }
  writeFoot(lines, random);
}

void writePerson(CardLines& lines, RandomSource& random, const AddressBookOptions& options) {
  const Person person = inventPerson(random);
  Groups groups(lines);
  writeHead(lines, person.fullName,
            {person.family.native, person.given.native, person.middle,
             random.oneIn(10) ? "Dr." : "", random.oneIn(20) ? "Jr." : ""});
  if (lines.version() == 3 && person.region.familyNameFirst) {
    lines.text("X-PHONETIC-FIRST-NAME", person.given.latin);
    lines.text("X-PHONETIC-LAST-NAME", person.family.latin);
  }
  if (!random.oneIn(3)) {
    lines.components("ORG", {random.oneOf(person.region.companies)});
    lines.text("TITLE", random.oneOf(person.region.titles));
  }
  writeMails(lines, random, groups, person);
  writePhones(lines, random, groups, person);
  if (!random.oneIn(3)) {
    writeAddress(lines, random, groups, person);
  }
  if (random.oneIn(2)) {
    writeBirthday(lines, random);
  }
  writeExtras(lines, random, groups, person);
  if (options.noteLength != 0) {
    writeNote(lines, random, person, options.noteLength);
  } else if (random.oneIn(3)) {
    writeNote(lines, random, person, 1 + random.below(5));
  }
  if (options.photoEvery != 0 && random.oneIn(options.photoEvery)) {
    writePhoto(lines, random);
  }
  writeFoot(lines, random);
}

} // namespace

void AddressBook::appendCard(std::string& output) {
  constexpr std::array<int, 10> kMix = {2, 2, 3, 3, 3, 3, 3, 4, 4, 4};
  CardLines lines(output, m_options.version != 0 ? m_options.version : m_random.oneOf(kMix));
  output.append("BEGIN:VCARD\r\n");
  const std::size_t kind = m_random.below(40);
  if (kind == 0 && lines.version() != 2) {
    writeGroup(lines, m_random);
  } else if (kind < 3) {
    writeCompany(lines, m_random);
  } else {
    writePerson(lines, m_random, m_options);
  }
  output.append("END:VCARD\r\n");
}

std::string addressBook(const AddressBookOptions& options) {
  AddressBook book(options);
  std::string text;
  for (std::size_t card = 0; card < options.cards; ++card) {
    book.appendCard(text);
  }
  return text;
}

} // namespace cardwright
