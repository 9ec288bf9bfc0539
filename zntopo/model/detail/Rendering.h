#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/detail/MessageTexts.h"
#include "zntopo/core/ltos.h"
#include "zntopo/model/ObjectStatus.h"
#include "zntopo/model/ZNTopoXMLTag.h"

/// @file
/// The one writer of the objects' text and XML forms. A form is a table of lines: a label, and how
/// the value behind it is read from the object. Programs parse the forms: labels, blanks and ends
/// of lines are part of the contract, and items follow each other with nothing between them but
/// what the labels carry.

namespace zntopo::detail {

// ---- values ---------------------------------------------------------------------------------

inline std::string shown(const std::string& text) { return text; }
/// "NULL" for a null identifier.
inline std::string shown(const ObjID& id) { return id.getStrValue(); }
inline std::string shown(const ObjectStatus& status) { return status.toString(); }
inline std::string shown(bool flag) { return flag ? "true" : "false"; }

/// Numbers and the numbers of enumerators, in decimal.
template <typename Number>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> std::string shown(Number number) {
  return ltos(static_cast<long>(number));
}

/// A number of 64 or of unsigned 32 bits as the forms have it: its low 32 bits, with a sign.
inline std::string shownAs32Bits(unsigned long number) {
  return ltos(static_cast<std::int32_t>(number));
}

// ---- lists ----------------------------------------------------------------------------------

/// What a form makes of an item; handles that are null give nothing.
inline constexpr struct AsText {
  template <typename Object>
  std::string operator()(const Object& object) const {
    return object.toString();
  }
  template <typename Object>
  std::string operator()(const ZNRefPtr<Object>& handle) const {
    return handle.isNull() ? std::string() : handle->toString();
  }
} asText;

inline constexpr struct AsXml {
  template <typename Object>
  std::string operator()(const Object& object) const {
    return object.toXML();
  }
  template <typename Object>
  std::string operator()(const ZNRefPtr<Object>& handle) const {
    return handle.isNull() ? std::string() : handle->toXML();
  }
} asXml;

/// The items of a list, one behind the other.
template <typename List, typename Write>
std::string joined(const List& list, const Write& write) {
  std::string text;
  for (const auto& item : list) text += write(item);
  return text;
}

/// The same between an opening and a closing text, of which an empty list gets neither.
template <typename List, typename Write>
std::string section(const char* opening, const List& list, const Write& write,
                    const char* closing = "") {
  return list.empty() ? std::string() : opening + joined(list, write) + closing;
}

/// The names of capabilities, a blank behind each.
inline std::string capabilityText(const std::vector<ZNCapability>& capabilities) {
  return joined(capabilities,
                [](const ZNCapability& capability) { return capability.toString() + " "; });
}
/// The element of capabilities; an empty list has none.
inline std::string capabilityXml(const std::vector<ZNCapability>& capabilities) {
  return capabilities.empty() ? std::string() : ZNTopoXMLTag::formCapaList(capabilities);
}

// ---- lines ----------------------------------------------------------------------------------

/// A text of its own, or one of the message catalogue.
class Label {
 public:
  constexpr Label(const char* text) : text_(text) {}               // NOLINT(google-explicit-*)
  constexpr Label(const Message& message) : message_(&message) {}  // NOLINT(google-explicit-*)

  const char* get() const { return message_ ? message_->get() : text_; }

 private:
  const char* text_ = nullptr;
  const Message* message_ = nullptr;
};

/// One line of a form: a label with the value behind it, a label alone, or an XML attribute.
template <typename Object>
struct Line {
  Label label;
  std::string (*value)(const Object&) = nullptr;
  /// Makes it an XML attribute of this type, named by the label.
  const char* type = nullptr;
  /// Leaves the line out where it is false.
  bool (*applies)(const Object&) = nullptr;

  /// The value of a member, or of an operation without arguments.
  template <auto member>
  static std::string of(const Object& object) {
    return shown(std::invoke(member, object));
  }
  /// The same of what is an object with a text form of its own.
  template <auto member>
  static std::string textOf(const Object& object) {
    return std::invoke(member, object).toString();
  }
  /// The texts of the items of a list.
  template <auto member>
  static std::string texts(const Object& object) {
    return joined(std::invoke(member, object), asText);
  }
  /// The same, each ending its line.
  template <auto member>
  static std::string textLines(const Object& object) {
    return joined(std::invoke(member, object),
                  [](const auto& item) { return item.toString() + "\n"; });
  }
  template <auto member>
  static std::string xmls(const Object& object) {
    return joined(std::invoke(member, object), asXml);
  }
  /// The form of the class that this one derives from.
  template <typename Base>
  static std::string baseText(const Object& object) {
    return object.Base::toString();
  }
  template <typename Base>
  static std::string baseXml(const Object& object) {
    return object.Base::toXML();
  }
};

/// Writes a form of an object.
template <typename Object, std::size_t size>
std::string rendered(const Object& object, const Line<Object> (&lines)[size]) {
  std::string text;
  for (const Line<Object>& line : lines) {
    if (line.applies && !line.applies(object)) continue;
    const std::string value = line.value ? line.value(object) : std::string();
    if (line.type) {
      text += ZNTopoXMLTag::formXMLAttribute(line.label.get(), line.type, value);
    } else {
      text += line.label.get();
      text += value;
    }
  }
  return text;
}

}  // namespace zntopo::detail
