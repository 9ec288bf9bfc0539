#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include "zntopo/api/ZNTopoFilter.h"
#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/core/ObjID.h"

/// @file
/// What natives read out of Java objects. A null object has no fields, and no field is read of an
/// object that does not have it.

namespace zntopo::bridge {

/// 0, or -1 for a field that can't be read, which leaves the value as it was. A text that is null
/// leaves it, too.
int javaNativeGetInstanceBoolean(JavaEnv& env, jobject object, const char* fieldName, bool& value);
int javaNativeGetInstanceString(JavaEnv& env, jobject object, const char* fieldName,
                                std::string& value);
/// 0, or -1 for a field that can't be set.
int javaNativeSetInstanceObject(JavaEnv& env, jobject object, const char* fieldName, jobject value,
                                const char* descriptor);

/// The identifier whose text the field "myID" of a Java object holds; an empty one if there is no
/// such field, or a NUL in the text.
ObjID getNativeObjID(JavaEnv& env, jobject object);

/// The identifier whose text the method getStringValue() of a Java ObjID gives, an empty one for
/// any other object. False, and a line in the log, if there is no such class or method.
bool readObjID(JavaEnv& env, jobject object, const char* native, ObjID& id);

/// The identifiers of a Java array; empty for null.
std::unique_ptr<std::set<ObjID>> createObjIDSetNative(JavaEnv& env, jobjectArray ids);
std::unique_ptr<std::list<ObjID>> createObjIDListNative(JavaEnv& env, jobjectArray ids);

/// What a Java TopoFilter asks for, capabilities apart. False for a filter with a NUL in a text,
/// which would select something else without it.
bool populateFilter(JavaEnv& env, jobject filterArg, ZNTopoFilter& filter);

}  // namespace zntopo::bridge
