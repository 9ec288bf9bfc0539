#pragma once

#include <jni.h>

#include <string>

#include "zntopo/api/ZNTopologyInfo.h"
#include "zntopo/bridge/detail/LocalRef.h"

namespace zntopo::bridge {

/// Sets the fields of a Java ZorbTopoInfo by their names. Gives what could not be set, with which
/// it ends, and "" if all could be. A number or a text that can't be set raises an exception, and
/// its object is given back.
std::string fillTopoInfo(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info);

}  // namespace zntopo::bridge
