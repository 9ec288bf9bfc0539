-- The topology store on PostgreSQL.
-- Written by scripts/generate-schema from data/schema/tables.json; do not edit.

-- The tables that applications read.

CREATE TABLE nwentity (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 65),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  EntityOID text CHECK (octet_length(EntityOID) <= 64),
  Status integer,
  RouteDistinguisher integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwentity_entitytype_iplevel_ix ON nwentity (EntityType, IPLevel);
CREATE INDEX nwentity_qrmobjid_ix ON nwentity (QRMObjId);
CREATE INDEX nwentity_entityname_ix ON nwentity (EntityName text_pattern_ops);
CREATE INDEX nwentity_routedistinguisher_ix ON nwentity (RouteDistinguisher);

CREATE TABLE nwnode (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 36),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  isATM integer,
  isOSPF integer,
  isBGP integer,
  isHSRP integer,
  isFrameRelay integer,
  isMultiHome integer,
  isMPLS integer,
  isLanSwitch integer,
  isManageable integer,
  isIPV6Router integer,
  isIPV4Router integer,
  SysOID text CHECK (octet_length(SysOID) <= 64),
  V4ManagementAddress text CHECK (octet_length(V4ManagementAddress) <= 15),
  Status integer,
  L2DomainId integer,
  SNMPState integer,
  PubV4ManagementAdd text CHECK (octet_length(PubV4ManagementAdd) <= 15),
  V4ManagementAddressRD integer,
  isVRRP integer,
  isRMON integer,
  isRMON2 integer,
  isDS1 integer,
  isDS3 integer,
  isSONET integer,
  isCDP integer,
  isSTP integer,
  isWireless integer,
  sysContact text CHECK (octet_length(sysContact) <= 128),
  sysLocation text CHECK (octet_length(sysLocation) <= 128),
  isSNMPSupported integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwnode_qrmobjid_ix ON nwnode (QRMObjId);
CREATE INDEX nwnode_entityname_ix ON nwnode (EntityName text_pattern_ops);
CREATE INDEX nwnode_pubv4managementadd_ix ON nwnode (PubV4ManagementAdd);
CREATE INDEX nwnode_v4managementaddressrd_ix ON nwnode (V4ManagementAddressRD);
CREATE INDEX nwnode_iplevel_ix ON nwnode (IPLevel);

CREATE TABLE nwinterface (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 36),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  NodeObjID text CHECK (octet_length(NodeObjID) <= 36),
  PhysicalAddress text CHECK (octet_length(PhysicalAddress) <= 256),
  VendorCard text CHECK (octet_length(VendorCard) <= 3),
  VendorPort text CHECK (octet_length(VendorPort) <= 3),
  IfIndex integer,
  IfName text CHECK (octet_length(IfName) <= 255),
  IfType integer,
  Vpi integer,
  Vci integer,
  IfAlias text CHECK (octet_length(IfAlias) <= 255),
  nodeName text CHECK (octet_length(nodeName) <= 255),
  isL2Connected integer,
  Port text CHECK (octet_length(Port) <= 3),
  isHSRP integer,
  Status integer,
  L2DomainId integer,
  IfOperStatus integer,
  IfAdminState integer,
  isATM integer,
  isOSPF integer,
  isBGP integer,
  isFrameRelay integer,
  isMeshInterface integer,
  isMPLS integer,
  isVRRP integer,
  isDS1 integer,
  isDS3 integer,
  isSONET integer,
  isCDP integer,
  isSTP integer,
  isWireless integer,
  routeDistinguisher integer,
  IfSpeed integer,
  isAccessPort integer,
  AscChangeTime integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwinterface_nodeobjid_ix ON nwinterface (NodeObjID);
CREATE INDEX nwinterface_qrmobjid_ix ON nwinterface (QRMObjId);
CREATE INDEX nwinterface_nodename_ifname_ix ON nwinterface (nodeName, IfName);
CREATE INDEX nwinterface_description_ix ON nwinterface (Description);
CREATE INDEX nwinterface_isl2connected_ix ON nwinterface (isL2Connected);
CREATE INDEX nwinterface_iplevel_ix ON nwinterface (IPLevel);

