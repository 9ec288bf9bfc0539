#pragma once

#include <string>
#include <vector>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// Turns the text form of an IPv6 address into 128 characters "0" and "1". No validator: a
/// character that is no hex digit counts as 0, groups beyond the eighth and characters beyond
/// the fourth of a group are ignored, a dotted tail is not understood.
///
/// Lives for one conversion in one thread.
class ZNTOPO_EXPORT IPv6AddrToBin {
 public:
  explicit IPv6AddrToBin(const std::string& text);

  /// Empty for an empty text.
  const std::string& getBinStr() const { return binStr; }
  /// The first len characters.
  static std::string getBinStrPrefix(const std::string& bin, int len);

 private:
  /// Stores the groups of a text from an index on; 1 if it met an empty group.
  int scanGroups(const std::string& text, int& index, bool backward);
  void store(int index, const std::string& group);
  std::string groupToBin(const std::string& group) const;

  std::string hexStr;
  std::string reverseHexStr;
  std::vector<std::string> parseHexStr;
  std::vector<std::string> binarySet;
  std::string binStr;
  int frontIdx = 0;
  int backIdx = 7;
};

}  // namespace zntopo
