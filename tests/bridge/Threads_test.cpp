#include <atomic>
#include <thread>
#include <vector>

#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/bridge/detail/NativeFrame.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;

/// A thread that Java knows while this object lives.
class AttachedThread {
 public:
  explicit AttachedThread(JavaVM* vm) : vm_(vm) {
    vm_->AttachCurrentThread(reinterpret_cast<void**>(&jni_), nullptr);
  }
  AttachedThread(const AttachedThread&) = delete;
  AttachedThread& operator=(const AttachedThread&) = delete;
  ~AttachedThread() { vm_->DetachCurrentThread(); }
  JNIEnv* jni() const { return jni_; }

 private:
  JavaVM* const vm_;
  JNIEnv* jni_ = nullptr;
};

class ThreadsTest : public JvmTest {
 protected:
  ThreadsTest() { jni->GetJavaVM(&vm); }

  JavaVM* vm = nullptr;
};

// The first to look the kept classes and methods up, too.
TEST_F(ThreadsTest, SeveralMayBuildIntoOneCacheAtOnce) {
  constexpr int kThreads = 8;
  constexpr int kRounds = 100;
  const ZNRefPtr<ZNNode> node = madeNode("n1", {record("i1", "n1", "i2", "n2")}, 3);
  const ZNRefPtr<ZNInterface> interface = madeInterface("i1", "n1");
  jobject const cache = jni->NewGlobalRef(make("ZorbTopoCache"));
  std::atomic<int> built = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      const AttachedThread thread(vm);
      for (int round = 0; round < kRounds; ++round) {
        JavaEnv own(thread.jni());
        jobject const theJavaCache = round % 2 == 0 ? nullptr : cache;
        if (createNodeNative(own, node, theJavaCache)) ++built;
        if (createInterfaceNative(own, interface, theJavaCache)) ++built;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(built, 2 * kThreads * kRounds);
  EXPECT_TRUE(env.call<M_hasNodeID>(cache, env.text("n1")));
  EXPECT_TRUE(env.call<M_hasInterfaceID>(cache, env.text("i1")));
  jni->DeleteGlobalRef(cache);
}

}  // namespace
}  // namespace zntopo::test