CREATE TABLE nwvlan (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE nwifc (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 129),
  Description text CHECK (octet_length(Description) <= 259),
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  RouteDistinguisher integer,
  Status integer,
  IFCType integer,
  isOrdered integer,
  AppsID integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwifc_ifctype_ix ON nwifc (IFCType);
CREATE INDEX nwifc_routedistinguisher_ix ON nwifc (RouteDistinguisher);

CREATE TABLE nwifcctm (
  ContainerObjId text NOT NULL CHECK (octet_length(ContainerObjId) <= 36),
  InterfaceObjId text NOT NULL CHECK (octet_length(InterfaceObjId) <= 36),
  NodeObjId text CHECK (octet_length(NodeObjId) <= 36),
  ContainmentType integer,
  IFCType integer,
  SequenceNumber integer,
  PRIMARY KEY (ContainerObjId, InterfaceObjId)
);
CREATE INDEX nwifcctm_interfaceobjid_ix ON nwifcctm (InterfaceObjId);
CREATE INDEX nwifcctm_nodeobjid_ix ON nwifcctm (NodeObjId);

CREATE TABLE nwifcasc (
  LeftIFContainerObjID text NOT NULL CHECK (octet_length(LeftIFContainerObjID) <= 36),
  RightIFContainerObjID text NOT NULL CHECK (octet_length(RightIFContainerObjID) <= 36),
  RelType integer NOT NULL,
  LeftIfcType integer,
  RightIfcType integer,
  State integer,
  StateChangeTime integer,
  Description text CHECK (octet_length(Description) <= 259),
  ExtraInfo text CHECK (octet_length(ExtraInfo) <= 259),
  PRIMARY KEY (LeftIFContainerObjID, RightIFContainerObjID, RelType)
);
CREATE INDEX nwifcasc_rightifcontainerobjid_ix ON nwifcasc (RightIFContainerObjID);

CREATE TABLE nwhsrp (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE NWInterfaceAsc (
  leftobjid text NOT NULL CHECK (octet_length(leftobjid) <= 36),
  rightobjid text NOT NULL CHECK (octet_length(rightobjid) <= 36),
  leftifnodeobjid text CHECK (octet_length(leftifnodeobjid) <= 36),
  rightifnodeobjid text CHECK (octet_length(rightifnodeobjid) <= 36),
  reltype integer NOT NULL,
  PRIMARY KEY (leftobjid, rightobjid, reltype)
);
CREATE INDEX nwinterfaceasc_leftifnodeobjid_ix ON NWInterfaceAsc (leftifnodeobjid);
CREATE INDEX nwinterfaceasc_rightifnodeobjid_ix ON NWInterfaceAsc (rightifnodeobjid);

CREATE TABLE containment (
  ContainerObjID text NOT NULL CHECK (octet_length(ContainerObjID) <= 36),
  ContainedObjID text NOT NULL CHECK (octet_length(ContainedObjID) <= 36),
  ContainerType integer,
  ContainedType integer,
  ContainedNodeObjId text CHECK (octet_length(ContainedNodeObjId) <= 36),
  PRIMARY KEY (ContainerObjID, ContainedObjID)
);
CREATE INDEX containment_containedobjid_ix ON containment (ContainedObjID);
CREATE INDEX containment_containednodeobjid_ix ON containment (ContainedNodeObjId);

CREATE TABLE address (
  AddressId text NOT NULL CHECK (octet_length(AddressId) <= 36),
  ObjId text CHECK (octet_length(ObjId) <= 36),
  AddressType integer,
  IPLevel integer,
  isSubnet integer,
  SubnetObjId text CHECK (octet_length(SubnetObjId) <= 36),
  V6Address text CHECK (octet_length(V6Address) <= 41),
  V6AddressBS text CHECK (octet_length(V6AddressBS) <= 129),
  V6ScopeType integer,
  PrefixLength integer,
  V4Address text CHECK (octet_length(V4Address) <= 16),
  NodeObjId text CHECK (octet_length(NodeObjId) <= 36),
  DNSName text CHECK (octet_length(DNSName) <= 256),
  RouteDistinguisher integer,
  AddressQRMId text CHECK (octet_length(AddressQRMId) <= 65),
  PingStatus integer,
  V6AddressType integer,
  V6AddressNtmState integer,
  V6AddressStatus integer,
  LastPingTimeUTC integer,
  LastPingStateUpdTimeUTC integer,
  PubV4Address text CHECK (octet_length(PubV4Address) <= 16),
  PingState integer,
  PRIMARY KEY (AddressId)
);
CREATE INDEX address_objid_ix ON address (ObjId);
CREATE INDEX address_nodeobjid_ix ON address (NodeObjId);
CREATE INDEX address_subnetobjid_ix ON address (SubnetObjId);
CREATE INDEX address_pubv4address_routedistinguisher_ix ON address (PubV4Address, RouteDistinguisher);
CREATE INDEX address_v4address_routedistinguisher_ix ON address (V4Address text_pattern_ops, RouteDistinguisher);
CREATE INDEX address_v6address_routedistinguisher_ix ON address (V6Address text_pattern_ops, RouteDistinguisher);
CREATE INDEX address_v6addressbs_ix ON address (V6AddressBS text_pattern_ops);
CREATE INDEX address_dnsname_ix ON address (DNSName text_pattern_ops);
CREATE INDEX address_addressqrmid_ix ON address (AddressQRMId);
CREATE INDEX address_addresstype_ix ON address (AddressType);

CREATE TABLE interfaceproperty (
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PropertyName text NOT NULL CHECK (octet_length(PropertyName) <= 128),
  PropertyValue text CHECK (octet_length(PropertyValue) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwinterface ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE nodeproperty (
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PropertyName text NOT NULL CHECK (octet_length(PropertyName) <= 128),
  PropertyValue text CHECK (octet_length(PropertyValue) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwnode ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE addressmapping (
  LeftAddressId text NOT NULL CHECK (octet_length(LeftAddressId) <= 36),
  RightAddressId text NOT NULL CHECK (octet_length(RightAddressId) <= 36),
  AddressMappingType integer NOT NULL,
  PRIMARY KEY (LeftAddressId, RightAddressId, AddressMappingType)
);
CREATE INDEX addressmapping_rightaddressid_ix ON addressmapping (RightAddressId);

CREATE TABLE userdefvar (
  VarName text NOT NULL CHECK (octet_length(VarName) <= 128),
  VarValType integer,
  StrVal text CHECK (octet_length(StrVal) <= 2000),
  IntVal integer,
  FloatVal real,
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PRIMARY KEY (ObjID, VarName)
);

CREATE TABLE hsrpaddress (
  AddressID text NOT NULL CHECK (octet_length(AddressID) <= 36),
  AddressIfObjID text CHECK (octet_length(AddressIfObjID) <= 36),
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  state integer,
  HSRPPriority integer,
  HSRPNumber integer,
  TrackInterfaceList text CHECK (octet_length(TrackInterfaceList) <= 1999),
  HSRPStateCertainty integer,
  PRIMARY KEY (ObjID, AddressID)
);
CREATE INDEX hsrpaddress_addressid_ix ON hsrpaddress (AddressID);
CREATE INDEX hsrpaddress_addressifobjid_ix ON hsrpaddress (AddressIfObjID);

CREATE TABLE state (
  TopologyReady integer,
  DISCOCYCLECOMPLETE integer,
  MeshState integer,
  HSRPState integer,
  ContainmentState integer,
  RelatedToState integer,
  TOPOLOGYREADYCHANGETIME integer,
  DiscoZoneComplete integer,
  DiscoZoneInProgress integer,
  ChangeTime integer,
  CreateTime integer,
  PrevDiscoEndTime integer
);

CREATE TABLE nwtopoaudittrail (
  ActionTimeUTC integer,
  ActionType integer,
  ObjID text CHECK (octet_length(ObjID) <= 36),
  ActionDetail integer,
  ObjectType integer,
  ActionInfo text CHECK (octet_length(ActionInfo) <= 254)
);
CREATE INDEX nwtopoaudittrail_actiontimeutc_ix ON nwtopoaudittrail (ActionTimeUTC);
CREATE INDEX nwtopoaudittrail_actiontype_ix ON nwtopoaudittrail (ActionType);
CREATE INDEX nwtopoaudittrail_objecttype_ix ON nwtopoaudittrail (ObjectType);

-- The tables that a discovery is building.

CREATE TABLE nwentity_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 65),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  EntityOID text CHECK (octet_length(EntityOID) <= 64),
  Status integer,
  RouteDistinguisher integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwentity_update_entitytype_iplevel_ix ON nwentity_update (EntityType, IPLevel);
CREATE INDEX nwentity_update_qrmobjid_ix ON nwentity_update (QRMObjId);
CREATE INDEX nwentity_update_entityname_ix ON nwentity_update (EntityName text_pattern_ops);
CREATE INDEX nwentity_update_routedistinguisher_ix ON nwentity_update (RouteDistinguisher);

CREATE TABLE nwnode_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 36),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  isATM integer,
  isOSPF integer,
  isBGP integer,
  isHSRP integer,
  isFrameRelay integer,
  isMultiHome integer,
  isMPLS integer,
  isLanSwitch integer,
  isManageable integer,
  isIPV6Router integer,
  isIPV4Router integer,
  SysOID text CHECK (octet_length(SysOID) <= 64),
  V4ManagementAddress text CHECK (octet_length(V4ManagementAddress) <= 15),
  Status integer,
  L2DomainId integer,
  SNMPState integer,
  PubV4ManagementAdd text CHECK (octet_length(PubV4ManagementAdd) <= 15),
  V4ManagementAddressRD integer,
  isVRRP integer,
  isRMON integer,
  isRMON2 integer,
  isDS1 integer,
  isDS3 integer,
  isSONET integer,
  isCDP integer,
  isSTP integer,
  isWireless integer,
  sysContact text CHECK (octet_length(sysContact) <= 128),
  sysLocation text CHECK (octet_length(sysLocation) <= 128),
  isSNMPSupported integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwnode_update_qrmobjid_ix ON nwnode_update (QRMObjId);
CREATE INDEX nwnode_update_entityname_ix ON nwnode_update (EntityName text_pattern_ops);
CREATE INDEX nwnode_update_pubv4managementadd_ix ON nwnode_update (PubV4ManagementAdd);
CREATE INDEX nwnode_update_v4managementaddressrd_ix ON nwnode_update (V4ManagementAddressRD);
CREATE INDEX nwnode_update_iplevel_ix ON nwnode_update (IPLevel);

CREATE TABLE nwinterface_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 255),
  IPLevel integer,
  QRMObjId text CHECK (octet_length(QRMObjId) <= 36),
  Description text CHECK (octet_length(Description) <= 2000),
  EntityType integer,
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  hasAddress integer,
  NodeObjID text CHECK (octet_length(NodeObjID) <= 36),
  PhysicalAddress text CHECK (octet_length(PhysicalAddress) <= 256),
  VendorCard text CHECK (octet_length(VendorCard) <= 3),
  VendorPort text CHECK (octet_length(VendorPort) <= 3),
  IfIndex integer,
  IfName text CHECK (octet_length(IfName) <= 255),
  IfType integer,
  Vpi integer,
  Vci integer,
  IfAlias text CHECK (octet_length(IfAlias) <= 255),
  nodeName text CHECK (octet_length(nodeName) <= 255),
  isL2Connected integer,
  Port text CHECK (octet_length(Port) <= 3),
  isHSRP integer,
  Status integer,
  L2DomainId integer,
  IfOperStatus integer,
  IfAdminState integer,
  isATM integer,
  isOSPF integer,
  isBGP integer,
  isFrameRelay integer,
  isMeshInterface integer,
  isMPLS integer,
  isVRRP integer,
  isDS1 integer,
  isDS3 integer,
  isSONET integer,
  isCDP integer,
  isSTP integer,
  isWireless integer,
  routeDistinguisher integer,
  IfSpeed integer,
  isAccessPort integer,
  AscChangeTime integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwinterface_update_nodeobjid_ix ON nwinterface_update (NodeObjID);
CREATE INDEX nwinterface_update_qrmobjid_ix ON nwinterface_update (QRMObjId);
CREATE INDEX nwinterface_update_nodename_ifname_ix ON nwinterface_update (nodeName, IfName);
CREATE INDEX nwinterface_update_description_ix ON nwinterface_update (Description);
CREATE INDEX nwinterface_update_isl2connected_ix ON nwinterface_update (isL2Connected);
CREATE INDEX nwinterface_update_iplevel_ix ON nwinterface_update (IPLevel);

CREATE TABLE nwvlan_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE nwifc_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  EntityName text CHECK (octet_length(EntityName) <= 129),
  Description text CHECK (octet_length(Description) <= 259),
  ZoneNumber text CHECK (octet_length(ZoneNumber) <= 64),
  V6CompoundStatus integer,
  V6GlobalStatus integer,
  V6SiteStatus integer,
  StatusChangeTimeUTC integer,
  CreateTimeUTC integer,
  ChangeTimeUTC integer,
  hasDynamicProperty integer,
  RouteDistinguisher integer,
  Status integer,
  IFCType integer,
  isOrdered integer,
  AppsID integer,
  PRIMARY KEY (ObjId)
);
CREATE INDEX nwifc_update_ifctype_ix ON nwifc_update (IFCType);
CREATE INDEX nwifc_update_routedistinguisher_ix ON nwifc_update (RouteDistinguisher);

CREATE TABLE nwifcctm_update (
  ContainerObjId text NOT NULL CHECK (octet_length(ContainerObjId) <= 36),
  InterfaceObjId text NOT NULL CHECK (octet_length(InterfaceObjId) <= 36),
  NodeObjId text CHECK (octet_length(NodeObjId) <= 36),
  ContainmentType integer,
  IFCType integer,
  SequenceNumber integer,
  PRIMARY KEY (ContainerObjId, InterfaceObjId)
);
CREATE INDEX nwifcctm_update_interfaceobjid_ix ON nwifcctm_update (InterfaceObjId);
CREATE INDEX nwifcctm_update_nodeobjid_ix ON nwifcctm_update (NodeObjId);

CREATE TABLE nwifcasc_update (
  LeftIFContainerObjID text NOT NULL CHECK (octet_length(LeftIFContainerObjID) <= 36),
  RightIFContainerObjID text NOT NULL CHECK (octet_length(RightIFContainerObjID) <= 36),
  RelType integer NOT NULL,
  LeftIfcType integer,
  RightIfcType integer,
  State integer,
  StateChangeTime integer,
  Description text CHECK (octet_length(Description) <= 259),
  ExtraInfo text CHECK (octet_length(ExtraInfo) <= 259),
  PRIMARY KEY (LeftIFContainerObjID, RightIFContainerObjID, RelType)
);
CREATE INDEX nwifcasc_update_rightifcontainerobjid_ix ON nwifcasc_update (RightIFContainerObjID);

CREATE TABLE nwhsrp_update (
  ObjId text NOT NULL CHECK (octet_length(ObjId) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE NWInterfaceAsc_update (
  leftobjid text NOT NULL CHECK (octet_length(leftobjid) <= 36),
  rightobjid text NOT NULL CHECK (octet_length(rightobjid) <= 36),
  leftifnodeobjid text CHECK (octet_length(leftifnodeobjid) <= 36),
  rightifnodeobjid text CHECK (octet_length(rightifnodeobjid) <= 36),
  reltype integer NOT NULL,
  PRIMARY KEY (leftobjid, rightobjid, reltype)
);
CREATE INDEX nwinterfaceasc_update_leftifnodeobjid_ix ON NWInterfaceAsc_update (leftifnodeobjid);
CREATE INDEX nwinterfaceasc_update_rightifnodeobjid_ix ON NWInterfaceAsc_update (rightifnodeobjid);

CREATE TABLE containment_update (
  ContainerObjID text NOT NULL CHECK (octet_length(ContainerObjID) <= 36),
  ContainedObjID text NOT NULL CHECK (octet_length(ContainedObjID) <= 36),
  ContainerType integer,
  ContainedType integer,
  ContainedNodeObjId text CHECK (octet_length(ContainedNodeObjId) <= 36),
  PRIMARY KEY (ContainerObjID, ContainedObjID)
);
CREATE INDEX containment_update_containedobjid_ix ON containment_update (ContainedObjID);
CREATE INDEX containment_update_containednodeobjid_ix ON containment_update (ContainedNodeObjId);

CREATE TABLE address_update (
  AddressId text NOT NULL CHECK (octet_length(AddressId) <= 36),
  ObjId text CHECK (octet_length(ObjId) <= 36),
  AddressType integer,
  IPLevel integer,
  isSubnet integer,
  SubnetObjId text CHECK (octet_length(SubnetObjId) <= 36),
  V6Address text CHECK (octet_length(V6Address) <= 41),
  V6AddressBS text CHECK (octet_length(V6AddressBS) <= 129),
  V6ScopeType integer,
  PrefixLength integer,
  V4Address text CHECK (octet_length(V4Address) <= 16),
  NodeObjId text CHECK (octet_length(NodeObjId) <= 36),
  DNSName text CHECK (octet_length(DNSName) <= 256),
  RouteDistinguisher integer,
  AddressQRMId text CHECK (octet_length(AddressQRMId) <= 65),
  PingStatus integer,
  V6AddressType integer,
  V6AddressNtmState integer,
  V6AddressStatus integer,
  LastPingTimeUTC integer,
  LastPingStateUpdTimeUTC integer,
  PubV4Address text CHECK (octet_length(PubV4Address) <= 16),
  PingState integer,
  PRIMARY KEY (AddressId)
);
CREATE INDEX address_update_objid_ix ON address_update (ObjId);
CREATE INDEX address_update_nodeobjid_ix ON address_update (NodeObjId);
CREATE INDEX address_update_subnetobjid_ix ON address_update (SubnetObjId);
CREATE INDEX address_update_pubv4address_routedistinguisher_ix ON address_update (PubV4Address, RouteDistinguisher);
CREATE INDEX address_update_v4address_routedistinguisher_ix ON address_update (V4Address text_pattern_ops, RouteDistinguisher);
CREATE INDEX address_update_v6address_routedistinguisher_ix ON address_update (V6Address text_pattern_ops, RouteDistinguisher);
CREATE INDEX address_update_v6addressbs_ix ON address_update (V6AddressBS text_pattern_ops);
CREATE INDEX address_update_dnsname_ix ON address_update (DNSName text_pattern_ops);
CREATE INDEX address_update_addressqrmid_ix ON address_update (AddressQRMId);
CREATE INDEX address_update_addresstype_ix ON address_update (AddressType);

CREATE TABLE interfaceproperty_update (
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PropertyName text NOT NULL CHECK (octet_length(PropertyName) <= 128),
  PropertyValue text CHECK (octet_length(PropertyValue) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwinterface_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE nodeproperty_update (
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PropertyName text NOT NULL CHECK (octet_length(PropertyName) <= 128),
  PropertyValue text CHECK (octet_length(PropertyValue) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwnode_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE addressmapping_update (
  LeftAddressId text NOT NULL CHECK (octet_length(LeftAddressId) <= 36),
  RightAddressId text NOT NULL CHECK (octet_length(RightAddressId) <= 36),
  AddressMappingType integer NOT NULL,
  PRIMARY KEY (LeftAddressId, RightAddressId, AddressMappingType)
);
CREATE INDEX addressmapping_update_rightaddressid_ix ON addressmapping_update (RightAddressId);

CREATE TABLE userdefvar_update (
  VarName text NOT NULL CHECK (octet_length(VarName) <= 128),
  VarValType integer,
  StrVal text CHECK (octet_length(StrVal) <= 2000),
  IntVal integer,
  FloatVal real,
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  PRIMARY KEY (ObjID, VarName)
);

CREATE TABLE hsrpaddress_update (
  AddressID text NOT NULL CHECK (octet_length(AddressID) <= 36),
  AddressIfObjID text CHECK (octet_length(AddressIfObjID) <= 36),
  ObjID text NOT NULL CHECK (octet_length(ObjID) <= 36),
  state integer,
  HSRPPriority integer,
  HSRPNumber integer,
  TrackInterfaceList text CHECK (octet_length(TrackInterfaceList) <= 1999),
  HSRPStateCertainty integer,
  PRIMARY KEY (ObjID, AddressID)
);
CREATE INDEX hsrpaddress_update_addressid_ix ON hsrpaddress_update (AddressID);
CREATE INDEX hsrpaddress_update_addressifobjid_ix ON hsrpaddress_update (AddressIfObjID);
