package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.Vector;
import org.junit.jupiter.api.Test;

class EntityNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  @Test
  void theCallsForAnyKindFindNothingWithASuccess() {
    status.setStatus(5, "of before");
    assertNull(NATIVES.getEntityNativeByObjID(Sample.nodeID("core-1"), status, null));
    assertOK(status);
    status.setStatus(5, "of before");
    assertNull(NATIVES.getEntityNativeByQRMObjID(new ObjID("101"), status, null));
    assertOK(status);
    assertNull(NATIVES.getEntityNativeByObjID(new ObjID(), status, null));
    assertOK(status);
  }

  @Test
  void entitiesAreFoundByAttributes() {
    TopoFilter filter = new TopoFilter();
    filter.setEntityType(EntityType.E_VLAN);
    Vector<ObjID> ids = NATIVES.getEntityIDsByFilterNative(filter, status);
    assertOK(status);
    assertEquals(
        Sample.rows("select objid from nwentity where entitytype = 4 order by 1"),
        ids.stream().map(ObjID::getStringValue).sorted().toList());
  }

  @Test
  void aFilterThatIgnoresAllFieldsIsOneWithItsDefaults() {
    // Entities can't be asked for by nothing: the statement of such a filter fails.
    assertNull(NATIVES.getEntityIDsByFilterNative(new TopoFilter(), status));
    assertFalse(status.isOK());
    int failure = status.getStatus();
    assertNull(NATIVES.getEntityIDsByFilterNative(null, status));
    assertEquals(failure, status.getStatus());
  }

  @Test
  void aStatusIsChangedInTheCache() {
    ObjID id = Sample.nodeID("border-1");
    NATIVES.getNodeNativeByObjID(id, status, null);
    NATIVES.updateCacheObjectStatusNative(
        id, false, EntityType.E_NODE.toInt(), ObjectStatus.MARGINAL.toInt(), 1800000000L,
        EntityStatusType.OVERALL.toInt(), status, false);
    assertOK(status);
    ZorbNode node = NATIVES.getNodeNativeByObjID(id, status, null);
    assertEquals(ObjectStatus.MARGINAL, node.getOverallStatus());
    assertEquals(1800000000L * 1000, node.getStatusChangeTime());
  }

  @Test
  void aStatusOfAKindThatHasNoneIsAFailure() {
    NATIVES.updateCacheObjectStatusNative(
        Sample.nodeID("border-1"), false, EntityType.E_CARD.toInt(), 1, 0, 5, status, false);
    assertStatus(TopoStatusCode.NOT_SUPPORTED_OPERATION, status);
  }

  @Test
  void anAttributeIsChangedInTheCache() {
    ObjID id = Sample.id("select min(objid) from nwentity where entitytype = 2");
    ObjID[] ids = {id};
    NATIVES.getInterfacesByObjIDListNative(ids, false, false, status, null);
    NATIVES.updateCacheObjectAttributeNative(
        id, EntityType.E_INTERFACE.toInt(), TopologyAttributeType.IF_OPER_STATUS.toInt(),
        IFOperStatus.DORMANT.toInt(), null, status);
    assertOK(status);
    assertEquals(
        IFOperStatus.DORMANT,
        NATIVES
            .getInterfacesByObjIDListNative(ids, false, false, status, null)
            .get(0)
            .getIFProperty()
            .operStatus());
  }

  @Test
  void anAttributeThatAKindDoesNotHaveIsLeftAloneWithASuccess() {
    status.setStatus(5, "of before");
    NATIVES.updateCacheObjectAttributeNative(
        Sample.nodeID("border-1"), EntityType.E_CARD.toInt(), 99, 1, new ObjID(), status);
    assertOK(status);
  }
}
