package com.corvane.tv.zntopology;

import java.util.Vector;

/**
 * What a node has beside what all entities have.
 *
 * @param capabilities what the node can do
 * @param managementAddress the IPv4 address under which it is managed; null if there is none
 * @param entityOid its system OID
 * @param sysContact who looks after it
 * @param sysLocation where it stands
 * @param snmpState whether its SNMP agent answers
 */
public record NodeProperty(
    Vector<Capability> capabilities, Address managementAddress, String entityOid,
    String sysContact, String sysLocation, SnmpState snmpState) {}
