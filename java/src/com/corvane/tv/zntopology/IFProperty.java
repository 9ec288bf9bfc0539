package com.corvane.tv.zntopology;

import java.util.Vector;

/**
 * What an interface has beside what all entities have.
 *
 * @param portNumber the number of its port
 * @param vendorPortNumber the number of its port, as the maker counts
 * @param vendorCardNumber the number of its card, as the maker counts
 * @param vpi its virtual path identifier
 * @param vci its virtual channel identifier
 * @param ifType its IANA ifType
 * @param ifIndex its index in the interface table of the node
 * @param ifName its name
 * @param physicalAddress its hardware address
 * @param ifAlias what an administrator calls it
 * @param isATM whether it carries ATM
 * @param isHSRP whether HSRP runs on it
 * @param ifSpeed its speed, as the store has it
 * @param adminStatus what it is told to be
 * @param operStatus what it is
 * @param capabilities what it can do
 */
public record IFProperty(
    String portNumber, String vendorPortNumber, String vendorCardNumber, int vpi, int vci,
    int ifType, int ifIndex, String ifName, String physicalAddress, String ifAlias,
    boolean isATM, boolean isHSRP, int ifSpeed, IFAdminStatus adminStatus,
    IFOperStatus operStatus, Vector<Capability> capabilities) {}
