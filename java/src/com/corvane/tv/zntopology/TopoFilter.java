package com.corvane.tv.zntopology;

import java.util.BitSet;
import java.util.List;

/**
 * A set of attributes that objects are asked to have. What was not set is not asked for.
 *
 * <p>Texts go into statements of the store as they stand: do not pass on what you did not check.
 * One is for a thread at a time.
 */
public class TopoFilter {
  /** The number of a field: the version of IP. */
  public static final int F_IP_LEVEL = 0;
  /** The number of a field: the type of the address. */
  public static final int F_ADDRESS_TYPE = 1;
  /** The number of a field: the scope of the IPv6 address. */
  public static final int F_V6_SCOPE_TYPE = 2;
  /** The number of a field: a pattern of names. */
  public static final int F_REGEX_ENTITY_NAME = 3;
  /** The number of a field: the text of the address. */
  public static final int F_ADDRESS_VALUE = 4;
  /** The number of a field: the capabilities. */
  public static final int F_CAPABILITY = 5;
  /** The number of a field: the capabilities to be without. */
  public static final int F_EX_CAPABILITY = 6;
  /** The number of a field: the length of the prefix. */
  public static final int F_PREFIX_LENGTH = 8;
  /** The number of a field: the address of the prefix. */
  public static final int F_PREFIX_ADDRESS = 9;
  /** The number of a field: the kind of the object. */
  public static final int F_ENTITY_TYPE = 11;

  private final BitSet set = new BitSet();
  private IPLevel ipLevel;
  private AddressType addressType;
  private IPv6ScopeType v6ScopeType;
  private String regexEntityName;
  private String regexAddressStr;
  private List<String> capabilityNames;
  private List<String> excludeCapabilityNames;
  private int prefixLength;
  private String prefixAddress;
  private EntityType entityType;

  /** Makes a filter that asks for nothing. */
  public TopoFilter() {}

  /**
   * Tells whether a field was not set.
   *
   * @param field the number of the field
   * @return whether it is ignored
   */
  public boolean isFieldIgnored(int field) {
    return field < 0 || !set.get(field);
  }

  /** {@return the version of IP} */
  public IPLevel getIPLevel() {
    return ipLevel;
  }

  /**
   * Asks for the version of IP.
   *
   * @param ipLevel the version of IP
   */
  public void setIPLevel(IPLevel ipLevel) {
    this.ipLevel = ipLevel;
    set.set(F_IP_LEVEL);
  }

  /** {@return the type of the address} */
  public AddressType getAddressType() {
    return addressType;
  }

  /**
   * Asks for the type of the address.
   *
   * @param addressType the type of the address
   */
  public void setAddressType(AddressType addressType) {
    this.addressType = addressType;
    set.set(F_ADDRESS_TYPE);
  }

  /** {@return the scope of the IPv6 address} */
  public IPv6ScopeType getV6ScopeType() {
    return v6ScopeType;
  }

  /**
   * Asks for the scope of the IPv6 address.
   *
   * @param v6ScopeType the scope of the IPv6 address
   */
  public void setV6ScopeType(IPv6ScopeType v6ScopeType) {
    this.v6ScopeType = v6ScopeType;
    set.set(F_V6_SCOPE_TYPE);
  }

  /** {@return a pattern of names, with the wildcards of the store's "like"} */
  public String getRegexEntityName() {
    return regexEntityName;
  }

  /**
   * Asks for a pattern of names, with the wildcards of the store's "like".
   *
   * @param regexEntityName a pattern of names, with the wildcards of the store's "like"
   */
  public void setRegexEntityName(String regexEntityName) {
    this.regexEntityName = regexEntityName;
    set.set(F_REGEX_ENTITY_NAME);
  }

  /** {@return the text of the address, or a pattern of texts} */
  public String getRegexAddressStr() {
    return regexAddressStr;
  }

  /**
   * Asks for the text of the address, or a pattern of texts.
   *
   * @param regexAddressStr the text of the address, or a pattern of texts
   */
  public void setRegexAddressStr(String regexAddressStr) {
    this.regexAddressStr = regexAddressStr;
    set.set(F_ADDRESS_VALUE);
  }

  /** {@return the capabilities; the library does not look at them} */
  public List<String> getCapabilityNames() {
    return capabilityNames;
  }

  /**
   * Asks for the capabilities; the library does not look at them.
   *
   * @param capabilityNames the capabilities; the library does not look at them
   */
  public void setCapabilityNames(List<String> capabilityNames) {
    this.capabilityNames = capabilityNames;
    set.set(F_CAPABILITY);
  }

  /** {@return the capabilities to be without; the library does not look at them} */
  public List<String> getExcludeCapabilityNames() {
    return excludeCapabilityNames;
  }

  /**
   * Asks for the capabilities to be without; the library does not look at them.
   *
   * @param excludeCapabilityNames the capabilities to be without; the library does not look at them
   */
  public void setExcludeCapabilityNames(List<String> excludeCapabilityNames) {
    this.excludeCapabilityNames = excludeCapabilityNames;
    set.set(F_EX_CAPABILITY);
  }

  /** {@return the length of the prefix} */
  public int getPrefixLength() {
    return prefixLength;
  }

  /**
   * Asks for the length of the prefix.
   *
   * @param prefixLength the length of the prefix
   */
  public void setPrefixLength(int prefixLength) {
    this.prefixLength = prefixLength;
    set.set(F_PREFIX_LENGTH);
  }

  /** {@return the address of the prefix} */
  public String getPrefixAddress() {
    return prefixAddress;
  }

  /**
   * Asks for the address of the prefix.
   *
   * @param prefixAddress the address of the prefix
   */
  public void setPrefixAddress(String prefixAddress) {
    this.prefixAddress = prefixAddress;
    set.set(F_PREFIX_ADDRESS);
  }

  /** {@return the kind of the object} */
  public EntityType getEntityType() {
    return entityType;
  }

  /**
   * Asks for the kind of the object.
   *
   * @param entityType the kind of the object
   */
  public void setEntityType(EntityType entityType) {
    this.entityType = entityType;
    set.set(F_ENTITY_TYPE);
  }
}
