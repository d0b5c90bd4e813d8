#pragma once

#include "cardwright/detail/change_mark.h"
#include "cardwright/text.h"

namespace cardwright {

class DateFormatter;

/// Common base of cards, properties, parameters and values.
///
/// Objects have identity: they are made by factory functions or std::make_shared, shared through
/// std::shared_ptr and never copied. Different objects may be used by different threads, and const
/// operations of one object by several at once; anything else needs the caller's lock. Class
/// operations may be called from any thread. Setters of text copy what they are given.
class [[gnu::visibility("default")]] VCardObject {
 public:
  VCardObject(const VCardObject&) = delete;
  VCardObject& operator=(const VCardObject&) = delete;

  /// The object's own text: what generate() writes for version code 0 with a new date formatter.
  [[nodiscard]] virtual Text description() const;

  /// Reads the object from its text. The base reads nothing and returns false.
  /// @param text      the object's wire form, which is no text of the object itself
  /// @param version   version code of the card that the text belongs to
  /// @param formatter borrowed for the call; values that hold dates, and content lines, stop the
  ///                  process when it is null
  virtual bool parse(TextView text, VersionCode version, DateFormatter * formatter);

  /// Appends the object's wire form to `output`. The base writes nothing.
  virtual void generate(Text & output, VersionCode version, DateFormatter * formatter) const;

  virtual ~VCardObject();

 protected:
  VCardObject() = default;

  /// For operations that change what generate() writes: a card of which nothing was changed since
  /// it was read is written from the lines that it was read from.
  void changed() noexcept {
    if (m_changes != nullptr) {
      m_changes->setMark();
    }
  }

 private:
  friend class Arena;

  detail::ChangeMarker* m_changes = nullptr; ///< of what this was read with; null for other objects
};

} // namespace cardwright
