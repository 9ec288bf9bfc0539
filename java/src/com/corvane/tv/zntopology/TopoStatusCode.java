package com.corvane.tv.zntopology;

/** The outcomes that the library tells, with the texts of their numbers. */
public enum TopoStatusCode {
  /** Successful API Call. */
  SUCCESS(0, "Successful API Call"),
  /** Topology Data Store is currently unavailable. */
  DB_NOT_READY(1, "Topology Data Store is currently unavailable"),
  /** The given Topology Object ID is invalid. */
  INVALID_ID(2, "The given Topology Object ID is invalid"),
  /** The given IP Address is unknown. */
  UNKNOWN_IP(3, "The given IP Address is unknown"),
  /** Node or Interface object is null during path processing. */
  PATH_PROCESSING_ERROR(4, "Node or Interface object is null during path processing"),
  /** Topology object already exist in Topology Data Store. */
  OBJ_EXIST(5, "Topology object already exist in Topology Data Store"),
  /** Topology object does not exist in Topology Data Store. */
  OBJ_NOT_EXIST(6, "Topology object does not exist in Topology Data Store"),
  /** The input paramter value to Topo API is illegal. */
  ILLEGAL_INPUT(7, "The input paramter value to Topo API is illegal "),
  /** Error encountered during initialization of the Topology Database. */
  DB_INIT_FAILURE(8, "Error encountered during initialization of the Topology Database"),
  /** Error encountered while creating Topology Database ODBC connection. */
  DB_CONNECTION_FAILURE(9, "Error encountered while creating Topology Database ODBC connection"),
  /** Failure in executing address query. */
  ADDR_QUERY_FAILURE(10, "Failure in executing address query "),
  /** Invalid Topology API Filter. */
  FILTER_ERROR(11, "Invalid Topology API Filter"),
  /** The Node supplied as parameter does not support IPV6 protocol. */
  NON_V6_NODE(12, "The Node supplied as parameter does not support IPV6 protocol"),
  /** The number of hops supplied is not valid. */
  INVALID_NUM_HOPS(13, "The number of hops supplied is not valid"),
  /** The Topology Object ID list supplied is empty. */
  EMPTY_OBJID_LIST(14, "The Topology Object ID list supplied is empty"),
  /** Error in executing SQL statement. */
  SQL_EXEC_ERROR(15, "Error in executing SQL statement"),
  /** Error in binding parameter to the SQL statement. */
  SQL_BIND_PARM_ERROR(16, "Error in binding parameter to the SQL statement"),
  /** Error in starting SQL transaction. */
  SQL_START_TRANSACTION_ERROR(17, "Error in starting SQL transaction"),
  /** Error in commiting SQL transaction. */
  SQL_COMMIT_TRANSACTION_ERROR(18, "Error in commiting SQL transaction"),
  /** No layer 2 path is found. */
  NO_PATH(19, "No layer 2 path is found"),
  /** Error in binding SQL statement. */
  SQL_BIND_STATEMENT_ERROR(20, "Error in binding SQL statement"),
  /** Error in binding retrieved value variables to SQL statement. */
  SQL_BIND_COLUMN_ERROR(21, "Error in binding retrieved value variables to SQL statement"),
  /** Java Native Interface layer error. */
  JNI_CALL_ERROR(22, "Java Native Interface layer error"),
  /** The neighbor information returned is incomplete. */
  INCOMPLETE_NEIGHBOR_INFO(23, "The neighbor information returned is incomplete"),
  /** The API call is not supported. */
  NOT_SUPPORTED_OPERATION(24, "The API call is not supported"),
  /** HSRP PostProcessing is still in progress, HSRP group objects not available. */
  HSRP_NOT_READY(25, "HSRP PostProcessing is still in progress, HSRP group objects not available"),
  /** Internal TopoAPI Error - contact Corvane support. */
  INTERNAL_ERROR(26, "Internal TopoAPI Error - contact Corvane support"),
  /** Error while generating StatusChangeNotification. */
  STATUS_NOTIF_GEN_ERROR(27, "Error while generating StatusChangeNotification."),
  /** Error while generating AttrChangeNotification. */
  ATTR_NOTIF_GEN_ERROR(28, "Error while generating AttrChangeNotification."),
  /** Error while generating LifeCycleNotification. */
  LIFE_CYCLE_GEN_ERROR(29, "Error while generating LifeCycleNotification."),
  /** Number 30, which has no text of its own. */
  THREAD_CREATE_FAILED(30),
  /** Number 31, which has no text of its own. */
  THREAD_DETACH_FAILED(31),
  /** Number 32, which has no text of its own. */
  SQL_EXEC_DIRECT_ERROR(32),
  /** Number 33, which has no text of its own. */
  SQL_OBJ_PERSISTENCY_ERROR(33),
  /** Number 34, which has no text of its own. */
  SQL_EXTENSIBLE_ATTR_ERROR(34),
  /** Java Native Interface Error. */
  JNI_ERROR(35, "Java Native Interface Error"),
  /** Validation Error in XML Filter information. */
  XML_FILTER_VALIDATION_ERROR(36, "Validation Error in XML Filter information"),
  /** Error while transforming XML Filter information. */
  XML_FILTER_TRANSFORMATION_ERROR(37, "Error while transforming XML Filter information"),
  /** Consistency Error in XML Filter information. */
  XML_FILTER_SUBSTITUTION_ERROR(38, "Consistency Error in XML Filter information"),
  /** Filter name not found in XML Filter information. */
  XML_FILTER_NAME_NOT_FOUND_ERROR(39, "Filter name not found in XML Filter information"),
  /** XML Filter file not found. */
  XML_FILTER_FILE_NOT_FOUND_ERROR(40, "XML Filter file not found"),
  /** Circular reference found in XML Filter information. */
  XML_FILTER_FILE_CIRCULAR_REF_ERROR(41, "Circular reference found in XML Filter information"),
  /** Number 42, which has no text of its own. */
  IN_RDONLY_MODE(42),
  /** A Session with the kvd could not be established. */
  NOTIFCHANNEL_CREATION_ERROR(43, "A Session with the kvd could not be established"),
  /** SNMP Session with kvd no longer exists. */
  NOTIFCHANNEL_DISCONNECTED(44, "SNMP Session with kvd no longer exists."),
  /** Error while receiving events from kvd. */
  NOTIFCHANNEL_RECV_ERROR(45, "Error while receiving events from kvd."),
  /** Topology API is not initialized. */
  NOT_INITED(46, "Topology API is not initialized"),
  /** Error while generating TopologyStateNotification. */
  STATE_GEN_ERROR(47, "Error while generating TopologyStateNotification."),
  /** Number 48, which has no text of its own. */
  SWITCH_DB_NOT_DONE_FOR_TOPO_ERROR(48),
  /**
   * The object type specified in filter definition does not match the object type in object
   * retrieval method.
   */
  XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR(
      49,
      " The object type specified in filter definition does not match"
          + " the object type in object retrieval method"),
  /** XML parsing/validation subsystem failed to initialize. */
  XML_SUBSYSTEM_INIT_FAILURE(52, " XML parsing/validation subsystem failed to initialize"),
  /** XML filter file had unbalanced delimiters. */
  XML_FILTER_FILE_UNBALANCED_DELIMITERS(53, " XML filter file had unbalanced delimiters"),
  /** XML filter file had a key that was not found. */
  XML_FILTER_KEY_NOT_FOUND_ERROR(54, " XML filter file had a key that was not found"),
  /** Number 55, which has no text of its own. */
  SQL_FETCH_ERROR(55),
  /** Failure while parsing XML file. */
  XML_PARSE_ERROR(56, " Failure while parsing XML file."),
  /** Uniqueness violation, like inserting a key value that already exists. */
  SQL_CONSTRAINT_VIOLATION(
      57, " Uniqueness violation, like inserting a key value that already exists."),
  /** The given name is not unique. */
  NONUNIQUE_NAME(58, " The given name is not unique.");

  /** The text of numbers that have none of their own. */
  private static final String UNKNOWN = "Unknown Error code ";

  private final int number;
  private final String text;

  TopoStatusCode(int number) {
    this(number, UNKNOWN);
  }

  TopoStatusCode(int number, String text) {
    this.number = number;
    this.text = text;
  }

  /** {@return the number, which never changes} */
  public int number() {
    return number;
  }

  /** {@return the text of the library's English catalogue, blanks at its ends included} */
  public String text() {
    return text;
  }

  /**
   * Finds the outcome of a number.
   *
   * @param number the number
   * @return the outcome; null for a number that is none
   */
  public static TopoStatusCode of(int number) {
    for (TopoStatusCode code : values()) {
      if (code.number == number) {
        return code;
      }
    }
    return null;
  }

  /**
   * Tells the text of a number.
   *
   * @param number the number
   * @return its text; that of an unknown error for a number that is no outcome
   */
  public static String textOf(int number) {
    TopoStatusCode code = of(number);
    return code != null ? code.text : UNKNOWN;
  }
}
