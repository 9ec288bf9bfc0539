#pragma once

#include <list>
#include <string>
#include <vector>

#include "zntopo/model/ZNCapability.h"
#include "zntopo/model/ZNVlanIFInfo.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The elements that the XML forms of the objects are made of.
///
/// The forms are for people and for programs that know them: the first character of a value is
/// never escaped, nor are names, types and quotation marks, so that a form need not be
/// well-formed XML. Programs that want the data read the objects, or what the command zntopo
/// writes with --json, or its exports.
///
/// Holds no state: any thread may call it.
class ZNTOPO_EXPORT ZNTopoXMLTag {
 public:
  /// An "Attr" element and an end of line. Of the value "&", ">" and "<" are escaped, but for its
  /// first character.
  static std::string formXMLAttribute(const std::string& name, const std::string& type,
                                      const std::string& value);
  /// A "L2Connection" element of the texts of four identifiers.
  static std::string formL2Connection(const std::string& srcNode, const std::string& srcIF,
                                      const std::string& destNode, const std::string& destIF);
  /// A "VlanIFInfos" element, empty for an empty list.
  static std::string formVlanIfInfoList(const std::list<ZNVlanIFInfo>& list);
  /// A "Capabilities" element, empty for an empty list.
  static std::string formCapaList(const std::vector<ZNCapability>& list);

 private:
  static void escapeXMLStr(std::string& text);
};

}  // namespace zntopo
