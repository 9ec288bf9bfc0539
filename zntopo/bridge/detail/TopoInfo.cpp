#include "zntopo/bridge/detail/TopoInfo.h"

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/platform/tvutil/JavaNative.h"

namespace zntopo::bridge {

namespace {

constexpr const char* topoInfoName = "ZorbTopoInfo";

/// A number of the counts, and the Java field that shows it.
struct InfoField {
  const char* name;
  jlong (*value)(const ZNTopologyInfo& info);
};

template <int (ZNTopologyInfo::*getter)() const>
jlong count(const ZNTopologyInfo& info) {
  return (info.*getter)();
}

constexpr InfoField kInfoFields[] = {
    {"cacheTimeStamp",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getLastTopoReadyChangeTime();
     }},
    {"myNumNode", count<&ZNTopologyInfo::getNumberOfNode>},
    {"myNumV4Node", count<&ZNTopologyInfo::getNumberOfIPV4Node>},
    {"myNumV6Node", count<&ZNTopologyInfo::getNumberOfIPV6Node>},
    {"myNumV4SNMPNode", count<&ZNTopologyInfo::getNumberOfV4SNMPNode>},
    {"myNumInterface", count<&ZNTopologyInfo::getNumberOfInterface>},
    {"myNumV4Interface", count<&ZNTopologyInfo::getNumberOfIPV4Interface>},
    {"myNumV6Interface", count<&ZNTopologyInfo::getNumberOfIPV6Interface>},
    {"myNumPrefixGroup", count<&ZNTopologyInfo::getNumberOfPrefixGroup>},
    {"myNumSubnet", count<&ZNTopologyInfo::getNumberOfSubnet>},
    {"myNumVlan", count<&ZNTopologyInfo::getNumberOfVlan>},
    {"myNumHSRP", count<&ZNTopologyInfo::getNumberOfHSRP>},
    {"myNumMesh", count<&ZNTopologyInfo::getNumberOfMesh>},
    {"myNumL2Link", count<&ZNTopologyInfo::getNumberOfL2Link>},
    {"myNumV4Addr", count<&ZNTopologyInfo::getNumberOfV4Address>},
    {"myNumV6Addr", count<&ZNTopologyInfo::getNumberOfV6Address>},
    {"myNumDNSName", count<&ZNTopologyInfo::getNumberOfDNSName>},
    {"myDiscoStartTime",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getCompleteTopologyState().createTime;
     }},
    {"myTopoReadyTime",
     [](const ZNTopologyInfo& info) -> jlong {
       return info.getTopologyState().getCompleteTopologyState().topologyReadyTime;
     }},
};

/// A field helper that fails deletes the object's reference, which is released to it then.
std::string fillNumbers(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info) {
  for (const InfoField& field : kInfoFields) {
    if (javaNativeSetInstanceLongOrDeleteAndException(jni, topoInfoName, object.get(), field.name,
                                                      field.value(info)) == 0) {
      continue;
    }
    object.release();
    const bool isFirst = &field == kInfoFields;
    return "doSetTopoInfoLong() fail" + (isFirst ? "" : std::string(" for ") + field.name);
  }
  return "";
}

/// Owns the two arrays of the nodes of each routing domain.
struct DomainCounts {
  explicit DomainCounts(const ZNTopologyInfo& info)
      : entries(createNameCountArrayFromMap(info.getRDMap(), &names, &counts)) {}
  DomainCounts(const DomainCounts&) = delete;
  DomainCounts& operator=(const DomainCounts&) = delete;
  ~DomainCounts() { freeNameCountArray(names, counts, entries); }

  char** names = nullptr;
  int* counts = nullptr;
  const int entries;
};

std::string fillTexts(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info) {
  if (javaNativeSetInstanceStringNoCodesetOrDeleteAndException(
          jni, topoInfoName, object.get(), "topologyState",
          info.getTopologyState().toString().c_str()) != 0) {
    object.release();
    return "doSetTopoInfoString() fail for topologyState";
  }
  const DomainCounts domains(info);
  if (javaNativeSetInstanceStringArray(jni, object.get(), "myRDCountName", domains.names,
                                       domains.entries) != 0) {
    return "doSetTopoInfoStringArray() fail for myRDCountName";
  }
  if (javaNativeSetInstanceIntArray(jni, object.get(), "myRDCount", domains.counts,
                                    domains.entries) != 0) {
    return "doSetTopoInfoIntArray() fail for myRDCount";
  }
  return "";
}

}  // namespace

std::string fillTopoInfo(JNIEnv* jni, LocalRef<>& object, const ZNTopologyInfo& info) {
  std::string failure = fillNumbers(jni, object, info);
  return failure.empty() ? fillTexts(jni, object, info) : failure;
}

}  // namespace zntopo::bridge
