#include "zntopo/model/ZNRefPtrConversion.h"

#include "tests/model/ModelFixture.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

namespace zntopo::test {
namespace {

using Conversion = ZNRefPtrConversion;

InetAddressIPv6 plainIPv6(const std::string& id = "b1") {
  return InetAddressIPv6("2001:db8::1", InetAddressIPv6::Global, 64, false, ObjID(id), ObjID("if"),
                         ObjID(), ActiveDB);
}

/// Both handles lead to one object and count for it together.
template <typename To, typename From>
void expectShared(const ZNRefPtr<To>& to, const ZNRefPtr<From>& from) {
  ASSERT_FALSE(to.isNull());
  EXPECT_EQ(from.getCounter(), to.getCounter());
  EXPECT_EQ(from.getMutex(), to.getMutex());
  EXPECT_EQ(dynamic_cast<To*>(from.getObjectPointer()), to.getObjectPointer());
}

template <typename From, typename To>
void expectWidens(ZNRefPtr<To> (*convert)(const ZNRefPtr<From>&), From* object) {
  const ZNRefPtr<From> handle(object);
  expectShared(convert(handle), handle);
  EXPECT_TRUE(convert(ZNRefPtr<From>()).isNull());
}

TEST(ZNRefPtrConversionTest, EachWideningSharesTheObjectAndItsCount) {
  expectWidens(&Conversion::ZNInterface2ZNEntity, new ZNInterface());
  expectWidens(&Conversion::ZNIfc2ZNEntity, new ZNIfc());
  expectWidens(&Conversion::ZNVlan2ZNEntity, new ZNVlan());
  expectWidens(&Conversion::ZNNode2ZNEntity, new ZNNode());
  expectWidens(&Conversion::ZNSubnet2ZNEntity, new ZNSubnet());
  expectWidens(&Conversion::ZNHSRP2ZNEntity, new ZNHSRP());
  expectWidens(&Conversion::MonitoredIPv62Address, new MonitoredInetAddressIPv6());
  expectWidens(&Conversion::IPv42Address, new InetAddressIPv4());
}

/// Tries a narrowing on one object of each class, and a null handle.
template <typename From, typename To, std::size_t size>
void expectNarrows(ZNRefPtr<To> (*convert)(const ZNRefPtr<From>&),
                   const ZNRefPtr<From> (&all)[size]) {
  int matching = 0;
  for (const ZNRefPtr<From>& handle : all) {
    const ZNRefPtr<To> narrowed = convert(handle);
    if (dynamic_cast<To*>(handle.getObjectPointer())) {
      ++matching;
      expectShared(narrowed, handle);
    } else {
      EXPECT_TRUE(narrowed.isNull());
      EXPECT_EQ(nullptr, narrowed.getCounter());
      EXPECT_EQ(nullptr, narrowed.getMutex());
    }
  }
  EXPECT_GE(matching, 1);
  EXPECT_LT(matching, static_cast<int>(size));
  EXPECT_TRUE(convert(ZNRefPtr<From>()).isNull());
}

TEST(ZNRefPtrConversionTest, EachNarrowingOfAnEntityTestsTheObject) {
  const ZNRefPtr<ZNEntity> all[] = {new ZNEntity(), new ZNInterface(), new ZNNode(), new ZNVlan(),
                                    new ZNSubnet(), new ZNHSRP(),      new ZNIfc()};
  expectNarrows(&Conversion::ZNEntity2ZNInterface, all);
  expectNarrows(&Conversion::ZNEntity2ZNNode, all);
  expectNarrows(&Conversion::ZNEntity2ZNVlan, all);
  expectNarrows(&Conversion::ZNEntity2ZNSubnet, all);
  expectNarrows(&Conversion::ZNEntity2ZNHSRP, all);
}

TEST(ZNRefPtrConversionTest, EachNarrowingOfAnAddressTestsTheObject) {
  const ZNRefPtr<ZNAddress> all[] = {new InetAddressIPv4(), new InetAddressIPv6(),
                                     new MonitoredInetAddressIPv6(), new InetAddressDNS()};
  expectNarrows(&Conversion::Address2MonitoredIPv6, all);
  expectNarrows(&Conversion::Address2IPv6, all);
  expectNarrows(&Conversion::Address2IPv4, all);
  expectNarrows(&Conversion::Address2DNS, all);
}

TEST(ZNRefPtrConversionTest, AMonitoredAddressIsAnIPv6AddressToo) {
  const ZNRefPtr<ZNAddress> monitored(new MonitoredInetAddressIPv6(plainIPv6()));
  EXPECT_FALSE(Conversion::Address2IPv6(monitored).isNull());
  const ZNRefPtr<ZNAddress> plain(new InetAddressIPv6(plainIPv6()));
  EXPECT_TRUE(Conversion::Address2MonitoredIPv6(plain).isNull());
}

/// Tells when it dies.
class Mortal : public ZNNode {
 public:
  explicit Mortal(bool& dead) : dead_(dead) {}
  ~Mortal() override { dead_ = true; }

 private:
  bool& dead_;
};

TEST(ZNRefPtrConversionTest, AnObjectLivesAsLongAsAnyHandleOfAnyType) {
  bool dead = false;
  ZNRefPtr<ZNNode> node(new Mortal(dead));
  ZNRefPtr<ZNEntity> entity = Conversion::ZNNode2ZNEntity(node);
  node = ZNRefPtr<ZNNode>();
  EXPECT_FALSE(dead);
  ZNRefPtr<ZNNode> again = Conversion::ZNEntity2ZNNode(entity);
  entity = ZNRefPtr<ZNEntity>();
  EXPECT_FALSE(dead);
  again = ZNRefPtr<ZNNode>();
  EXPECT_TRUE(dead);
}

template <typename List>
void expectListConverted() {
  auto addresses = std::make_unique<List>();
  addresses->push_back(new MonitoredInetAddressIPv6(plainIPv6("m1")));
  addresses->push_back(new InetAddressIPv4());
  addresses->push_back(ZNRefPtr<ZNAddress>());
  addresses->push_back(new MonitoredInetAddressIPv6(plainIPv6("m2")));
  const auto converted = Conversion::AddressList2MonitoredIPv6List(std::move(addresses));
  ASSERT_EQ(4u, converted->size());
  auto entry = converted->begin();
  EXPECT_EQ(ObjID("m1"), (*entry++)->getAddressID());
  EXPECT_TRUE((entry++)->isNull());
  EXPECT_TRUE((entry++)->isNull());
  EXPECT_EQ(ObjID("m2"), (*entry)->getAddressID());
}

TEST(ZNRefPtrConversionTest, AListIsConvertedElementByElementInOrder) {
  expectListConverted<std::list<ZNRefPtr<ZNAddress>>>();
  expectListConverted<std::vector<ZNRefPtr<ZNAddress>>>();
}

TEST(ZNRefPtrConversionTest, NoListGivesAnEmptyList) {
  const auto converted =
      Conversion::AddressList2MonitoredIPv6List(std::unique_ptr<std::list<ZNRefPtr<ZNAddress>>>());
  ASSERT_NE(nullptr, converted);
  EXPECT_TRUE(converted->empty());
}

}  // namespace
}  // namespace zntopo::test
