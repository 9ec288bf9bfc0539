import com.corvane.tv.zntopology.*;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Vector;
import java.util.function.Supplier;

/**
 * How many objects a second reach Java, beside making the same objects in Java: {@code JavaBench
 * SECONDS}, on the store that TV_TOPO_STORE names. The library's own cache holds everything, so that
 * what is measured is the way into Java.
 */
public final class JavaBench {
  private static final ZorbNative NATIVES = new ZorbNative();
  private static final int MEASUREMENTS = 5;

  private JavaBench() {}

  private static <T> T checked(T answer, ZorbTopoStatus status) {
    if (!status.isOK() || answer == null) {
      throw new IllegalStateException(status.toString());
    }
    return answer;
  }

  /** The median of objects a second, of some measurements after a first that does not count. */
  private static double objectsPerSecond(double seconds, Supplier<Integer> work) {
    double[] rates = new double[MEASUREMENTS];
    for (int i = -1; i < MEASUREMENTS; i++) {
      long begin = System.nanoTime();
      long objects = 0;
      double passed = 0;
      while (passed < seconds / (MEASUREMENTS + 1)) {
        objects += work.get();
        passed = (System.nanoTime() - begin) / 1e9;
      }
      if (i >= 0) {
        rates[i] = objects / passed;
      }
    }
    Arrays.sort(rates);
    return rates[MEASUREMENTS / 2];
  }

  private static void report(String kind, double cold, double known, double java) {
    System.out.printf(
        "| %s | %,.0f | %,.0f | %,.0f | %.1f |%n", kind, cold, known, java, java / cold);
  }

  private static List<ZorbNode> nodes(ObjID[] ids, ZorbTopoCache cache) {
    ZorbTopoStatus status = new ZorbTopoStatus();
    List<ZorbNode> nodes = new ArrayList<>();
    for (ObjID id : ids) {
      nodes.add(checked(NATIVES.getNodeNativeByObjID(id, status, cache), status));
    }
    return nodes;
  }

  private static List<ZorbInterface> interfaces(ObjID[] ids, ZorbTopoCache cache) {
    ZorbTopoStatus status = new ZorbTopoStatus();
    return checked(
        NATIVES.getInterfacesByObjIDListNative(ids, false, false, status, cache), status);
  }

  public static void main(String[] args) {
    double seconds = args.length > 0 ? Double.parseDouble(args[0]) : 10;
    ZorbNative.initNativeCache(1000000, 1000000, 1000000, 100000, 100000, 100000, 100000);
    ZorbTopoStatus status = new ZorbTopoStatus();
    ObjID[] nodeIDs =
        checked(NATIVES.getNativeAllNodes(status, null, 0, -1), status).stream()
            .map(ZorbEntity::getObjID)
            .toArray(ObjID[]::new);
    ObjID[] interfaceIDs =
        checked(NATIVES.getInterfacesByObjIDListNative(null, false, true, status, null), status)
            .stream()
            .map(ZorbEntity::getObjID)
            .toArray(ObjID[]::new);

    System.out.println("| objects a second | made | in the Java cache | made in Java | ratio |");
    System.out.println("|---|---|---|---|---|");
    ZorbTopoCache cache = new ZorbTopoCache();
    List<ZorbNode> nodes = nodes(nodeIDs, cache);
    report(
        "nodes",
        objectsPerSecond(seconds, () -> nodes(nodeIDs, null).size()),
        objectsPerSecond(seconds, () -> nodes(nodeIDs, cache).size()),
        objectsPerSecond(seconds, () -> nodes.stream().map(Copy::of).toList().size()));
    List<ZorbInterface> interfaces = interfaces(interfaceIDs, cache);
    report(
        "interfaces",
        objectsPerSecond(seconds, () -> interfaces(interfaceIDs, null).size()),
        objectsPerSecond(seconds, () -> interfaces(interfaceIDs, cache).size()),
        objectsPerSecond(seconds, () -> interfaces.stream().map(Copy::of).toList().size()));
  }

  /** Makes objects anew from objects, down to the identifiers: the least that a builder must do. */
  private static final class Copy {
    static ObjID of(ObjID id) {
      return new ObjID(id.getStringValue() == null ? null : text(id.getStringValue()));
    }

    /** Other characters, since a builder has to make them, too. */
    static String text(String text) {
      return text == null ? null : new String(text.toCharArray());
    }

    static Vector<Capability> of(List<Capability> capabilities) {
      Vector<Capability> copies = new Vector<>();
      for (Capability each : capabilities) {
        copies.add(new Capability(text(each.name())));
      }
      return copies;
    }

    static ObjectStatus of(ObjectStatus status) {
      return new ObjectStatus(status.toInt());
    }

