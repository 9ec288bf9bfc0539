#include "zntopo/model/IPv4Octet.h"

#include <algorithm>
#include <cstdlib>

namespace zntopo {

namespace {

constexpr IPv4Octet::OCTETBITBOUNDARY kBoundaries[] = {
    IPv4Octet::eZEROBITS,  IPv4Octet::eONEBIT,    IPv4Octet::eTWOBITS,
    IPv4Octet::eTHREEBITS, IPv4Octet::eFOURBITS,  IPv4Octet::eFIVEBITS,
    IPv4Octet::eSIXBITS,   IPv4Octet::eSEVENBITS, IPv4Octet::eEIGHTBITS,
};

}  // namespace

IPv4Octet::IPv4Octet(int bitLen)
    : _octet(mapLenToOctet(static_cast<OCTETBITLEN>(std::clamp<int>(bitLen, eZERO, eEIGHT)))) {}

// A number that is no octet has no meaning, so the octet keeps its fixed start value.
IPv4Octet::IPv4Octet(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  if (value >= 0 && value <= 255) _octet = static_cast<unsigned char>(value);
}

IPv4Octet::OCTETBITLEN IPv4Octet::mapOctetToLen(unsigned char octet) {
  for (int length = eONE; length <= eEIGHT; ++length) {
    if (kBoundaries[length] == octet) return static_cast<OCTETBITLEN>(length);
  }
  return eZERO;
}

unsigned char IPv4Octet::mapLenToOctet(OCTETBITLEN length) {
  if (length < eZERO || length > eEIGHT) return 0;
  return static_cast<unsigned char>(kBoundaries[length]);
}

}  // namespace zntopo
