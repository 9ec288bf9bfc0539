#pragma once

#include <list>
#include <string>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/ZNInterface.h"

/// @file
/// The texts of layer-2 paths. Nothing in them is escaped: a name with "<" in it makes a document
/// that is not well-formed. They are as long as the path needs.

namespace zntopo::bridge {

/// A "NODE" element for each interface of a path, in its order. Reads the interfaces' nodes; one
/// that can't be read counts as no router, without a name.
std::string ConvertInterfaceListToXML(const std::list<ZNRefPtr<ZNInterface>>& list);

/// The document of how a search ended, with the path, or with the status if that is not OK.
std::string pathDocument(const std::string& root, const std::string& begin, const std::string& end,
                         const ZNTopoAPIStatus& status,
                         const std::list<ZNRefPtr<ZNInterface>>* path);

}  // namespace zntopo::bridge
