#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// One byte of an IPv4 mask. A plain value.
class ZNTOPO_EXPORT IPv4Octet {
 public:
  enum OCTETBITLEN : int {
    eZERO = 0,
    eONE = 1,
    eTWO = 2,
    eTHREE = 3,
    eFOUR = 4,
    eFIVE = 5,
    eSIX = 6,
    eSEVEN = 7,
    eEIGHT = 8
  };
  enum OCTETBITBOUNDARY : int {
    eZEROBITS = 0,
    eONEBIT = 128,
    eTWOBITS = 192,
    eTHREEBITS = 224,
    eFOURBITS = 240,
    eFIVEBITS = 248,
    eSIXBITS = 252,
    eSEVENBITS = 254,
    eEIGHTBITS = 255
  };

  /// The octet with so many leading ones; lengths are clamped to 0 to 8.
  explicit IPv4Octet(int bitLen);
  /// The number of a decimal text; 0 for one outside 0 to 255.
  explicit IPv4Octet(const std::string& text);

  operator unsigned char() const { return _octet; }  // NOLINT(google-explicit-constructor)

  /// 0 for an octet that is no run of leading ones.
  static OCTETBITLEN mapOctetToLen(unsigned char octet);
  static unsigned char mapLenToOctet(OCTETBITLEN length);

 private:
  unsigned char _octet = 0;
};

}  // namespace zntopo
