-- The topology store on SQLite.
-- Written by scripts/generate-schema from data/schema/tables.json; do not edit.

-- The tables that applications read.

CREATE TABLE nwentity (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 65),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  EntityOID TEXT CHECK (length(CAST(EntityOID AS BLOB)) <= 64),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwentity_entitytype_iplevel_ix ON nwentity (EntityType, IPLevel);
CREATE INDEX nwentity_qrmobjid_ix ON nwentity (QRMObjId);
CREATE INDEX nwentity_entityname_ix ON nwentity (EntityName);
CREATE INDEX nwentity_routedistinguisher_ix ON nwentity (RouteDistinguisher);

CREATE TABLE nwnode (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 36),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  isATM INTEGER CHECK (isATM BETWEEN -2147483648 AND 2147483647),
  isOSPF INTEGER CHECK (isOSPF BETWEEN -2147483648 AND 2147483647),
  isBGP INTEGER CHECK (isBGP BETWEEN -2147483648 AND 2147483647),
  isHSRP INTEGER CHECK (isHSRP BETWEEN -2147483648 AND 2147483647),
  isFrameRelay INTEGER CHECK (isFrameRelay BETWEEN -2147483648 AND 2147483647),
  isMultiHome INTEGER CHECK (isMultiHome BETWEEN -2147483648 AND 2147483647),
  isMPLS INTEGER CHECK (isMPLS BETWEEN -2147483648 AND 2147483647),
  isLanSwitch INTEGER CHECK (isLanSwitch BETWEEN -2147483648 AND 2147483647),
  isManageable INTEGER CHECK (isManageable BETWEEN -2147483648 AND 2147483647),
  isIPV6Router INTEGER CHECK (isIPV6Router BETWEEN -2147483648 AND 2147483647),
  isIPV4Router INTEGER CHECK (isIPV4Router BETWEEN -2147483648 AND 2147483647),
  SysOID TEXT CHECK (length(CAST(SysOID AS BLOB)) <= 64),
  V4ManagementAddress TEXT CHECK (length(CAST(V4ManagementAddress AS BLOB)) <= 15),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  L2DomainId INTEGER CHECK (L2DomainId BETWEEN -2147483648 AND 2147483647),
  SNMPState INTEGER CHECK (SNMPState BETWEEN -2147483648 AND 2147483647),
  PubV4ManagementAdd TEXT CHECK (length(CAST(PubV4ManagementAdd AS BLOB)) <= 15),
  V4ManagementAddressRD INTEGER CHECK (V4ManagementAddressRD BETWEEN -2147483648 AND 2147483647),
  isVRRP INTEGER CHECK (isVRRP BETWEEN -2147483648 AND 2147483647),
  isRMON INTEGER CHECK (isRMON BETWEEN -2147483648 AND 2147483647),
  isRMON2 INTEGER CHECK (isRMON2 BETWEEN -2147483648 AND 2147483647),
  isDS1 INTEGER CHECK (isDS1 BETWEEN -2147483648 AND 2147483647),
  isDS3 INTEGER CHECK (isDS3 BETWEEN -2147483648 AND 2147483647),
  isSONET INTEGER CHECK (isSONET BETWEEN -2147483648 AND 2147483647),
  isCDP INTEGER CHECK (isCDP BETWEEN -2147483648 AND 2147483647),
  isSTP INTEGER CHECK (isSTP BETWEEN -2147483648 AND 2147483647),
  isWireless INTEGER CHECK (isWireless BETWEEN -2147483648 AND 2147483647),
  sysContact TEXT CHECK (length(CAST(sysContact AS BLOB)) <= 128),
  sysLocation TEXT CHECK (length(CAST(sysLocation AS BLOB)) <= 128),
  isSNMPSupported INTEGER CHECK (isSNMPSupported BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwnode_qrmobjid_ix ON nwnode (QRMObjId);
CREATE INDEX nwnode_entityname_ix ON nwnode (EntityName);
CREATE INDEX nwnode_pubv4managementadd_ix ON nwnode (PubV4ManagementAdd);
CREATE INDEX nwnode_v4managementaddressrd_ix ON nwnode (V4ManagementAddressRD);
CREATE INDEX nwnode_iplevel_ix ON nwnode (IPLevel);

CREATE TABLE nwinterface (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 36),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  NodeObjID TEXT CHECK (length(CAST(NodeObjID AS BLOB)) <= 36),
  PhysicalAddress TEXT CHECK (length(CAST(PhysicalAddress AS BLOB)) <= 256),
  VendorCard TEXT CHECK (length(CAST(VendorCard AS BLOB)) <= 3),
  VendorPort TEXT CHECK (length(CAST(VendorPort AS BLOB)) <= 3),
  IfIndex INTEGER CHECK (IfIndex BETWEEN -2147483648 AND 2147483647),
  IfName TEXT CHECK (length(CAST(IfName AS BLOB)) <= 255),
  IfType INTEGER CHECK (IfType BETWEEN -2147483648 AND 2147483647),
  Vpi INTEGER CHECK (Vpi BETWEEN -2147483648 AND 2147483647),
  Vci INTEGER CHECK (Vci BETWEEN -2147483648 AND 2147483647),
  IfAlias TEXT CHECK (length(CAST(IfAlias AS BLOB)) <= 255),
  nodeName TEXT CHECK (length(CAST(nodeName AS BLOB)) <= 255),
  isL2Connected INTEGER CHECK (isL2Connected BETWEEN -2147483648 AND 2147483647),
  Port TEXT CHECK (length(CAST(Port AS BLOB)) <= 3),
  isHSRP INTEGER CHECK (isHSRP BETWEEN -2147483648 AND 2147483647),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  L2DomainId INTEGER CHECK (L2DomainId BETWEEN -2147483648 AND 2147483647),
  IfOperStatus INTEGER CHECK (IfOperStatus BETWEEN -2147483648 AND 2147483647),
  IfAdminState INTEGER CHECK (IfAdminState BETWEEN -2147483648 AND 2147483647),
  isATM INTEGER CHECK (isATM BETWEEN -2147483648 AND 2147483647),
  isOSPF INTEGER CHECK (isOSPF BETWEEN -2147483648 AND 2147483647),
  isBGP INTEGER CHECK (isBGP BETWEEN -2147483648 AND 2147483647),
  isFrameRelay INTEGER CHECK (isFrameRelay BETWEEN -2147483648 AND 2147483647),
  isMeshInterface INTEGER CHECK (isMeshInterface BETWEEN -2147483648 AND 2147483647),
  isMPLS INTEGER CHECK (isMPLS BETWEEN -2147483648 AND 2147483647),
  isVRRP INTEGER CHECK (isVRRP BETWEEN -2147483648 AND 2147483647),
  isDS1 INTEGER CHECK (isDS1 BETWEEN -2147483648 AND 2147483647),
  isDS3 INTEGER CHECK (isDS3 BETWEEN -2147483648 AND 2147483647),
  isSONET INTEGER CHECK (isSONET BETWEEN -2147483648 AND 2147483647),
  isCDP INTEGER CHECK (isCDP BETWEEN -2147483648 AND 2147483647),
  isSTP INTEGER CHECK (isSTP BETWEEN -2147483648 AND 2147483647),
  isWireless INTEGER CHECK (isWireless BETWEEN -2147483648 AND 2147483647),
  routeDistinguisher INTEGER CHECK (routeDistinguisher BETWEEN -2147483648 AND 2147483647),
  IfSpeed INTEGER CHECK (IfSpeed BETWEEN -2147483648 AND 2147483647),
  isAccessPort INTEGER CHECK (isAccessPort BETWEEN -2147483648 AND 2147483647),
  AscChangeTime INTEGER CHECK (AscChangeTime BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwinterface_nodeobjid_ix ON nwinterface (NodeObjID);
CREATE INDEX nwinterface_qrmobjid_ix ON nwinterface (QRMObjId);
CREATE INDEX nwinterface_nodename_ifname_ix ON nwinterface (nodeName, IfName);
CREATE INDEX nwinterface_description_ix ON nwinterface (Description);
CREATE INDEX nwinterface_isl2connected_ix ON nwinterface (isL2Connected);
CREATE INDEX nwinterface_iplevel_ix ON nwinterface (IPLevel);

CREATE TABLE nwvlan (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE nwifc (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 129),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 259),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  IFCType INTEGER CHECK (IFCType BETWEEN -2147483648 AND 2147483647),
  isOrdered INTEGER CHECK (isOrdered BETWEEN -2147483648 AND 2147483647),
  AppsID INTEGER CHECK (AppsID BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwifc_ifctype_ix ON nwifc (IFCType);
CREATE INDEX nwifc_routedistinguisher_ix ON nwifc (RouteDistinguisher);

CREATE TABLE nwifcctm (
  ContainerObjId TEXT NOT NULL CHECK (length(CAST(ContainerObjId AS BLOB)) <= 36),
  InterfaceObjId TEXT NOT NULL CHECK (length(CAST(InterfaceObjId AS BLOB)) <= 36),
  NodeObjId TEXT CHECK (length(CAST(NodeObjId AS BLOB)) <= 36),
  ContainmentType INTEGER CHECK (ContainmentType BETWEEN -2147483648 AND 2147483647),
  IFCType INTEGER CHECK (IFCType BETWEEN -2147483648 AND 2147483647),
  SequenceNumber INTEGER CHECK (SequenceNumber BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ContainerObjId, InterfaceObjId)
) STRICT;
CREATE INDEX nwifcctm_interfaceobjid_ix ON nwifcctm (InterfaceObjId);
CREATE INDEX nwifcctm_nodeobjid_ix ON nwifcctm (NodeObjId);

CREATE TABLE nwifcasc (
  LeftIFContainerObjID TEXT NOT NULL CHECK (length(CAST(LeftIFContainerObjID AS BLOB)) <= 36),
  RightIFContainerObjID TEXT NOT NULL CHECK (length(CAST(RightIFContainerObjID AS BLOB)) <= 36),
  RelType INTEGER NOT NULL CHECK (RelType BETWEEN -2147483648 AND 2147483647),
  LeftIfcType INTEGER CHECK (LeftIfcType BETWEEN -2147483648 AND 2147483647),
  RightIfcType INTEGER CHECK (RightIfcType BETWEEN -2147483648 AND 2147483647),
  State INTEGER CHECK (State BETWEEN -2147483648 AND 2147483647),
  StateChangeTime INTEGER CHECK (StateChangeTime BETWEEN -2147483648 AND 2147483647),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 259),
  ExtraInfo TEXT CHECK (length(CAST(ExtraInfo AS BLOB)) <= 259),
  PRIMARY KEY (LeftIFContainerObjID, RightIFContainerObjID, RelType)
) STRICT;
CREATE INDEX nwifcasc_rightifcontainerobjid_ix ON nwifcasc (RightIFContainerObjID);

CREATE TABLE nwhsrp (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE NWInterfaceAsc (
  leftobjid TEXT NOT NULL CHECK (length(CAST(leftobjid AS BLOB)) <= 36),
  rightobjid TEXT NOT NULL CHECK (length(CAST(rightobjid AS BLOB)) <= 36),
  leftifnodeobjid TEXT CHECK (length(CAST(leftifnodeobjid AS BLOB)) <= 36),
  rightifnodeobjid TEXT CHECK (length(CAST(rightifnodeobjid AS BLOB)) <= 36),
  reltype INTEGER NOT NULL CHECK (reltype BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (leftobjid, rightobjid, reltype)
) STRICT;
CREATE INDEX nwinterfaceasc_leftifnodeobjid_ix ON NWInterfaceAsc (leftifnodeobjid);
CREATE INDEX nwinterfaceasc_rightifnodeobjid_ix ON NWInterfaceAsc (rightifnodeobjid);

CREATE TABLE containment (
  ContainerObjID TEXT NOT NULL CHECK (length(CAST(ContainerObjID AS BLOB)) <= 36),
  ContainedObjID TEXT NOT NULL CHECK (length(CAST(ContainedObjID AS BLOB)) <= 36),
  ContainerType INTEGER CHECK (ContainerType BETWEEN -2147483648 AND 2147483647),
  ContainedType INTEGER CHECK (ContainedType BETWEEN -2147483648 AND 2147483647),
  ContainedNodeObjId TEXT CHECK (length(CAST(ContainedNodeObjId AS BLOB)) <= 36),
  PRIMARY KEY (ContainerObjID, ContainedObjID)
) STRICT;
CREATE INDEX containment_containedobjid_ix ON containment (ContainedObjID);
CREATE INDEX containment_containednodeobjid_ix ON containment (ContainedNodeObjId);

CREATE TABLE address (
  AddressId TEXT NOT NULL CHECK (length(CAST(AddressId AS BLOB)) <= 36),
  ObjId TEXT CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  AddressType INTEGER CHECK (AddressType BETWEEN -2147483648 AND 2147483647),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  isSubnet INTEGER CHECK (isSubnet BETWEEN -2147483648 AND 2147483647),
  SubnetObjId TEXT CHECK (length(CAST(SubnetObjId AS BLOB)) <= 36),
  V6Address TEXT CHECK (length(CAST(V6Address AS BLOB)) <= 41),
  V6AddressBS TEXT CHECK (length(CAST(V6AddressBS AS BLOB)) <= 129),
  V6ScopeType INTEGER CHECK (V6ScopeType BETWEEN -2147483648 AND 2147483647),
  PrefixLength INTEGER CHECK (PrefixLength BETWEEN -2147483648 AND 2147483647),
  V4Address TEXT CHECK (length(CAST(V4Address AS BLOB)) <= 16),
  NodeObjId TEXT CHECK (length(CAST(NodeObjId AS BLOB)) <= 36),
  DNSName TEXT CHECK (length(CAST(DNSName AS BLOB)) <= 256),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  AddressQRMId TEXT CHECK (length(CAST(AddressQRMId AS BLOB)) <= 65),
  PingStatus INTEGER CHECK (PingStatus BETWEEN -2147483648 AND 2147483647),
  V6AddressType INTEGER CHECK (V6AddressType BETWEEN -2147483648 AND 2147483647),
  V6AddressNtmState INTEGER CHECK (V6AddressNtmState BETWEEN -2147483648 AND 2147483647),
  V6AddressStatus INTEGER CHECK (V6AddressStatus BETWEEN -2147483648 AND 2147483647),
  LastPingTimeUTC INTEGER CHECK (LastPingTimeUTC BETWEEN -2147483648 AND 2147483647),
  LastPingStateUpdTimeUTC INTEGER CHECK (LastPingStateUpdTimeUTC BETWEEN -2147483648 AND 2147483647),
  PubV4Address TEXT CHECK (length(CAST(PubV4Address AS BLOB)) <= 16),
  PingState INTEGER CHECK (PingState BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (AddressId)
) STRICT;
CREATE INDEX address_objid_ix ON address (ObjId);
CREATE INDEX address_nodeobjid_ix ON address (NodeObjId);
CREATE INDEX address_subnetobjid_ix ON address (SubnetObjId);
CREATE INDEX address_pubv4address_routedistinguisher_ix ON address (PubV4Address, RouteDistinguisher);
CREATE INDEX address_v4address_routedistinguisher_ix ON address (V4Address, RouteDistinguisher);
CREATE INDEX address_v6address_routedistinguisher_ix ON address (V6Address, RouteDistinguisher);
CREATE INDEX address_v6addressbs_ix ON address (V6AddressBS);
CREATE INDEX address_dnsname_ix ON address (DNSName);
CREATE INDEX address_addressqrmid_ix ON address (AddressQRMId);
CREATE INDEX address_addresstype_ix ON address (AddressType);

CREATE TABLE interfaceproperty (
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PropertyName TEXT NOT NULL CHECK (length(CAST(PropertyName AS BLOB)) <= 128),
  PropertyValue TEXT CHECK (length(CAST(PropertyValue AS BLOB)) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwinterface ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE nodeproperty (
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PropertyName TEXT NOT NULL CHECK (length(CAST(PropertyName AS BLOB)) <= 128),
  PropertyValue TEXT CHECK (length(CAST(PropertyValue AS BLOB)) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwnode ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE addressmapping (
  LeftAddressId TEXT NOT NULL CHECK (length(CAST(LeftAddressId AS BLOB)) <= 36),
  RightAddressId TEXT NOT NULL CHECK (length(CAST(RightAddressId AS BLOB)) <= 36),
  AddressMappingType INTEGER NOT NULL CHECK (AddressMappingType BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (LeftAddressId, RightAddressId, AddressMappingType)
) STRICT;
CREATE INDEX addressmapping_rightaddressid_ix ON addressmapping (RightAddressId);

CREATE TABLE userdefvar (
  VarName TEXT NOT NULL CHECK (length(CAST(VarName AS BLOB)) <= 128),
  VarValType INTEGER CHECK (VarValType BETWEEN -2147483648 AND 2147483647),
  StrVal TEXT CHECK (length(CAST(StrVal AS BLOB)) <= 2000),
  IntVal INTEGER CHECK (IntVal BETWEEN -2147483648 AND 2147483647),
  FloatVal REAL,
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PRIMARY KEY (ObjID, VarName)
) STRICT;

CREATE TABLE hsrpaddress (
  AddressID TEXT NOT NULL CHECK (length(CAST(AddressID AS BLOB)) <= 36),
  AddressIfObjID TEXT CHECK (length(CAST(AddressIfObjID AS BLOB)) <= 36),
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  state INTEGER CHECK (state BETWEEN -2147483648 AND 2147483647),
  HSRPPriority INTEGER CHECK (HSRPPriority BETWEEN -2147483648 AND 2147483647),
  HSRPNumber INTEGER CHECK (HSRPNumber BETWEEN -2147483648 AND 2147483647),
  TrackInterfaceList TEXT CHECK (length(CAST(TrackInterfaceList AS BLOB)) <= 1999),
  HSRPStateCertainty INTEGER CHECK (HSRPStateCertainty BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjID, AddressID)
) STRICT;
CREATE INDEX hsrpaddress_addressid_ix ON hsrpaddress (AddressID);
CREATE INDEX hsrpaddress_addressifobjid_ix ON hsrpaddress (AddressIfObjID);

CREATE TABLE state (
  TopologyReady INTEGER CHECK (TopologyReady BETWEEN -2147483648 AND 2147483647),
  DISCOCYCLECOMPLETE INTEGER CHECK (DISCOCYCLECOMPLETE BETWEEN -2147483648 AND 2147483647),
  MeshState INTEGER CHECK (MeshState BETWEEN -2147483648 AND 2147483647),
  HSRPState INTEGER CHECK (HSRPState BETWEEN -2147483648 AND 2147483647),
  ContainmentState INTEGER CHECK (ContainmentState BETWEEN -2147483648 AND 2147483647),
  RelatedToState INTEGER CHECK (RelatedToState BETWEEN -2147483648 AND 2147483647),
  TOPOLOGYREADYCHANGETIME INTEGER CHECK (TOPOLOGYREADYCHANGETIME BETWEEN -2147483648 AND 2147483647),
  DiscoZoneComplete INTEGER CHECK (DiscoZoneComplete BETWEEN -2147483648 AND 2147483647),
  DiscoZoneInProgress INTEGER CHECK (DiscoZoneInProgress BETWEEN -2147483648 AND 2147483647),
  ChangeTime INTEGER CHECK (ChangeTime BETWEEN -2147483648 AND 2147483647),
  CreateTime INTEGER CHECK (CreateTime BETWEEN -2147483648 AND 2147483647),
  PrevDiscoEndTime INTEGER CHECK (PrevDiscoEndTime BETWEEN -2147483648 AND 2147483647)
) STRICT;

CREATE TABLE nwtopoaudittrail (
  ActionTimeUTC INTEGER CHECK (ActionTimeUTC BETWEEN -2147483648 AND 2147483647),
  ActionType INTEGER CHECK (ActionType BETWEEN -2147483648 AND 2147483647),
  ObjID TEXT CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  ActionDetail INTEGER CHECK (ActionDetail BETWEEN -2147483648 AND 2147483647),
  ObjectType INTEGER CHECK (ObjectType BETWEEN -2147483648 AND 2147483647),
  ActionInfo TEXT CHECK (length(CAST(ActionInfo AS BLOB)) <= 254)
) STRICT;
CREATE INDEX nwtopoaudittrail_actiontimeutc_ix ON nwtopoaudittrail (ActionTimeUTC);
CREATE INDEX nwtopoaudittrail_actiontype_ix ON nwtopoaudittrail (ActionType);
CREATE INDEX nwtopoaudittrail_objecttype_ix ON nwtopoaudittrail (ObjectType);

-- The tables that a discovery is building.

CREATE TABLE nwentity_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 65),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  EntityOID TEXT CHECK (length(CAST(EntityOID AS BLOB)) <= 64),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwentity_update_entitytype_iplevel_ix ON nwentity_update (EntityType, IPLevel);
CREATE INDEX nwentity_update_qrmobjid_ix ON nwentity_update (QRMObjId);
CREATE INDEX nwentity_update_entityname_ix ON nwentity_update (EntityName);
CREATE INDEX nwentity_update_routedistinguisher_ix ON nwentity_update (RouteDistinguisher);

CREATE TABLE nwnode_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 36),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  isATM INTEGER CHECK (isATM BETWEEN -2147483648 AND 2147483647),
  isOSPF INTEGER CHECK (isOSPF BETWEEN -2147483648 AND 2147483647),
  isBGP INTEGER CHECK (isBGP BETWEEN -2147483648 AND 2147483647),
  isHSRP INTEGER CHECK (isHSRP BETWEEN -2147483648 AND 2147483647),
  isFrameRelay INTEGER CHECK (isFrameRelay BETWEEN -2147483648 AND 2147483647),
  isMultiHome INTEGER CHECK (isMultiHome BETWEEN -2147483648 AND 2147483647),
  isMPLS INTEGER CHECK (isMPLS BETWEEN -2147483648 AND 2147483647),
  isLanSwitch INTEGER CHECK (isLanSwitch BETWEEN -2147483648 AND 2147483647),
  isManageable INTEGER CHECK (isManageable BETWEEN -2147483648 AND 2147483647),
  isIPV6Router INTEGER CHECK (isIPV6Router BETWEEN -2147483648 AND 2147483647),
  isIPV4Router INTEGER CHECK (isIPV4Router BETWEEN -2147483648 AND 2147483647),
  SysOID TEXT CHECK (length(CAST(SysOID AS BLOB)) <= 64),
  V4ManagementAddress TEXT CHECK (length(CAST(V4ManagementAddress AS BLOB)) <= 15),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  L2DomainId INTEGER CHECK (L2DomainId BETWEEN -2147483648 AND 2147483647),
  SNMPState INTEGER CHECK (SNMPState BETWEEN -2147483648 AND 2147483647),
  PubV4ManagementAdd TEXT CHECK (length(CAST(PubV4ManagementAdd AS BLOB)) <= 15),
  V4ManagementAddressRD INTEGER CHECK (V4ManagementAddressRD BETWEEN -2147483648 AND 2147483647),
  isVRRP INTEGER CHECK (isVRRP BETWEEN -2147483648 AND 2147483647),
  isRMON INTEGER CHECK (isRMON BETWEEN -2147483648 AND 2147483647),
  isRMON2 INTEGER CHECK (isRMON2 BETWEEN -2147483648 AND 2147483647),
  isDS1 INTEGER CHECK (isDS1 BETWEEN -2147483648 AND 2147483647),
  isDS3 INTEGER CHECK (isDS3 BETWEEN -2147483648 AND 2147483647),
  isSONET INTEGER CHECK (isSONET BETWEEN -2147483648 AND 2147483647),
  isCDP INTEGER CHECK (isCDP BETWEEN -2147483648 AND 2147483647),
  isSTP INTEGER CHECK (isSTP BETWEEN -2147483648 AND 2147483647),
  isWireless INTEGER CHECK (isWireless BETWEEN -2147483648 AND 2147483647),
  sysContact TEXT CHECK (length(CAST(sysContact AS BLOB)) <= 128),
  sysLocation TEXT CHECK (length(CAST(sysLocation AS BLOB)) <= 128),
  isSNMPSupported INTEGER CHECK (isSNMPSupported BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwnode_update_qrmobjid_ix ON nwnode_update (QRMObjId);
CREATE INDEX nwnode_update_entityname_ix ON nwnode_update (EntityName);
CREATE INDEX nwnode_update_pubv4managementadd_ix ON nwnode_update (PubV4ManagementAdd);
CREATE INDEX nwnode_update_v4managementaddressrd_ix ON nwnode_update (V4ManagementAddressRD);
CREATE INDEX nwnode_update_iplevel_ix ON nwnode_update (IPLevel);

CREATE TABLE nwinterface_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 255),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  QRMObjId TEXT CHECK (length(CAST(QRMObjId AS BLOB)) <= 36),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 2000),
  EntityType INTEGER CHECK (EntityType BETWEEN -2147483648 AND 2147483647),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  hasAddress INTEGER CHECK (hasAddress BETWEEN -2147483648 AND 2147483647),
  NodeObjID TEXT CHECK (length(CAST(NodeObjID AS BLOB)) <= 36),
  PhysicalAddress TEXT CHECK (length(CAST(PhysicalAddress AS BLOB)) <= 256),
  VendorCard TEXT CHECK (length(CAST(VendorCard AS BLOB)) <= 3),
  VendorPort TEXT CHECK (length(CAST(VendorPort AS BLOB)) <= 3),
  IfIndex INTEGER CHECK (IfIndex BETWEEN -2147483648 AND 2147483647),
  IfName TEXT CHECK (length(CAST(IfName AS BLOB)) <= 255),
  IfType INTEGER CHECK (IfType BETWEEN -2147483648 AND 2147483647),
  Vpi INTEGER CHECK (Vpi BETWEEN -2147483648 AND 2147483647),
  Vci INTEGER CHECK (Vci BETWEEN -2147483648 AND 2147483647),
  IfAlias TEXT CHECK (length(CAST(IfAlias AS BLOB)) <= 255),
  nodeName TEXT CHECK (length(CAST(nodeName AS BLOB)) <= 255),
  isL2Connected INTEGER CHECK (isL2Connected BETWEEN -2147483648 AND 2147483647),
  Port TEXT CHECK (length(CAST(Port AS BLOB)) <= 3),
  isHSRP INTEGER CHECK (isHSRP BETWEEN -2147483648 AND 2147483647),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  L2DomainId INTEGER CHECK (L2DomainId BETWEEN -2147483648 AND 2147483647),
  IfOperStatus INTEGER CHECK (IfOperStatus BETWEEN -2147483648 AND 2147483647),
  IfAdminState INTEGER CHECK (IfAdminState BETWEEN -2147483648 AND 2147483647),
  isATM INTEGER CHECK (isATM BETWEEN -2147483648 AND 2147483647),
  isOSPF INTEGER CHECK (isOSPF BETWEEN -2147483648 AND 2147483647),
  isBGP INTEGER CHECK (isBGP BETWEEN -2147483648 AND 2147483647),
  isFrameRelay INTEGER CHECK (isFrameRelay BETWEEN -2147483648 AND 2147483647),
  isMeshInterface INTEGER CHECK (isMeshInterface BETWEEN -2147483648 AND 2147483647),
  isMPLS INTEGER CHECK (isMPLS BETWEEN -2147483648 AND 2147483647),
  isVRRP INTEGER CHECK (isVRRP BETWEEN -2147483648 AND 2147483647),
  isDS1 INTEGER CHECK (isDS1 BETWEEN -2147483648 AND 2147483647),
  isDS3 INTEGER CHECK (isDS3 BETWEEN -2147483648 AND 2147483647),
  isSONET INTEGER CHECK (isSONET BETWEEN -2147483648 AND 2147483647),
  isCDP INTEGER CHECK (isCDP BETWEEN -2147483648 AND 2147483647),
  isSTP INTEGER CHECK (isSTP BETWEEN -2147483648 AND 2147483647),
  isWireless INTEGER CHECK (isWireless BETWEEN -2147483648 AND 2147483647),
  routeDistinguisher INTEGER CHECK (routeDistinguisher BETWEEN -2147483648 AND 2147483647),
  IfSpeed INTEGER CHECK (IfSpeed BETWEEN -2147483648 AND 2147483647),
  isAccessPort INTEGER CHECK (isAccessPort BETWEEN -2147483648 AND 2147483647),
  AscChangeTime INTEGER CHECK (AscChangeTime BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwinterface_update_nodeobjid_ix ON nwinterface_update (NodeObjID);
CREATE INDEX nwinterface_update_qrmobjid_ix ON nwinterface_update (QRMObjId);
CREATE INDEX nwinterface_update_nodename_ifname_ix ON nwinterface_update (nodeName, IfName);
CREATE INDEX nwinterface_update_description_ix ON nwinterface_update (Description);
CREATE INDEX nwinterface_update_isl2connected_ix ON nwinterface_update (isL2Connected);
CREATE INDEX nwinterface_update_iplevel_ix ON nwinterface_update (IPLevel);

CREATE TABLE nwvlan_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE nwifc_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  EntityName TEXT CHECK (length(CAST(EntityName AS BLOB)) <= 129),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 259),
  ZoneNumber TEXT CHECK (length(CAST(ZoneNumber AS BLOB)) <= 64),
  V6CompoundStatus INTEGER CHECK (V6CompoundStatus BETWEEN -2147483648 AND 2147483647),
  V6GlobalStatus INTEGER CHECK (V6GlobalStatus BETWEEN -2147483648 AND 2147483647),
  V6SiteStatus INTEGER CHECK (V6SiteStatus BETWEEN -2147483648 AND 2147483647),
  StatusChangeTimeUTC INTEGER CHECK (StatusChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  CreateTimeUTC INTEGER CHECK (CreateTimeUTC BETWEEN -2147483648 AND 2147483647),
  ChangeTimeUTC INTEGER CHECK (ChangeTimeUTC BETWEEN -2147483648 AND 2147483647),
  hasDynamicProperty INTEGER CHECK (hasDynamicProperty BETWEEN -2147483648 AND 2147483647),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  Status INTEGER CHECK (Status BETWEEN -2147483648 AND 2147483647),
  IFCType INTEGER CHECK (IFCType BETWEEN -2147483648 AND 2147483647),
  isOrdered INTEGER CHECK (isOrdered BETWEEN -2147483648 AND 2147483647),
  AppsID INTEGER CHECK (AppsID BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjId)
) STRICT;
CREATE INDEX nwifc_update_ifctype_ix ON nwifc_update (IFCType);
CREATE INDEX nwifc_update_routedistinguisher_ix ON nwifc_update (RouteDistinguisher);

CREATE TABLE nwifcctm_update (
  ContainerObjId TEXT NOT NULL CHECK (length(CAST(ContainerObjId AS BLOB)) <= 36),
  InterfaceObjId TEXT NOT NULL CHECK (length(CAST(InterfaceObjId AS BLOB)) <= 36),
  NodeObjId TEXT CHECK (length(CAST(NodeObjId AS BLOB)) <= 36),
  ContainmentType INTEGER CHECK (ContainmentType BETWEEN -2147483648 AND 2147483647),
  IFCType INTEGER CHECK (IFCType BETWEEN -2147483648 AND 2147483647),
  SequenceNumber INTEGER CHECK (SequenceNumber BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ContainerObjId, InterfaceObjId)
) STRICT;
CREATE INDEX nwifcctm_update_interfaceobjid_ix ON nwifcctm_update (InterfaceObjId);
CREATE INDEX nwifcctm_update_nodeobjid_ix ON nwifcctm_update (NodeObjId);

CREATE TABLE nwifcasc_update (
  LeftIFContainerObjID TEXT NOT NULL CHECK (length(CAST(LeftIFContainerObjID AS BLOB)) <= 36),
  RightIFContainerObjID TEXT NOT NULL CHECK (length(CAST(RightIFContainerObjID AS BLOB)) <= 36),
  RelType INTEGER NOT NULL CHECK (RelType BETWEEN -2147483648 AND 2147483647),
  LeftIfcType INTEGER CHECK (LeftIfcType BETWEEN -2147483648 AND 2147483647),
  RightIfcType INTEGER CHECK (RightIfcType BETWEEN -2147483648 AND 2147483647),
  State INTEGER CHECK (State BETWEEN -2147483648 AND 2147483647),
  StateChangeTime INTEGER CHECK (StateChangeTime BETWEEN -2147483648 AND 2147483647),
  Description TEXT CHECK (length(CAST(Description AS BLOB)) <= 259),
  ExtraInfo TEXT CHECK (length(CAST(ExtraInfo AS BLOB)) <= 259),
  PRIMARY KEY (LeftIFContainerObjID, RightIFContainerObjID, RelType)
) STRICT;
CREATE INDEX nwifcasc_update_rightifcontainerobjid_ix ON nwifcasc_update (RightIFContainerObjID);

CREATE TABLE nwhsrp_update (
  ObjId TEXT NOT NULL CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  PRIMARY KEY (ObjId),
  FOREIGN KEY (ObjId) REFERENCES nwentity_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE NWInterfaceAsc_update (
  leftobjid TEXT NOT NULL CHECK (length(CAST(leftobjid AS BLOB)) <= 36),
  rightobjid TEXT NOT NULL CHECK (length(CAST(rightobjid AS BLOB)) <= 36),
  leftifnodeobjid TEXT CHECK (length(CAST(leftifnodeobjid AS BLOB)) <= 36),
  rightifnodeobjid TEXT CHECK (length(CAST(rightifnodeobjid AS BLOB)) <= 36),
  reltype INTEGER NOT NULL CHECK (reltype BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (leftobjid, rightobjid, reltype)
) STRICT;
CREATE INDEX nwinterfaceasc_update_leftifnodeobjid_ix ON NWInterfaceAsc_update (leftifnodeobjid);
CREATE INDEX nwinterfaceasc_update_rightifnodeobjid_ix ON NWInterfaceAsc_update (rightifnodeobjid);

CREATE TABLE containment_update (
  ContainerObjID TEXT NOT NULL CHECK (length(CAST(ContainerObjID AS BLOB)) <= 36),
  ContainedObjID TEXT NOT NULL CHECK (length(CAST(ContainedObjID AS BLOB)) <= 36),
  ContainerType INTEGER CHECK (ContainerType BETWEEN -2147483648 AND 2147483647),
  ContainedType INTEGER CHECK (ContainedType BETWEEN -2147483648 AND 2147483647),
  ContainedNodeObjId TEXT CHECK (length(CAST(ContainedNodeObjId AS BLOB)) <= 36),
  PRIMARY KEY (ContainerObjID, ContainedObjID)
) STRICT;
CREATE INDEX containment_update_containedobjid_ix ON containment_update (ContainedObjID);
CREATE INDEX containment_update_containednodeobjid_ix ON containment_update (ContainedNodeObjId);

CREATE TABLE address_update (
  AddressId TEXT NOT NULL CHECK (length(CAST(AddressId AS BLOB)) <= 36),
  ObjId TEXT CHECK (length(CAST(ObjId AS BLOB)) <= 36),
  AddressType INTEGER CHECK (AddressType BETWEEN -2147483648 AND 2147483647),
  IPLevel INTEGER CHECK (IPLevel BETWEEN -2147483648 AND 2147483647),
  isSubnet INTEGER CHECK (isSubnet BETWEEN -2147483648 AND 2147483647),
  SubnetObjId TEXT CHECK (length(CAST(SubnetObjId AS BLOB)) <= 36),
  V6Address TEXT CHECK (length(CAST(V6Address AS BLOB)) <= 41),
  V6AddressBS TEXT CHECK (length(CAST(V6AddressBS AS BLOB)) <= 129),
  V6ScopeType INTEGER CHECK (V6ScopeType BETWEEN -2147483648 AND 2147483647),
  PrefixLength INTEGER CHECK (PrefixLength BETWEEN -2147483648 AND 2147483647),
  V4Address TEXT CHECK (length(CAST(V4Address AS BLOB)) <= 16),
  NodeObjId TEXT CHECK (length(CAST(NodeObjId AS BLOB)) <= 36),
  DNSName TEXT CHECK (length(CAST(DNSName AS BLOB)) <= 256),
  RouteDistinguisher INTEGER CHECK (RouteDistinguisher BETWEEN -2147483648 AND 2147483647),
  AddressQRMId TEXT CHECK (length(CAST(AddressQRMId AS BLOB)) <= 65),
  PingStatus INTEGER CHECK (PingStatus BETWEEN -2147483648 AND 2147483647),
  V6AddressType INTEGER CHECK (V6AddressType BETWEEN -2147483648 AND 2147483647),
  V6AddressNtmState INTEGER CHECK (V6AddressNtmState BETWEEN -2147483648 AND 2147483647),
  V6AddressStatus INTEGER CHECK (V6AddressStatus BETWEEN -2147483648 AND 2147483647),
  LastPingTimeUTC INTEGER CHECK (LastPingTimeUTC BETWEEN -2147483648 AND 2147483647),
  LastPingStateUpdTimeUTC INTEGER CHECK (LastPingStateUpdTimeUTC BETWEEN -2147483648 AND 2147483647),
  PubV4Address TEXT CHECK (length(CAST(PubV4Address AS BLOB)) <= 16),
  PingState INTEGER CHECK (PingState BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (AddressId)
) STRICT;
CREATE INDEX address_update_objid_ix ON address_update (ObjId);
CREATE INDEX address_update_nodeobjid_ix ON address_update (NodeObjId);
CREATE INDEX address_update_subnetobjid_ix ON address_update (SubnetObjId);
CREATE INDEX address_update_pubv4address_routedistinguisher_ix ON address_update (PubV4Address, RouteDistinguisher);
CREATE INDEX address_update_v4address_routedistinguisher_ix ON address_update (V4Address, RouteDistinguisher);
CREATE INDEX address_update_v6address_routedistinguisher_ix ON address_update (V6Address, RouteDistinguisher);
CREATE INDEX address_update_v6addressbs_ix ON address_update (V6AddressBS);
CREATE INDEX address_update_dnsname_ix ON address_update (DNSName);
CREATE INDEX address_update_addressqrmid_ix ON address_update (AddressQRMId);
CREATE INDEX address_update_addresstype_ix ON address_update (AddressType);

CREATE TABLE interfaceproperty_update (
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PropertyName TEXT NOT NULL CHECK (length(CAST(PropertyName AS BLOB)) <= 128),
  PropertyValue TEXT CHECK (length(CAST(PropertyValue AS BLOB)) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwinterface_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE nodeproperty_update (
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PropertyName TEXT NOT NULL CHECK (length(CAST(PropertyName AS BLOB)) <= 128),
  PropertyValue TEXT CHECK (length(CAST(PropertyValue AS BLOB)) <= 2000),
  PRIMARY KEY (ObjID, PropertyName),
  FOREIGN KEY (ObjID) REFERENCES nwnode_update ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED
) STRICT;

CREATE TABLE addressmapping_update (
  LeftAddressId TEXT NOT NULL CHECK (length(CAST(LeftAddressId AS BLOB)) <= 36),
  RightAddressId TEXT NOT NULL CHECK (length(CAST(RightAddressId AS BLOB)) <= 36),
  AddressMappingType INTEGER NOT NULL CHECK (AddressMappingType BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (LeftAddressId, RightAddressId, AddressMappingType)
) STRICT;
CREATE INDEX addressmapping_update_rightaddressid_ix ON addressmapping_update (RightAddressId);

CREATE TABLE userdefvar_update (
  VarName TEXT NOT NULL CHECK (length(CAST(VarName AS BLOB)) <= 128),
  VarValType INTEGER CHECK (VarValType BETWEEN -2147483648 AND 2147483647),
  StrVal TEXT CHECK (length(CAST(StrVal AS BLOB)) <= 2000),
  IntVal INTEGER CHECK (IntVal BETWEEN -2147483648 AND 2147483647),
  FloatVal REAL,
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  PRIMARY KEY (ObjID, VarName)
) STRICT;

CREATE TABLE hsrpaddress_update (
  AddressID TEXT NOT NULL CHECK (length(CAST(AddressID AS BLOB)) <= 36),
  AddressIfObjID TEXT CHECK (length(CAST(AddressIfObjID AS BLOB)) <= 36),
  ObjID TEXT NOT NULL CHECK (length(CAST(ObjID AS BLOB)) <= 36),
  state INTEGER CHECK (state BETWEEN -2147483648 AND 2147483647),
  HSRPPriority INTEGER CHECK (HSRPPriority BETWEEN -2147483648 AND 2147483647),
  HSRPNumber INTEGER CHECK (HSRPNumber BETWEEN -2147483648 AND 2147483647),
  TrackInterfaceList TEXT CHECK (length(CAST(TrackInterfaceList AS BLOB)) <= 1999),
  HSRPStateCertainty INTEGER CHECK (HSRPStateCertainty BETWEEN -2147483648 AND 2147483647),
  PRIMARY KEY (ObjID, AddressID)
) STRICT;
CREATE INDEX hsrpaddress_update_addressid_ix ON hsrpaddress_update (AddressID);
CREATE INDEX hsrpaddress_update_addressifobjid_ix ON hsrpaddress_update (AddressIfObjID);
