#pragma once

#include <list>
#include <memory>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNAddress.h"

namespace zntopo::detail {

/// Asks the store for addresses, on the active tables. A failure is logged, and what came is
/// given.
std::vector<ZNRefPtr<ZNAddress>> readAddresses(const std::list<ObjID>& ids);

/// The addresses of one type, in their order.
std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> addressesOfType(
    const std::vector<ZNRefPtr<ZNAddress>>& addresses, ZNAddress::AddressType type);

}  // namespace zntopo::detail