    static Address of(Address address) {
      ObjID id = of(address.getAddressID());
      ObjID entity = of(address.getEntityID());
      PingState ping = new PingState(address.getPingState().toInt());
      if (address instanceof InetAddressIPv4 ipv4) {
        return new InetAddressIPv4(
            text(ipv4.getAddressAsString()), ipv4.isSubnetAddress(), id, entity,
            of(ipv4.getSubnetID()), ipv4.getRouteDistinguisher(), text(ipv4.getPublicAddress()),
            ping, ipv4.getPrefixLength());
      }
      if (address instanceof InetAddressIPv6 ipv6) {
        return new InetAddressIPv6(
            text(ipv6.getAddressAsString()), new IPv6ScopeType(ipv6.getScopeType().toInt()),
            ipv6.getPrefixLength(), ipv6.isSubnetAddress(), id, entity, of(ipv6.getSubnetID()),
            ipv6.getRouteDistinguisher(), ping);
      }
      return new InetAddressDNS(
          text(address.getAddressAsString()), address.isSubnetAddress(), id, entity,
          address.getRouteDistinguisher(), ping);
    }

    static ZorbEntity entity(ZorbEntity e) {
      AssEndPoint parent = e.getContainmentParent();
      Vector<UserDefVar> vars = new Vector<>();
      for (UserDefVar each : e.getUserVars()) {
        vars.add(new UserDefVar(text(each.name()), new VarValue(each.value().value())));
      }
      Vector<Address> addresses = new Vector<>();
      for (Address each : e.getAddresses()) {
        addresses.add(of(each));
      }
      return new ZorbEntity(
          of(e.getObjID()), of(e.getQRMObjID()), text(e.getName()), text(e.getDescription()),
          new EntityType(e.getEntityType().toInt()), of(e.getOverallStatus()),
          new IPLevel(e.getIPLevel().toInt()), null, null,
          new AssEndPoint(
              text(parent.name()), of(parent.objID()), new EntityType(parent.type().toInt())),
          vars, of(e.getCapabilities()), addresses, e.getCreateTime(), e.getChangeTime(),
          of(e.getV6OverallStatus()), of(e.getV6GlobalStatus()), of(e.getV6SiteStatus()),
          e.getStatusChangeTime(), e.getRD());
    }

    static Vector<ZorbConnData> links(List<ZorbConnData> links) {
      Vector<ZorbConnData> copies = new Vector<>();
      for (ZorbConnData each : links) {
        copies.add(
            new ZorbConnData(
                of(each.srcNodeID()), of(each.srcInterfaceID()), of(each.destNodeID()),
                of(each.destInterfaceID())));
      }
      return copies;
    }

    static ZorbNode of(ZorbNode node) {
      ZorbNode copy = new ZorbNode(entity(node));
      List<ZorbVlanInfo> vlans = new ArrayList<>();
      for (ZorbVlanInfo each : node.getVlanInfoList()) {
        List<ZorbVlanIFInfo> members = new ArrayList<>();
        for (ZorbVlanIFInfo member : each.interfaceInfos()) {
          members.add(
              new ZorbVlanIFInfo(
                  of(member.interfaceObjID()), text(member.boardNumber()),
                  text(member.portNumber())));
        }
        vlans.add(
            new ZorbVlanInfo(
                of(each.vlanObjID()), of(each.nodeObjID()), text(each.nodeName()), members));
      }
      copy.setVlanInfoList(vlans);
      List<ZorbIfcInfo> ifcs = new ArrayList<>();
      for (ZorbIfcInfo each : node.getIfcInfoList()) {
        List<ZorbIfcIFInfo> members = new ArrayList<>();
        for (ZorbIfcIFInfo member : each.interfaceInfos()) {
          members.add(
              new ZorbIfcIFInfo(
                  of(member.ifcObjID()), member.ifcType(), member.containmentType(),
                  member.sequenceNumber(), of(member.interfaceObjID())));
        }
        ifcs.add(new ZorbIfcInfo(of(each.objID()), members));
      }
      copy.setIfcInfoList(ifcs);
      NodeProperty property = node.getNodeProperty();
      copy.setNodeProperty(
          new NodeProperty(
              of(property.capabilities()),
              property.managementAddress() == null ? null : of(property.managementAddress()),
              text(property.entityOid()), text(property.sysContact()),
              text(property.sysLocation()), new SnmpState(property.snmpState().toInt())));
      copy.setConnDataList(links(node.getConnDataList()));
      return copy;
    }

    static ZorbInterface of(ZorbInterface anInterface) {
      IFProperty p = anInterface.getIFProperty();
      ZorbInterface copy =
          new ZorbInterface(
              entity(anInterface), links(anInterface.getConnData()),
              new IFProperty(
                  text(p.portNumber()), text(p.vendorPortNumber()), text(p.vendorCardNumber()),
                  p.vpi(), p.vci(), p.ifType(), p.ifIndex(), text(p.ifName()),
                  text(p.physicalAddress()), text(p.ifAlias()), p.isATM(), p.isHSRP(),
                  p.ifSpeed(), new IFAdminStatus(p.adminStatus().toInt()),
                  new IFOperStatus(p.operStatus().toInt()), of(p.capabilities())));
      if (anInterface.getHSRPObjIDList() != null) {
        Vector<ObjID> groups = new Vector<>();
        for (ObjID each : anInterface.getHSRPObjIDList()) {
          groups.add(of(each));
        }
        copy.setHSRPObjIDList(groups);
      }
      return copy;
    }
  }
}
