#include "zntopo/core/detail/MessageTexts.h"

#include <algorithm>

namespace zntopo {

namespace detail {

// clang-format off
#define ZNTOPO_STATUS(status, number, text) {status, #status, {number, text}}
constinit const std::array<StatusText, 57> kStatusTexts{{
    ZNTOPO_STATUS(ZN_API_SUCCESS, 10,
        "Successful API Call"),
    ZNTOPO_STATUS(ZN_API_DB_NOT_READY, 11,
        "Topology Data Store is currently unavailable"),
    ZNTOPO_STATUS(ZN_API_INVALID_ID, 12,
        "The given Topology Object ID is invalid"),
    ZNTOPO_STATUS(ZN_API_UNKNOWN_IP, 13,
        "The given IP Address is unknown"),
    ZNTOPO_STATUS(ZN_API_PATH_PROCESSING_ERROR, 14,
        "Node or Interface object is null during path processing"),
    ZNTOPO_STATUS(ZN_API_OBJ_EXIST, 15,
        "Topology object already exist in Topology Data Store"),
    ZNTOPO_STATUS(ZN_API_OBJ_NOT_EXIST, 16,
        "Topology object does not exist in Topology Data Store"),
    ZNTOPO_STATUS(ZN_API_ILLEGAL_INPUT, 17,
        "The input paramter value to Topo API is illegal "),
    ZNTOPO_STATUS(ZN_API_DB_INIT_FAILURE, 18,
        "Error encountered during initialization of the Topology Database"),
    ZNTOPO_STATUS(ZN_API_DB_CONNECTION_FAILURE, 19,
        "Error encountered while creating Topology Database ODBC connection"),
    ZNTOPO_STATUS(ZN_API_ADDR_QUERY_FAILURE, 20,
        "Failure in executing address query "),
    ZNTOPO_STATUS(ZN_API_FILTER_ERROR, 21,
        "Invalid Topology API Filter"),
    ZNTOPO_STATUS(ZN_API_NON_V6_NODE, 22,
        "The Node supplied as parameter does not support IPV6 protocol"),
    ZNTOPO_STATUS(ZN_API_INVALID_NUM_HOPS, 23,
        "The number of hops supplied is not valid"),
    ZNTOPO_STATUS(ZN_API_EMPTY_OBJID_LIST, 24,
        "The Topology Object ID list supplied is empty"),
    ZNTOPO_STATUS(ZN_API_SQL_EXEC_ERROR, 25,
        "Error in executing SQL statement"),
    ZNTOPO_STATUS(ZN_API_SQL_BIND_PARM_ERROR, 26,
        "Error in binding parameter to the SQL statement"),
    ZNTOPO_STATUS(ZN_API_SQL_START_TRANSACTION_ERROR, 27,
        "Error in starting SQL transaction"),
    ZNTOPO_STATUS(ZN_API_SQL_COMMIT_TRANSACTION_ERROR, 28,
        "Error in commiting SQL transaction"),
    ZNTOPO_STATUS(ZN_API_NO_PATH, 29,
        "No layer 2 path is found"),
    ZNTOPO_STATUS(ZN_API_SQL_BIND_STATEMENT_ERROR, 30,
        "Error in binding SQL statement"),
    ZNTOPO_STATUS(ZN_API_SQL_BIND_COLUMN_ERROR, 31,
        "Error in binding retrieved value variables to SQL statement"),
    ZNTOPO_STATUS(ZN_API_JNI_CALL_ERROR, 32,
        "Java Native Interface layer error"),
    ZNTOPO_STATUS(ZN_API_INCOMPLETE_NEIGHBOR_INFO, 33,
        "The neighbor information returned is incomplete"),
    ZNTOPO_STATUS(ZN_API_NOT_SUPPORTED_OPERATION, 34,
        "The API call is not supported"),
    ZNTOPO_STATUS(ZN_API_HSRP_NOT_READY, 35,
        "HSRP PostProcessing is still in progress, HSRP group objects not available"),
    ZNTOPO_STATUS(ZN_API_INTERNAL_ERROR, 36,
        "Internal TopoAPI Error - contact Corvane support"),
    ZNTOPO_STATUS(ZN_API_STATUS_NOTIF_GEN_ERROR, 48,
        "Error while generating StatusChangeNotification."),
    ZNTOPO_STATUS(ZN_API_ATTR_NOTIF_GEN_ERROR, 49,
        "Error while generating AttrChangeNotification."),
    ZNTOPO_STATUS(ZN_API_LIFE_CYCLE_GEN_ERROR, 50,
        "Error while generating LifeCycleNotification."),
    {ZN_API_THREAD_CREATE_FAILED, "ZN_API_THREAD_CREATE_FAILED", kUnknownErrorCode},
    {ZN_API_THREAD_DETACH_FAILED, "ZN_API_THREAD_DETACH_FAILED", kUnknownErrorCode},
    {ZN_API_SQL_EXEC_DIRECT_ERROR, "ZN_API_SQL_EXEC_DIRECT_ERROR", kUnknownErrorCode},
    {ZN_API_SQL_OBJ_PERSISTENCY_ERROR, "ZN_API_SQL_OBJ_PERSISTENCY_ERROR", kUnknownErrorCode},
    {ZN_API_SQL_EXTENSIBLE_ATTR_ERROR, "ZN_API_SQL_EXTENSIBLE_ATTR_ERROR", kUnknownErrorCode},
    ZNTOPO_STATUS(ZN_API_JNI_ERROR, 37,
        "Java Native Interface Error"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_VALIDATION_ERROR, 38,
        "Validation Error in XML Filter information"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_TRANSFORMATION_ERROR, 39,
        "Error while transforming XML Filter information"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_SUBSTITUTION_ERROR, 40,
        "Consistency Error in XML Filter information"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR, 41,
        "Filter name not found in XML Filter information"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_FILE_NOT_FOUND_ERROR, 42,
        "XML Filter file not found"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR, 43,
        "Circular reference found in XML Filter information"),
    {ZN_API_IN_RDONLY_MODE, "ZN_API_IN_RDONLY_MODE", kUnknownErrorCode},
    ZNTOPO_STATUS(ZN_API_NOTIFCHANNEL_CREATION_ERROR, 44,
        "A Session with the kvd could not be established"),
    ZNTOPO_STATUS(ZN_API_NOTIFCHANNEL_DISCONNECTED, 45,
        "SNMP Session with kvd no longer exists."),
    ZNTOPO_STATUS(ZN_API_NOTIFCHANNEL_RECV_ERROR, 46,
        "Error while receiving events from kvd."),
    ZNTOPO_STATUS(ZN_API_NOT_INITED, 47,
        "Topology API is not initialized"),
    ZNTOPO_STATUS(ZN_API_STATE_GEN_ERROR, 51,
        "Error while generating TopologyStateNotification."),
    {ZN_API_SWITCH_DB_NOT_DONE_FOR_TOPO_ERROR, "ZN_API_SWITCH_DB_NOT_DONE_FOR_TOPO_ERROR", kUnknownErrorCode},
    ZNTOPO_STATUS(ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR, 65,
        " The object type specified in filter definition does not match the object type in object retrieval method"),
    ZNTOPO_STATUS(ZN_API_XML_SUBSYSTEM_INIT_FAILURE, 68,
        " XML parsing/validation subsystem failed to initialize"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS, 69,
        " XML filter file had unbalanced delimiters"),
    ZNTOPO_STATUS(ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR, 70,
        " XML filter file had a key that was not found"),
    {ZN_API_SQL_FETCH_ERROR, "ZN_API_SQL_FETCH_ERROR", kUnknownErrorCode},
    ZNTOPO_STATUS(ZN_API_XML_PARSE_ERROR, 71,
        " Failure while parsing XML file."),
    ZNTOPO_STATUS(ZN_API_SQL_CONSTRAINT_VIOLATION, kNotInCatalogue,
        " Uniqueness violation, like inserting a key value that already exists."),
    ZNTOPO_STATUS(ZN_API_NONUNIQUE_NAME, kNotInCatalogue,
        " The given name is not unique."),
}};
#undef ZNTOPO_STATUS
// clang-format on

constinit const std::array<Message, 38> kOtherMessages{{
    messages::kNoSortedLogFile,
    messages::kNoLogFile,
    messages::kNoClientFactory,
    messages::kNodes,
    messages::kInterfaces,
    messages::kVlans,
    messages::kHSRPGroups,
    messages::kSwitchMeshes,
    messages::kObjects,
    messages::kL2Links,
    messages::kIPv4Nodes,
    messages::kIPv6Nodes,
    messages::kIPv6PrefixGroups,
    messages::kIPv4Subnets,
    messages::kV4SnmpNodes,
    messages::kIPv4Interfaces,
    messages::kIPv6Interfaces,
    messages::kIPv4Addresses,
    messages::kIPv6Addresses,
    messages::kAddressObjects,
    messages::kOverlappingDomains,
    messages::kHas,
    messages::kNodesOfDomain,
    messages::kName,
    messages::kNoObjects,
    messages::kRetrievalError,
    messages::kUsage,
    messages::kStatus,
    messages::kCommAddr,
    messages::kPrivateAddr,
    messages::kOADId,
    messages::kIPVer,
    messages::kErrorMessage,
    messages::kAuxMessage,
    messages::kNodeUsage,
    messages::kFilterUsageInBrackets,
    messages::kAddressUsage,
    messages::kFilterUsage,
}};

namespace {

const StatusText* find(ZNTopoStatus status) {
  const auto found = std::lower_bound(
      kStatusTexts.begin(), kStatusTexts.end(), static_cast<int>(status),
      [](const StatusText& entry, int code) { return static_cast<int>(entry.status) < code; });
  return found != kStatusTexts.end() && found->status == status ? &*found : nullptr;
}

}  // namespace

const Message& statusMessage(ZNTopoStatus status) {
  const StatusText* const found = find(status);
  return found ? found->message : kUnknownErrorCode;
}

}  // namespace detail

const char* statusName(ZNTopoStatus status) {
  const detail::StatusText* const found = detail::find(status);
  return found ? found->name : "";
}

}  // namespace zntopo
