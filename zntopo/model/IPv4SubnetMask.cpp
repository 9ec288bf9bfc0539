#include "zntopo/model/IPv4SubnetMask.h"

#include "zntopo/core/ltos.h"
#include "zntopo/model/IPv4Octet.h"

namespace zntopo {

IPv4SubnetMask::IPv4SubnetMask(const std::string& text) : IPv4SubnetMask(IPv4DecimalStr(text)) {}

IPv4SubnetMask::IPv4SubnetMask(const IPv4DecimalStr& text) : IPv4SubnetMask(IPv4Bytes(text)) {}

IPv4SubnetMask::IPv4SubnetMask(const IPv4Bytes& bytes) : _ipv4bytes(bytes) { calcPrefix(); }

void IPv4SubnetMask::setPrefixLen(unsigned short prefixLen) {
  _prefixLen = prefixLen;
  _ipv4bytes.setPrefixLen(prefixLen);
}

std::string IPv4SubnetMask::getCIDR() const { return "/" + ltos(_prefixLen); }

std::string IPv4SubnetMask::getDecimalStr() const { return IPv4DecimalStr(_ipv4bytes).data(); }

void IPv4SubnetMask::calcPrefix() {
  _prefixLen = 0;
  for (const unsigned char byte : _ipv4bytes._bytes) {
    const IPv4Octet::OCTETBITLEN length = IPv4Octet::mapOctetToLen(byte);
    _prefixLen = static_cast<std::uint16_t>(_prefixLen + length);
    if (length < IPv4Octet::eEIGHT) return;
  }
}

std::string operator&(const IPv4SubnetMask& mask, const std::string& address) {
  IPv4Bytes bytes{IPv4DecimalStr(address)};
  for (int i = 0; i < IPv4Bytes::kBYTELEN; ++i) bytes._bytes[i] &= mask.getBytes()._bytes[i];
  return IPv4DecimalStr(bytes).data();
}

std::string operator&(const std::string& address, const IPv4SubnetMask& mask) {
  return mask & address;
}

}  // namespace zntopo
