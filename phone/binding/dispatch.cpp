#include "phone/binding/dispatch.h"

#include <cstdint>
#include <utility>

#include "phone/binding/bridge.h"
#include "phone/objc/block.h"

namespace tessel::phone {
namespace {

objc::Block<void()> blockRunning(host::Block work) {
  return objc::makeBlock<void()>([work = std::move(work)] {
    work();
    libraryReturned();
  });
}

class PhoneMainQueue final : public host::MainQueue {
 public:
  // |host::MainQueue|: the queue copies the block and releases it once run.
  void async(host::Block block) override {
    if (!block) return;
    dispatch_async(&_dispatch_main_q, blockRunning(std::move(block)).get());
  }
  void after(std::int64_t nanoseconds, host::Block block) override {
    if (!block) return;
    dispatch_after(dispatch_time(kDispatchTimeNow, nanoseconds), &_dispatch_main_q,
                   blockRunning(std::move(block)).get());
  }
};

}  // namespace

host::Ref<host::MainQueue> makeMainQueue() { return host::make<PhoneMainQueue>(); }

}  // namespace tessel::phone
