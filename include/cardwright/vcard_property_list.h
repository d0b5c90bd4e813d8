#pragma once

#include "cardwright/detail/change_mark.h"
#include "cardwright/vcard_property.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace cardwright {

/// Properties in the order in which they were added, null among them where somebody added it. Like
/// a std::vector of constants: what stands in the list is replaced by its own operations only, so
/// that the card it belongs to knows. The properties themselves may be changed.
class VCardPropertyList {
 public:
  /// What stands in the list; may be null.
  using value_type = std::shared_ptr<VCardProperty>;
  /// A number of properties.
  using size_type = std::size_t;
  /// How properties are shown.
  using const_reference = const value_type&;
  /// Walks along the list; valid until the list changes.
  using const_iterator = std::vector<value_type>::const_iterator;
  /// The same as const_reference.
  using reference = const_reference;
  /// The same as const_iterator.
  using iterator = const_iterator;

  /// An empty list.
  VCardPropertyList() = default;
  /// These properties in this order.
  VCardPropertyList(std::initializer_list<value_type> properties) : m_properties(properties) {}
  /// So many times the same property.
  VCardPropertyList(size_type count, const value_type& property) : m_properties(count, property) {}
  /// The same properties in a list that belongs to no card.
  VCardPropertyList(const VCardPropertyList& other) : m_properties(other.m_properties) {}
  /// Takes the properties away from the other list.
  VCardPropertyList(VCardPropertyList&& other) noexcept
      : m_properties(std::move(other.m_properties)) {
    other.changed();
  }
  /// Replaces all properties by those of the other list.
  VCardPropertyList& operator=(const VCardPropertyList& other) {
    if (this != &other) {
      changed();
      m_properties = other.m_properties;
    }
    return *this;
  }
  /// The same, and takes them away from there.
  VCardPropertyList& operator=(VCardPropertyList&& other) noexcept {
    if (this != &other) {
      changed();
      other.changed();
      m_properties = std::move(other.m_properties);
    }
    return *this;
  }
  ~VCardPropertyList() = default;

  /// Whether there are no properties.
  [[nodiscard]] bool empty() const noexcept { return m_properties.empty(); }
  /// How many properties there are, null ones among them.
  [[nodiscard]] size_type size() const noexcept { return m_properties.size(); }
  /// The first property's place.
  [[nodiscard]] const_iterator begin() const noexcept { return m_properties.begin(); }
  /// The place behind the last property.
  [[nodiscard]] const_iterator end() const noexcept { return m_properties.end(); }
  /// All properties side by side; valid until the list changes.
  [[nodiscard]] const value_type* data() const noexcept { return m_properties.data(); }
  /// The property of this index, which is less than size().
  [[nodiscard]] const_reference operator[](size_type index) const noexcept {
    return m_properties[index];
  }
  /// The property of any index.
  /// @throws std::out_of_range where there is no such property
  [[nodiscard]] const_reference at(size_type index) const { return m_properties.at(index); }
  /// The first property of a list that is not empty.
  [[nodiscard]] const_reference front() const noexcept { return m_properties.front(); }
  /// The last property of a list that is not empty.
  [[nodiscard]] const_reference back() const noexcept { return m_properties.back(); }

  /// Appends a property.
  void push_back(value_type property) {
    changed();
    m_properties.push_back(std::move(property));
  }
  /// Puts the property in the place of another one.
  void replace(size_type index, value_type property) {
    changed();
    m_properties[index] = std::move(property);
  }
  /// Inserts a property before a place.
  /// @returns where it stands
  const_iterator insert(const_iterator before, value_type property) {
    changed();
    return m_properties.insert(before, std::move(property));
  }
  /// Inserts the properties between two places of another container before a place.
  /// @returns where the first of them stands
  template <typename Iterator>
  const_iterator insert(const_iterator before, Iterator first, Iterator last) {
    changed();
    return m_properties.insert(before, first, last);
  }
  /// Removes the property at a place.
  /// @returns the place of the next one
  const_iterator erase(const_iterator property) {
    changed();
    return m_properties.erase(property);
  }
  /// Removes the properties from one place up to another.
  /// @returns the place of the next one
  const_iterator erase(const_iterator first, const_iterator last) {
    changed();
    return m_properties.erase(first, last);
  }
  /// Removes the last property of a list that is not empty.
  void pop_back() {
    changed();
    m_properties.pop_back();
  }
  /// Removes all properties.
  void clear() noexcept {
    changed();
    m_properties.clear();
  }

  /// Removes the properties for which the test is true, and tells how many.
  template <typename Test>
  friend size_type erase_if(VCardPropertyList& list, Test test) {
    const size_type removed = std::erase_if(list.m_properties, test);
    if (removed != 0) {
      list.changed();
    }
    return removed;
  }

  /// Whether the same objects stand in both in the same order.
  friend bool operator==(const VCardPropertyList& a, const VCardPropertyList& b) {
    return a.m_properties == b.m_properties;
  }

 private:
  friend class Arena;

  void changed() noexcept {
    if (m_changes != nullptr) {
      m_changes->setMark();
    }
  }

  std::vector<value_type> m_properties;
  detail::ChangeMarker* m_changes = nullptr; ///< of the card that this was read for
};

} // namespace cardwright
