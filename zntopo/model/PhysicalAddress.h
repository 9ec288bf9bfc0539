#pragma once

#include <string>

#include "zntopo/model/ZNAddress.h"

namespace zntopo {

/// A physical address. It always belongs to the active tables.
class ZNTOPO_EXPORT PhysicalAddress : public ZNAddress {
 public:
  PhysicalAddress();
  explicit PhysicalAddress(const std::string& addrVal);
  PhysicalAddress(const std::string& addrVal, const ObjID& addrID, const ObjID& entID);
  PhysicalAddress(const PhysicalAddress& other) = default;
  PhysicalAddress& operator=(const PhysicalAddress& other) = default;
  ~PhysicalAddress() override;

  const std::string& getAddressAsString() const override;
  std::string toString() const override;

 private:
  std::string _addrVal;
};

}  // namespace zntopo
