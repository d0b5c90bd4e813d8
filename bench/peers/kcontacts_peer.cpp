#include "peer.h"

#include <KContacts/Addressee>
#include <KContacts/VCardConverter>

namespace {

using namespace KContacts;

/// Adds up what of a contact is there. It has no list of properties, but a field for each kind.
class Fields {
 public:
  void add(const QString& text) {
    if (!text.isEmpty()) {
      count(text.size());
    }
  }

  void add(const QDateTime& date) {
    if (date.isValid()) {
      count(1);
    }
  }

  void add(const Picture& picture) {
    if (!picture.isEmpty()) {
      count(picture.isIntern() ? picture.rawData().size() : picture.url().size());
    }
  }

  /// A property of whose value the parts were asked for.
  template <typename... Parts>
  void addParts(const Parts&... parts) {
    count((parts.size() + ...));
  }

  /// The same with what its parameters say.
  template <typename Type, typename... Parts>
  void addTyped(Type type, const Parts&... parts) {
    addParts(parts...);
    m_recovered.characters += static_cast<std::size_t>(static_cast<int>(type));
  }

  [[nodiscard]] const peers::Recovered& recovered() const { return m_recovered; }

 private:
  void count(int characters) {
    ++m_recovered.items;
    m_recovered.characters += static_cast<std::size_t>(characters);
  }

  peers::Recovered m_recovered;
};

void addNames(Fields& fields, const Addressee& person) {
  const int structured = person.familyName().size() + person.givenName().size() +
                         person.additionalName().size() + person.prefix().size() +
                         person.suffix().size();
  if (structured > 0) {
    fields.addParts(person.familyName(), person.givenName(), person.additionalName(),
                    person.prefix(), person.suffix());
  }
  fields.add(person.formattedName());
  for (const NickName& name : person.extraNickNameList()) {
    fields.addParts(name.nickname());
  }
  fields.add(person.sortString());
}

void addReaching(Fields& fields, const Addressee& person) {
  for (const Email& email : person.emailList()) {
    fields.addTyped(email.type(), email.mail());
  }
  for (const PhoneNumber& phone : person.phoneNumbers()) {
    fields.addTyped(phone.type(), phone.number());
  }
  for (const Address& address : person.addresses()) {
    fields.addTyped(address.type(), address.postOfficeBox(), address.extended(), address.street(),
                    address.locality(), address.region(), address.postalCode(), address.country(),
                    address.label());
  }
  for (const Impp& account : person.imppList()) {
    fields.addParts(account.address().toString());
  }
  if (person.url().isValid()) {
    fields.addParts(person.url().url().toString());
  }
  for (const ResourceLocatorUrl& url : person.extraUrlList()) {
    fields.addParts(url.url().toString());
  }
  for (const Lang& language : person.langs()) {
    fields.addParts(language.language());
  }
}

void addWork(Fields& fields, const Addressee& person) {
  for (const Org& organization : person.extraOrganizationList()) {
    fields.addParts(organization.organization());
  }
  for (const Title& title : person.extraTitleList()) {
    fields.addParts(title.title());
  }
  for (const Role& role : person.extraRoleList()) {
    fields.addParts(role.role());
  }
  for (const Related& related : person.relationships()) {
    fields.addParts(related.related());
  }
  for (const QString& member : person.members()) {
    fields.add(member);
  }
}

void addRest(Fields& fields, const Addressee& person) {
  fields.add(person.uid());
  fields.add(person.kind());
  fields.add(person.note());
  fields.add(person.mailer());
  fields.add(person.productId());
  fields.add(person.gender().gender());
  fields.add(person.categories().join(QLatin1Char(',')));
  fields.add(person.birthday());
  fields.add(person.revision());
  fields.add(person.photo());
  fields.add(person.logo());
  if (person.anniversary().isValid()) {
    fields.add(person.anniversary().toString(Qt::ISODate));
  }
  if (person.geo().isValid()) {
    fields.add(person.geo().toString());
  }
  if (person.timeZone().isValid()) {
    fields.add(person.timeZone().toString());
  }
  for (const QString& custom : person.customs()) {
    fields.add(custom);
  }
  for (const FieldGroup& group : person.fieldGroupList()) {
    fields.addParts(group.fieldGroupName(), group.value());
  }
}

class Kcontacts : public peers::Peer {
 public:
  peers::Recovered open(const std::string& bytes) override {
    return {static_cast<std::size_t>(cardsOf(bytes).size())};
  }

  peers::Recovered read(const std::string& bytes) override {
    Fields fields;
    const Addressee::List cards = cardsOf(bytes);
    for (const Addressee& person : cards) {
      addNames(fields, person);
      addReaching(fields, person);
      addWork(fields, person);
      addRest(fields, person);
    }
    peers::Recovered recovered = fields.recovered();
    recovered.cards = static_cast<std::size_t>(cards.size());
    return recovered;
  }

  void prepareWriting(const std::string& bytes) override { m_cards = cardsOf(bytes); }

  peers::Recovered write() override {
    const QByteArray output = VCardConverter().createVCards(m_cards, VCardConverter::v3_0);
    return {static_cast<std::size_t>(m_cards.size()), static_cast<std::size_t>(output.size())};
  }

 private:
  static Addressee::List cardsOf(const std::string& bytes) {
    return VCardConverter().parseVCards(
        QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size())));
  }

  Addressee::List m_cards;
};

} // namespace

int main(int count, char** arguments) {
  Kcontacts kcontacts;
  return peers::measure(kcontacts, count, arguments);
}
